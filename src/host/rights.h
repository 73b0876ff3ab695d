// The rights that the service object's CheckPass is asked about.
#pragma once

namespace quillet::right {

inline constexpr const char* open = "open";            // a year that is signed
inline constexpr const char* overwrite = "overwrite";  // a year that is there
inline constexpr const char* remove = "delete";
inline constexpr const char* unlockYear = "UnlockYear";  // and to change a locked one

}  // namespace quillet::right
