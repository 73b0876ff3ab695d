// Work done in a process of its own.
#pragma once

#include <functional>

namespace quillet::app {

// Runs the work in a child process, because the database library starts only once in each. Throws
// what the work threw, as a std::runtime_error with the same text.
void runApart(const std::function<void()>& work);

}  // namespace quillet::app
