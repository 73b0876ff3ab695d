// What was done to the files of a folder, and the folder as a power cut leaves it.
#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "campaign/disk.h"

namespace quillet::campaign {

class Recording {
 public:
  explicit Recording(const std::filesystem::path& record);

  std::size_t size() const { return entries_.size(); }
  // The positions of the first act's beginning and of the last one's end.
  std::size_t begun() const { return begun_; }
  std::size_t ended() const { return ended_; }
  std::size_t acknowledgedBefore(std::size_t cut) const;
  // How many writes to the pages of the database no sync had followed by then.
  std::size_t openPageWrites(std::size_t cut) const;

  // Brings the folder, which is as it was when the recording began, to what is left of it when the
  // power goes before that entry. What was not synchronised is lost, kept, or torn into sectors of
  // which some are kept; names and sizes come back as of some moment after the last sync.
  void cut(const std::filesystem::path& folder, std::size_t cut, std::mt19937& random) const;

 private:
  struct Entry : Operation {
    std::string name;
    std::string data;
  };
  std::vector<bool> synchronised(std::size_t cut) const;

  std::vector<Entry> entries_;
  std::size_t begun_ = 0;
  std::size_t ended_ = 0;
};

}  // namespace quillet::campaign
