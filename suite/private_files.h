// What a practice keeps is its owner's alone, whatever mask for new files the person has set.
#pragma once

#include <filesystem>

namespace quillet::suite {

// Makes the folder when it is missing, those above it with the person's own mask. Throws
// std::runtime_error that names it when it cannot be made.
void makePrivateFolder(const std::filesystem::path& folder);

// Whether nobody but the owner has a right on it.
bool isPrivate(const std::filesystem::path& path);
// Takes the rights of others away. What cannot be changed, a file of somebody else for instance,
// stays as it is.
void makePrivate(const std::filesystem::path& path);
// The folder and all that is in it. Links are not followed.
void makeAllPrivate(const std::filesystem::path& folder);

}  // namespace quillet::suite
