// Combo boxes and lists: items and the chosen one come from the model; a choice goes to it.
#pragma once

#include "controls/choice.h"
#include "desktop/control_view.h"

class QComboBox;
class QListWidget;

namespace quillet::desktop {

class ComboView : public ControlView {
 public:
  ComboView(ComboBox& combo, view::ActionRunner& runner, QWidget* parent);

 protected:
  void draw() override;
  bool keyPressed(QKeyEvent& event) override;
  bool otherEvent(QObject* target, QEvent& event) override;

 private:
  ComboBox& model_;
  QComboBox* combo_;
};

class ListView : public ControlView {
 public:
  ListView(ListBox& list, view::ActionRunner& runner, QWidget* parent);

 protected:
  void draw() override;

 private:
  ListBox& model_;
  QListWidget* list_;
};

}  // namespace quillet::desktop
