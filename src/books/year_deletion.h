// The deletion of one client's year: its trial balance and, as far as that is wanted, the
// schedules, the depreciation chart, the annexures and report files that hang on it, and its row in
// the registry.
//
// There is no way back: what was sent before a failure stays done, and a second try runs through
// the whole again.
#pragma once

#include <array>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "books/registry.h"
#include "books/unposted_changes.h"

namespace quillet {

// What of a year's files could not be deleted.
struct FilesLeft {
  bool codeNamesNone = false;      // the client code cannot be part of a file name: all of them
  std::vector<std::string> files;  // paths below the documents folder
  bool any() const { return codeNamesNone || !files.empty(); }
};

struct DeletionStatement;

class YearDeletion {
 public:
  YearDeletion(ServiceObject& host, FileRemover& remover, UnpostedChanges& unposted)
      : host_(host), remover_(remover), unposted_(unposted) {}

  // The year that is deleted from now on; looks whether it has a depreciation chart.
  void open(const RegisteredYear& year);
  const RegisteredYear& year() const { return year_; }
  bool hasChart() const { return hasChart_; }

  void deleteTrialBalance();
  void deleteSchedules(bool withChart);
  FilesLeft deleteMiscellaneous();
  void deleteRegistryRow();

  // Whether anything was deleted, if only in a try that failed in the middle.
  bool touched() const { return touched_; }
  // Whether the year's row in the registry went too, possibly in a try that failed after that.
  bool registryRowDeleted() const { return registryRowDeleted_; }

 private:
  void send(std::span<const DeletionStatement> statements, bool& sent);

  ServiceObject& host_;
  FileRemover& remover_;
  UnpostedChanges& unposted_;
  RegisteredYear year_;
  std::array<std::pair<char, Sql>, 4> values_;  // of the marks in the statements
  bool hasChart_ = false;
  bool touched_ = false;
  bool registryRowDeleted_ = false;
};

}  // namespace quillet
