// Creates a data folder.
#pragma once

#include <filesystem>

namespace quillet::app {

enum class Contents { sample, starterGroups };

// Creates a data folder. One that was interrupted is recognised as incomplete later. Throws
// std::runtime_error when something is there, unless it is a data folder that is to be replaced and
// that nobody has open.
void makeFolder(const std::filesystem::path& path, Contents contents, bool replace);

// The data folder to open: the one named, or the standard one, which is made with the sample
// practice when it is not there yet.
std::filesystem::path folderToOpen(const std::filesystem::path& named);

}  // namespace quillet::app
