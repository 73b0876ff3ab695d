#include "windows/ui/own_dialogs.h"

#include <algorithm>

#include "view/message_texts.h"
#include "windows/com/text.h"
#include "windows/ui/dpi.h"
#include "windows/ui/extents.h"
#include "windows/ui/small_dialog.h"
#include "windows/ui/window_text.h"

namespace quillet::windows {
namespace {

constexpr int charactersInLine = 70;

class PasswordDialog : public SmallDialog {
 public:
  explicit PasswordDialog(std::wstring prompt) : prompt_(std::move(prompt)) {}
  ~PasswordDialog() override { SecureZeroMemory(typed_.data(), typed_.size() * sizeof(wchar_t)); }
  std::wstring typed() const { return typed_; }

 protected:
  SIZE build(const Metrics& metrics) override {
    const LONG step = metrics.step();
    const LONG width = std::max(metrics.characters(40),
                                std::min(metrics.widthOf(prompt_) + 4, metrics.characters(80)));
    const LONG lines = 1 + metrics.widthOf(prompt_) / std::max<LONG>(1, width);
    const LONG right = 2 * step + width;
    const LONG under = 2 * step + lines * metrics.line();
    add(L"STATIC", prompt_, SS_NOPREFIX, {2 * step, 2 * step, right, under});
    box_ = add(L"EDIT", {}, WS_TABSTOP | ES_PASSWORD | ES_AUTOHSCROLL,
               {2 * step, under + step, right, under + step + metrics.box()});
    return {width, under - step + metrics.box()};
  }
  std::vector<Button> buttons() const override { return {{IDOK, L"OK"}, {IDCANCEL, L"Cancel"}}; }
  HWND first() const override { return box_; }
  void ending(int button) override {
    if (button == IDOK) typed_ = textOf(box_);
  }

 private:
  std::wstring prompt_;
  std::wstring typed_;
  HWND box_ = nullptr;
};

int idOf(Answer answer) {
  switch (answer) {
    case Answer::Yes:
      return IDYES;
    case Answer::No:
      return IDNO;
    case Answer::Cancel:
      return IDCANCEL;
    case Answer::OK:
      break;
  }
  return IDOK;
}

HICON iconOf(UINT style) {
  switch (style) {
    case MB_ICONERROR:
      return LoadIconW(nullptr, IDI_ERROR);
    case MB_ICONQUESTION:
      return LoadIconW(nullptr, IDI_QUESTION);
    case MB_ICONEXCLAMATION:
      return LoadIconW(nullptr, IDI_EXCLAMATION);
    case MB_ICONINFORMATION:
      return LoadIconW(nullptr, IDI_INFORMATION);
    default:
      return nullptr;
  }
}

std::wstring withReturns(const std::wstring& text) {
  std::wstring lines;
  for (const wchar_t unit : text) {
    if (unit == L'\n') lines += L'\r';
    lines += unit;
  }
  return lines;
}

class LongTextDialog : public SmallDialog {
 public:
  explicit LongTextDialog(const LongMessage& message) : message_(message) {}

 protected:
  SIZE build(const Metrics& metrics) override {
    const LONG step = metrics.step();
    const LONG picture = message_.icon ? metrics.pixels(32) + 2 * step : 0;
    const RECT screen = area();
    const LONG height = (screen.bottom - screen.top) / 2;
    const LONG width = std::min<LONG>(metrics.characters(charactersInLine + 10),
                                      (screen.right - screen.left) * 3 / 4);
    if (picture > 0) {
      const HWND icon = add(L"STATIC", {}, SS_ICON, {2 * step, 2 * step, 2 * step + picture, 0});
      SendMessageW(icon, STM_SETICON, reinterpret_cast<WPARAM>(iconOf(message_.icon)), 0);
    }
    const LONG left = 2 * step + picture;
    add(L"EDIT", withReturns(message_.text),
        WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
        {left, 2 * step, left + width, 2 * step + height});
    return {picture + width, height - step};
  }
  std::vector<Button> buttons() const override {
    std::vector<Button> all;
    for (const Answer answer : message_.answers) {
      all.push_back({idOf(answer), wide(view::textOf(answer))});
    }
    return all;
  }
  int defaultButton() const override { return idOf(message_.defaultAnswer); }

 private:
  const LongMessage& message_;
};

}  // namespace

std::optional<std::wstring> askPassword(HWND owner, const std::wstring& prompt) {
  PasswordDialog dialog(prompt);
  if (dialog.run(owner, L"Password") != IDOK) return std::nullopt;
  return dialog.typed();
}

bool isTooLong(const std::wstring& text, HWND owner) {
  const Metrics metrics(dpiOf(owner), {});
  const RECT screen = workArea(owner);
  int lines = 0;
  for (std::size_t from = 0; from <= text.size();) {
    const std::size_t end = std::min(text.find(L'\n', from), text.size());
    const int width = metrics.widthOf(std::wstring_view(text).substr(from, end - from));
    lines += 1 + width / std::max(1, metrics.characters(charactersInLine));
    from = end + 1;
  }
  return lines * metrics.line() > (screen.bottom - screen.top) / 2;
}

int showLongMessage(HWND owner, const LongMessage& message) {
  LongTextDialog dialog(message);
  return dialog.run(owner, message.title);
}

}  // namespace quillet::windows
