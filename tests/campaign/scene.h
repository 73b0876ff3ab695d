// Books, what a person does to them act by act, and how they stand after each act when nothing goes
// wrong. The campaigns interrupt the program in the middle and compare: an act is whole or not
// there, and one that was acknowledged is there.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "campaign/disk.h"
#include "support/practice.h"

namespace quillet::campaign {

// The program on a data folder, with the disk under our control.
class Run {
 public:
  // `arguments` are those of acts.lua. `watched` may be null: the disk is left alone then.
  Run(const std::filesystem::path& data, const std::vector<std::string>& arguments, Disk* watched);
  ~Run() { kill(); }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  // Waits for its end; its status as `waitpid` tells it.
  int wait();
  void kill();
  // What it said, on both streams.
  std::string said() const;

 private:
  std::filesystem::path output_;
  int process_ = -1;
  int status_ = 0;
};

class Scene {
 public:
  // Plays the acts once, undisturbed.
  explicit Scene(const std::string& scenario);

  std::size_t acts() const { return books_.size() - 1; }
  // Of the undisturbed run: the operations from the first act to the program's end, to the last
  // act's, and the time of the acts.
  std::int64_t operations() const { return operations_; }
  std::int64_t operationsOfActs() const { return operationsOfActs_; }
  std::int64_t microseconds() const { return microseconds_; }

  // A new copy of the arranged folder in place of the last.
  std::filesystem::path fresh();
  std::filesystem::path folder() const { return work_.path() / "data"; }
  std::filesystem::path record() const { return work_.path() / "record"; }
  // A disk that does as planned, for the next run on the folder.
  Disk& disk(Disk::Plan plan, std::int64_t at = 0, bool recorded = false);
  std::unique_ptr<Run> play(std::vector<std::string> arguments = {});
  // Opens the folder again as a person would. "" when it holds the books after the act of that
  // number or after the next one, else what is wrong.
  std::string verdict(std::size_t acknowledged);
  // The number of the act after which the books stood as the last verdict saw them.
  std::size_t found() const { return found_; }

 private:
  std::string differences(const std::string& now, std::size_t act) const;

  std::string scenario_;
  support::TemporaryFolder work_;
  Disk* disk_;
  std::vector<std::string> books_;  // before the first act, after each
  std::int64_t operations_ = 0;
  std::int64_t operationsOfActs_ = 0;
  std::int64_t microseconds_ = 0;
  std::size_t found_ = 0;
};

// The numbers that a campaign's runs are drawn from, and replayed with: QUILLET_CAMPAIGN_SEED is
// the first, QUILLET_CAMPAIGN_RUNS how many there are.
std::vector<unsigned> seeds(int usually);

}  // namespace quillet::campaign
