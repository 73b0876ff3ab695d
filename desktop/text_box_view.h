// A line of text. Each character that is typed or pasted passes the form's key handlers first; Qt
// then edits, so that clipboard, undo and input methods work, and the result goes to the model.
#pragma once

#include "controls/text_box.h"
#include "desktop/control_view.h"

class QContextMenuEvent;
class QInputMethodEvent;
class QLineEdit;

namespace quillet::desktop {

class TextBoxView : public ControlView {
 public:
  TextBoxView(TextBox& box, view::ActionRunner& runner, QWidget* parent);

 protected:
  void draw() override;
  bool keyPressed(QKeyEvent& event) override;
  bool mousePressed(QObject* target, QMouseEvent& event, bool arrived) override;
  bool otherEvent(QObject* target, QEvent& event) override;

 private:
  void drawAlignment();
  QString shownText();
  void typeText(const QString& text);
  // Several keys at once come from a paste or an input method.
  void typeEach(const std::vector<Key>& typed);
  void edit(Key key);
  void handOver();
  void followSelection();
  bool compose(QInputMethodEvent& event);
  void showMenu(const QContextMenuEvent& event);

  TextBox& box_;
  QLineEdit* line_;
};

}  // namespace quillet::desktop
