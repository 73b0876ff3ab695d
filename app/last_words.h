// What the program says when it is ended in the middle, as the database library does when the disk
// fails under its log: nobody is left wondering where the window went.
#pragma once

namespace quillet::app {

// From now on, on standard error, and with `inBox` in a window of a new process.
void prepareLastWords(bool inBox);

// In that process.
inline constexpr const char* lastWordsOption = "--last-words";
int showLastWords();

}  // namespace quillet::app
