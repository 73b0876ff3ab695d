// A line of text. Each character that is typed, composed or pasted passes the form's key handlers
// first; the window then edits, so that its undo works, and the result goes to the model.
#pragma once

#include "controls/text_box.h"
#include "windows/ui/control_view.h"

namespace quillet::windows {

class TextView : public ControlView {
 public:
  TextView(TextBox& box, view::ActionRunner& runner, HWND parent);

  bool keepsKey(WPARAM code) const override;
  void command(WORD code) override;

 protected:
  void draw() override;
  std::optional<LRESULT> received(const WindowMessage& message) override;
  void keysTyped(const std::vector<Key>& typed) override;
  bool commandKey(WPARAM code) override;
  bool mousePressed(const WindowMessage& message, bool arrived) override;

 private:
  // In the window's text, in code units.
  struct Selection {
    DWORD start = 0;
    DWORD end = 0;
  };
  Selection selection() const;
  void select(Selection units);
  std::wstring shownText() const;
  void showSelection();

  void paste(const std::vector<Key>& typed);
  void paste(const std::string& text);
  void showPasted();
  void edit(Key key);
  void replace(std::size_t start, std::size_t length, const std::string& text);
  void handOver();
  void followSelection();
  LRESULT moveCaret(const WindowMessage& message);
  LRESULT compose(const WindowMessage& message);

  TextBox& box_;
  bool showingPasted_ = false;
};

}  // namespace quillet::windows
