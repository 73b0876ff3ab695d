// The box over a cell in which a person edits its text. Enter and Tab take the text, as leaving the
// box does; Escape gives it up.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "data/align.h"
#include "windows/ui/owned_window.h"

namespace quillet::windows {

class CellEditor : public OwnedWindow {
 public:
  // Told once, when the editing ends: whether the text is taken.
  using Ended = std::function<void(bool taken)>;
  CellEditor(HWND list, Align align, HFONT font, const RECT& room, const std::string& text,
             Ended ended);

  std::string text() const;

 protected:
  std::optional<LRESULT> handle(const WindowMessage& message) override;

 private:
  void paste();
  std::optional<LRESULT> typed(WPARAM character);

  Ended ended_;
};

}  // namespace quillet::windows
