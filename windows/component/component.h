// The module in its host's process: the one instance that every object of the class Forms speaks
// for. It lives on the thread that made it, from the first object until COM ends there.
#pragma once

#include <windows.h>

#include <memory>

#include "host/forms.h"
#include "windows/component/form_objects.h"
#include "windows/component/host_environment.h"
#include "windows/ui/form_windows.h"

namespace quillet::windows {

class Component {
 public:
  // Makes it when there is none: module start-up, whose errors leave. Throws on another thread.
  static Component& instance();
  static bool exists();
  // Calls come on its thread, or there is none. Objects are asked from another one by mistake only.
  static bool onItsThread();
  static void end() noexcept;

  ~Component();
  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;

  Forms& forms() { return forms_; }
  FormObjects& objects() { return objects_; }
  FormWindows& windows() { return windows_; }

 private:
  Component();

  FormWindows windows_;
  FormObjects objects_;
  HostEnvironment environment_;
  Forms forms_;
};

}  // namespace quillet::windows
