#include "windows/ui/dialogs.h"

#include <commdlg.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <vector>

#include "view/message_texts.h"
#include "windows/com/text.h"
#include "windows/ui/modal.h"
#include "windows/ui/own_dialogs.h"
#include "windows/ui/visual_styles.h"

namespace quillet::windows {
namespace {

UINT iconOf(Icon icon) {
  switch (icon) {
    case Icon::information:
      return MB_ICONINFORMATION;
    case Icon::question:
      return MB_ICONQUESTION;
    case Icon::exclamation:
      return MB_ICONEXCLAMATION;
    case Icon::critical:
      return MB_ICONERROR;
    case Icon::none:
      break;
  }
  return 0;
}

UINT buttonsOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::YesNo:
      return MB_YESNO;
    case Buttons::YesNoCancel:
      return MB_YESNOCANCEL;
    case Buttons::OK:
      break;
  }
  return MB_OK;
}

UINT defaultButton(const Message& message) {
  const std::vector<Answer> answers = view::answersOf(message.buttons);
  const auto at = std::find(answers.begin(), answers.end(), view::defaultOf(message));
  const auto position = at - answers.begin();
  return position == 1 ? MB_DEFBUTTON2 : position == 2 ? MB_DEFBUTTON3 : MB_DEFBUTTON1;
}

Answer answerOf(int button, Buttons buttons) {
  switch (button) {
    case IDYES:
      return Answer::Yes;
    case IDNO:
      return Answer::No;
    case IDOK:
      return Answer::OK;
    default:
      // Closed without a button.
      return view::whenClosed(buttons);
  }
}

// The names and patterns one after the other, each ended by a zero.
std::wstring filterOf(const std::string& filter) {
  std::wstring list;
  for (const view::FileKind& kind : view::fileKinds(filter)) {
    list += wide(kind.name) + L'\0' + wide(kind.pattern) + L'\0';
  }
  return list + L'\0';
}

// The file dialog changes the folder that the host works in.
class KeptFolder {
 public:
  KeptFolder() {
    folder_.resize(GetCurrentDirectoryW(0, nullptr));
    GetCurrentDirectoryW(static_cast<DWORD>(folder_.size()), folder_.data());
  }
  ~KeptFolder() { SetCurrentDirectoryW(folder_.c_str()); }
  KeptFolder(const KeptFolder&) = delete;
  KeptFolder& operator=(const KeptFolder&) = delete;

 private:
  std::wstring folder_;
};

}  // namespace

HWND NativeDialogs::prepare() {
  // A person answers by what the windows show, so they show how things stand now.
  windows_.refresh();
  windows_.interrupted();
  return windows_.owner();
}

Answer NativeDialogs::MsgBox(const Message& message) {
  const HWND owner = prepare();
  const Covered covered(owner);
  const VisualStyles styles;
  const std::wstring text = wide(view::textOf(message));
  const std::wstring title = wide(view::titleOf(message));
  if (isTooLong(text, owner)) {
    const LongMessage all{title, text, iconOf(message.icon), view::answersOf(message.buttons),
                          view::defaultOf(message)};
    return answerOf(showLongMessage(owner, all), message.buttons);
  }
  const UINT style = buttonsOf(message.buttons) | iconOf(message.icon) | defaultButton(message);
  return answerOf(MessageBoxW(owner, text.c_str(), title.c_str(), style), message.buttons);
}

std::optional<std::string> NativeDialogs::saveFile(const std::string& filter,
                                                   const std::string& proposed) {
  const HWND owner = prepare();
  const Covered covered(owner);
  const VisualStyles styles;
  const KeptFolder kept;
  const std::filesystem::path file(wide(proposed));
  const std::wstring filters = filterOf(filter);
  const std::wstring folder = file.parent_path().wstring();
  const std::wstring extension =
      file.has_extension() ? file.extension().wstring().substr(1) : std::wstring();
  std::vector<wchar_t> name(32768);
  const std::wstring begun = file.filename().wstring();
  std::copy_n(begun.begin(), std::min(begun.size(), name.size() - 1), name.begin());
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = filters.c_str();
  dialog.nFilterIndex = 1;
  dialog.lpstrFile = name.data();
  dialog.nMaxFile = static_cast<DWORD>(name.size());
  dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
  dialog.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
  // Whether a file that is there may be overwritten is the form's own question.
  dialog.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR;
  if (!GetSaveFileNameW(&dialog)) return std::nullopt;
  return utf8(name.data());
}

std::optional<std::string> NativeDialogs::password(const std::string& prompt) {
  const HWND owner = prepare();
  const Covered covered(owner);
  const VisualStyles styles;
  const std::optional<std::wstring> typed = askPassword(owner, wide(prompt));
  if (!typed) return std::nullopt;
  return utf8(*typed);
}

}  // namespace quillet::windows
