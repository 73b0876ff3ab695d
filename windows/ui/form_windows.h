// The windows of the open forms inside a host's process.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "view/form_windows.h"
#include "view/kept_places.h"
#include "windows/ui/key_hook.h"

namespace quillet::windows {

class FormWindow;

class FormWindows : public view::FormWindows {
 public:
  FormWindows();
  ~FormWindows() override;

  // One act; an error goes on to the caller.
  void perform(const std::function<void()>& action) override;
  void refresh() override;

  FormWindow* of(const Form& form) const;
  // Null for a form without a window.
  HWND windowOf(const Form& form) const;
  // What a dialog stands above: the window of the form in work, else the host's in front.
  HWND owner() const;

  // Runs the form's window alone until it is closed, as a host expects of "Show 1": the host's
  // windows and our others take no input meanwhile. Ends early when the program ends, or when the
  // window is gone.
  void runUntilClosed(Form& form);

  // Where a host wants a form, in pixels. Kept from before its window exists until the form closes:
  // one that opens again is as it was designed, as a host expects that rescales it each time. It
  // opens where a person left it all the same.
  struct Place {
    std::optional<int> left, top, width, height;
    std::optional<double> fontPoints;
    std::string fontName;
  };
  // Where the form's window stands, or will by what is known so far.
  Place place(const Form& form) const;
  // What is not there stays as it is.
  void setPlace(const Form& form, const Place& change);
  // Where persons left the forms, and how wide they made columns.
  view::KeptPlaces& keptPlaces() { return kept_; }
  // A form was closed.
  std::function<void(const Form&)> onClosed;

  // For the windows and dialogs themselves.
  using view::FormWindows::activated;
  using view::FormWindows::interrupted;
  // Somebody else destroyed the form's window: the form closes, or gets another one.
  void lost(Form& form);

 protected:
  void opened(Form& form) override;
  void closed(Form& form) override;
  void left() override;

 private:
  FormWindow& create(Form& form);
  std::unique_ptr<FormWindow> take(const Form& form);
  FormWindow* front() const;
  bool isOurs(HWND window) const;
  bool dispatchKey(const MSG& message);

  view::KeptPlaces kept_;                             // outlives the windows
  std::vector<std::unique_ptr<FormWindow>> windows_;  // oldest first
  std::map<std::string, Place> places_;               // by the names of forms
  std::optional<KeyHook> hook_;                       // while there are windows
  Form* lost_ = nullptr;                              // its window is gone, and it is closing
  HWND host_ = nullptr;  // the window that was in front before the first of ours
};

}  // namespace quillet::windows
