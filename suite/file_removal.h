// Removes files together with what an act changes in the database: they go when the act's
// transaction stands. Until then, and while one cannot be removed, a row of the table SuiteRemoval
// names it; what is left there is tried again at the next start.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "ports/ports.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class FileRemoval : public FileRemover {
 public:
  // Files below that folder alone are removed.
  FileRemoval(UnitOfWork& unit, std::filesystem::path documents);

  bool remove(const std::filesystem::path& file) override;
  // Outside of a transaction: removes the files that are named. Returns those that could not be, as
  // paths below the folder.
  std::vector<std::string> carryOut();

 private:
  UnitOfWork& unit_;
  std::filesystem::path documents_;
  bool asked_ = true;  // rows may be there: at the start those of the last run
};

}  // namespace quillet::suite
