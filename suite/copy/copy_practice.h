// Copies a practice from a data folder to a database server or back: the tables as they are, with
// every version of their rows, and the files beside them.
#pragma once

#include <functional>

#include "suite/data_folder.h"
#include "suite/database.h"

namespace quillet::suite {

struct Copied {
  long tables = 0;
  long rows = 0;  // versions of rows
};

// Copies all tables to a database that has none, and compares them afterwards. What is read is as
// it was at one instant; it is not changed. Until the end the other database is marked, so that no
// program opens it. Throws std::runtime_error.
Copied copyBooks(Database& from, Database& to,
                 const std::function<void(long done, long total)>& progress = {});

// Throws std::runtime_error when the database was being copied to, and the copy did not come to its
// end.
void refuseHalfCopied(Database& database);

// Documents and the program's own files; what is there already stays.
void copyFiles(const DataFolder& from, const DataFolder& to);

}  // namespace quillet::suite
