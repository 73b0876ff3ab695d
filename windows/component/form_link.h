// What the objects of one form share: the form, as long as it exists, and its window.
#pragma once

#include <memory>

#include "controls/form.h"
#include "windows/ui/form_windows.h"

namespace quillet::windows {

struct FormLink {
  std::weak_ptr<Form> known;
  FormWindows* windows = nullptr;  // null when the module has ended

  // Throws when the form is gone.
  Form& form() const;
  // Runs what a caller asked for as one act.
  void perform(const std::function<void(Form&)>& action) const;
  // Null when there is no window.
  HWND window() const;
};

// Hosts measure in twentieths of a point, at the resolution of a window (null: the system's).
int twips(int pixels, HWND window);
int pixels(double twips, HWND window);

}  // namespace quillet::windows
