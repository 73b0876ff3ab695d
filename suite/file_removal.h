// Removes files together with what an act changes in the database: they go when the act's
// transaction stands, into a folder beside, where they are kept for 90 days. When the act is taken
// back they come back, and go once more when that is taken back itself. A row of the table
// SuiteRemoval names each of them, so that what was begun is completed at the next start.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "ports/ports.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class FileRemoval : public FileRemover {
 public:
  // Files below that folder alone are removed; they are kept in `kept`.
  FileRemoval(UnitOfWork& unit, std::filesystem::path documents, std::filesystem::path kept);

  bool remove(const std::filesystem::path& file) override;
  // Within the act that takes that one back.
  void bringBack(Instant act);
  // Within the act that takes a bringing back of that one's files back.
  void removeAgain(Instant act);
  // Outside of a transaction: moves the files that are named. Returns those that could not be, as
  // paths below the folder.
  std::vector<std::string> carryOut();
  // Outside of a transaction: removes for good what was kept long enough.
  void removeOld();

 private:
  bool move(const std::filesystem::path& from, const std::filesystem::path& to) const;
  std::vector<std::string> putAway();
  std::vector<std::string> putBack();

  UnitOfWork& unit_;
  std::filesystem::path documents_;
  std::filesystem::path kept_;
  bool asked_ = true;  // rows may be there: at the start those of the last run
};

}  // namespace quillet::suite
