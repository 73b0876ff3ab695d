// Packs a data folder into a compressed archive (tar, zstd) that common tools read, too.
#pragma once

#include <functional>

#include "suite/backup/part_file.h"
#include "suite/data_folder.h"

namespace quillet::suite::backup {

// Told of the bytes done and of all. May throw to give up.
using Progress = std::function<void(std::uintmax_t done, std::uintmax_t total)>;

// Reads what it wrote as restoring would; everything is on the disk when this returns. Throws
// std::runtime_error when there is no practice, when something cannot be read or written, or when a
// file shrinks meanwhile. A link to one of the three folders is followed; other links and what does
// not belong to a data folder are left out.
void pack(const DataFolder& folder, PartFile& file, const Progress& progress);

}  // namespace quillet::suite::backup
