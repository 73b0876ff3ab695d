// Keeps the keys of our windows from the host. Its message loop may try each key on accelerators of
// its own first; a key that belongs to one of our windows is dispatched before it gets that far.
#pragma once

#include <windows.h>

#include <functional>

namespace quillet::windows {

// Watches the messages that the thread takes from its queue, for as long as this object lives.
// There is one at a time.
class KeyHook {
 public:
  // Told each message of the keyboard; true when it is used up. Must not throw.
  using Filter = std::function<bool(const MSG&)>;
  explicit KeyHook(Filter filter);
  ~KeyHook();
  KeyHook(const KeyHook&) = delete;
  KeyHook& operator=(const KeyHook&) = delete;

 private:
  static LRESULT CALLBACK taken(int code, WPARAM removed, LPARAM message);

  Filter filter_;
  HHOOK hook_;
};

}  // namespace quillet::windows
