// The loaded library: its handle, and whether somebody still uses what it made.
#pragma once

#include <windows.h>

#include <string>

namespace quillet::windows::module {

void attach(HINSTANCE library);
HINSTANCE handle();
// Where the library lies.
std::wstring path();

// Counts an object that somebody outside may hold.
class Use {
 public:
  Use() { add(1); }
  ~Use() { add(-1); }
  Use(const Use&) = delete;
  Use& operator=(const Use&) = delete;

 private:
  static void add(long count);
};
void lock(bool locked);
bool inUse();
// How many objects there are.
long uses();

// The library stays loaded until the process ends: the system calls it when COM ends on a thread,
// which may be after the host has let go of every object.
void stayLoaded();

}  // namespace quillet::windows::module
