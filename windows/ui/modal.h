// Takes the input of the thread's other windows away while a modal form or dialog is up.
#pragma once

#include <windows.h>

#include <vector>

namespace quillet::windows {

class Covered {
 public:
  // Every visible window of the thread except this one; null covers all that are there now.
  explicit Covered(HWND except = nullptr);
  // Gives the input back to those that no other one covers, as long as they are still there.
  ~Covered();
  Covered(const Covered&) = delete;
  Covered& operator=(const Covered&) = delete;

 private:
  std::vector<HWND> windows_;
};

}  // namespace quillet::windows
