// Creates a data folder.
#pragma once

#include <filesystem>
#include <string>

#include "suite/server_address.h"

namespace quillet::app {

enum class Contents { sample, starterGroups };

// Creates a data folder. One that was interrupted is recognised as incomplete later. Throws
// std::runtime_error when something is there, unless it is a data folder that is to be replaced and
// that nobody has open.
void makeFolder(const std::filesystem::path& path, Contents contents, bool replace);

// Fills an empty database at a server with the tables and the starter groups.
void fillServer(const suite::ServerAddress& address, const std::string& password);

// While a folder is being filled it is not opened.
void markUnfinished(const std::filesystem::path& folder);
void markFinished(const std::filesystem::path& folder);

// The data folder of a station: the one named, or one beside the standard one that is called after
// the database and the server. It may not be there.
std::filesystem::path stationFolder(const std::filesystem::path& named, const std::string& url);
// The same with settings that name the server, made when missing. Throws std::runtime_error when
// the folder has books of its own.
std::filesystem::path folderForServer(const std::filesystem::path& named, const std::string& url);

// The data folder to open: the one named, or the standard one, which is made with the sample
// practice when it is not there yet.
std::filesystem::path folderToOpen(const std::filesystem::path& named);

}  // namespace quillet::app
