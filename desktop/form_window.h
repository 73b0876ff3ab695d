// The window of any form: its menu bar, its controls in the form's arrangement, its caption. Draws
// what the form says and passes on what a person does; it decides nothing by itself.
#pragma once

#include <QMainWindow>
#include <functional>
#include <map>

#include "controls/form.h"
#include "desktop/form_layout.h"
#include "desktop/form_menu.h"
#include "view/action_runner.h"

class QLabel;

namespace quillet::desktop {

class DropDown;
class KeptPlaces;
class NoticeBar;

class FormWindow : public QMainWindow {
 public:
  FormWindow(Form& form, view::ActionRunner& runner, KeptPlaces& places);
  ~FormWindow() override;

  Form& form() const { return form_; }
  // Draws what changed since the last time and lets Qt's focus follow the form's.
  void refresh();
  // Draws every control anew.
  void redraw();
  // The form is closed: the window takes no more notice of it.
  void detach();
  // A line at the foot of the window.
  void setFootnote(const QString& text);
  // A menu beside those of the form, which somebody else owns.
  void addMenu(QMenu& menu) { menu_.add(menu); }

  // The lines that stay until they are closed.
  void setNotices(const std::vector<std::string>& notices);

  // Told when a person came to this window, when a dialog covered it, and when help is wanted.
  std::function<void()> onActivated, onCovered, onHelp, onNoticesClosed;

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QWidget& makeBody();
  void arrange();
  void takeSize();
  void arrangeDropDowns();
  void followFocus();
  void drawControls();
  ControlView* viewOf(const Control* control) const;
  void detachViews();

  Form& form_;
  view::ActionRunner& runner_;
  KeptPlaces& places_;
  // Before the menu: making it sends the window its first events.
  bool detached_ = false;
  NoticeBar* notices_ = nullptr;  // made with the body
  FormMenu menu_;
  FormLayout layout_;
  std::map<unsigned, DropDown*> dropDowns_;  // by the id of their grids
  QLabel* footnote_ = nullptr;
  unsigned drawn_ = 0;
  unsigned arranged_ = 0;
};

}  // namespace quillet::desktop
