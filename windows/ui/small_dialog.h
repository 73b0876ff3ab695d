// A dialog whose controls are made when it opens: a column of them above a row of buttons.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "windows/ui/metrics.h"

namespace quillet::windows {

class SmallDialog {
 public:
  virtual ~SmallDialog() = default;

  // Runs until a button is pressed; its id, or IDCANCEL when the dialog was closed.
  int run(HWND owner, const std::wstring& title);

 protected:
  struct Button {
    int id;
    std::wstring text;
  };
  // Makes the controls above the buttons; returns the room that they take.
  virtual SIZE build(const Metrics& metrics) = 0;
  virtual std::vector<Button> buttons() const = 0;
  virtual int defaultButton() const { return IDOK; }
  // Where the focus is at first.
  virtual HWND first() const { return nullptr; }
  // The dialog ends with this button.
  virtual void ending(int /*button*/) {}

  // At a place inside the dialog.
  HWND add(const wchar_t* windowClass, const std::wstring& text, DWORD style, const RECT& at,
           int id = -1);
  HWND window() const { return window_; }
  RECT area() const;  // of the screen, for windows

 private:
  static INT_PTR CALLBACK receive(HWND window, UINT message, WPARAM wide, LPARAM longer);
  void open();
  void addButtons(const SIZE& room);
  void centre(const SIZE& inside);

  HWND owner_ = nullptr;
  HWND window_ = nullptr;
  HWND default_ = nullptr;
  std::wstring title_;
  std::unique_ptr<Metrics> metrics_;
};

}  // namespace quillet::windows
