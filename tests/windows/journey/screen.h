// What stands on the screen: the windows of this program's forms, and the message box above them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace quillet::journey {

// The windows of forms that are shown.
std::vector<HWND> formWindows();

struct MessageBox {
  HWND window = nullptr;  // null when there is none
  std::string text;       // each line break and run of spaces one space
};
MessageBox messageBox();
// Presses the access key of its button of that name; false when there is no such button.
bool answer(const MessageBox& box, const std::string& button);

// "class 'title'" of each window shown, for the report of a failure.
std::string allWindows();

}  // namespace quillet::journey
