// A host as small as a test needs it: the suite's objects answer what opening an empty home form or
// editor asks, and the component is used as a host's thread does.
#pragma once

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <string>

#include "ports/recorder.h"
#include "windows/com/late.h"

namespace quillet::fakes {

// Runs on a thread of its own that has COM, as the thread of a host's windows. The component lives
// and ends with it.
void onHostThread(const std::function<void()>& body);

class Host {
 public:
  // What is named is not there.
  explicit Host(std::initializer_list<const char*> without = {});
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  Recorder& suite() { return *suite_; }
  // The statements sent so far, one line each.
  std::string statements() const;

 private:
  Pointer<Recorder> suite_;
};

windows::Late newForms();
// Takes the messages that are there for so many milliseconds.
void pump(DWORD milliseconds);
// Waits on another thread for a message box, notes its text and presses its button.
class MessageBoxReader {
 public:
  MessageBoxReader();
  ~MessageBoxReader();
  // "" when there was none.
  std::string text() const { return text_; }

 private:
  static DWORD WINAPI watch(void* reader);
  HANDLE thread_;
  HANDLE done_;
  std::string text_;
};

}  // namespace quillet::fakes
