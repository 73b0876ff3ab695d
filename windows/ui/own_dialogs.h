// The dialogs that Windows does not have.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "ports/ports.h"

namespace quillet::windows {

// Nothing when it was cancelled.
std::optional<std::wstring> askPassword(HWND owner, const std::wstring& prompt);

// Whether a message box with this text would be too high for the screen.
bool isTooLong(const std::wstring& text, HWND owner);
// A message whose text is read by scrolling, so that the buttons stay in sight. Returns IDOK,
// IDYES, IDNO or IDCANCEL.
struct LongMessage {
  std::wstring title;
  std::wstring text;
  UINT icon = 0;  // as MessageBox names it
  std::vector<Answer> answers;
  Answer defaultAnswer = Answer::OK;
};
int showLongMessage(HWND owner, const LongMessage& message);

}  // namespace quillet::windows
