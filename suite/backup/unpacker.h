// Looks through an archive, and unpacks one into a new folder.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

namespace quillet::suite::backup {

// Reads the archive to its end, as unpacking would. Returns how many bytes it takes when it is
// unpacked. Throws std::runtime_error that tells why it cannot be used. `onTheWay` is called now
// and then and may throw to give up.
std::uintmax_t verify(const std::filesystem::path& archive,
                      const std::function<void()>& onTheWay = {});

// Unpacks into the folder, which must be empty and ours alone. Only the owner can read what comes
// out. Everything is on the disk when this returns. Throws as above, and when there is no room.
void unpack(const std::filesystem::path& archive, const std::filesystem::path& folder);

}  // namespace quillet::suite::backup
