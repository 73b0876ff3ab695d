// What an error of the database means to the act in which it came.
#pragma once

namespace quillet::suite {

// Of the module's own kind: the server never sends them.
inline constexpr long refusedAfterTakingBack = 20001;
inline constexpr long laterFailed = 20004;

inline constexpr long waitedTooLong = 1205;
inline constexpr long deadlock = 1213;

bool losesConnection(long error);
// What the act has done so far cannot be trusted to be completed.
bool takesBack(long error);

}  // namespace quillet::suite
