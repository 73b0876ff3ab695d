#include "desktop/choice_view.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QListWidget>
#include <algorithm>

#include "desktop/text.h"

namespace quillet::desktop {
namespace {

// Items change far less often than the choice: they are filled in again only when they differ.
template <class Shown>
bool sameItems(const Choice& model, int count, const Shown& shown) {
  const auto& items = model.items();
  int at = 0;
  return count == model.size() && std::all_of(items.begin(), items.end(), [&](const auto& item) {
           return shown(at++) == toQt(item);
         });
}

// As wide as the form says, however long its items are.
class FormCombo : public QComboBox {
 public:
  explicit FormCombo(QWidget* parent) : QComboBox(parent) { setMinimumContentsLength(8); }
  QSize sizeHint() const override { return minimumSizeHint(); }
};

}  // namespace

ComboView::ComboView(ComboBox& combo, view::ActionRunner& runner, QWidget* parent)
    : ControlView(combo, runner), model_(combo), combo_(new FormCombo(parent)) {
  adopt(combo_);
  combo_->setMaxVisibleItems(12);
  connect(combo_, &QComboBox::activated, this,
          [this](int at) { perform([&] { model_.choose(at + 1); }); });
}

void ComboView::draw() {
  if (!sameItems(model_, combo_->count(), [&](int at) { return combo_->itemText(at); })) {
    combo_->clear();
    for (const std::string& item : model_.items()) combo_->addItem(toQt(item));
  }
  combo_->setCurrentIndex(model_.chosen() - 1);
}

bool ComboView::keyPressed(QKeyEvent& event) {
  const bool altDown = event.key() == Qt::Key_Down && event.modifiers() & Qt::AltModifier;
  if (altDown || event.key() == Qt::Key_F4) {
    combo_->showPopup();
    return true;
  }
  return ControlView::keyPressed(event);
}

bool ComboView::otherEvent(QObject* target, QEvent& event) {
  // A turn of the wheel over the box while scrolling past it would change it unseen.
  if (event.type() == QEvent::Wheel) return true;
  return ControlView::otherEvent(target, event);
}

ListView::ListView(ListBox& list, view::ActionRunner& runner, QWidget* parent)
    : ControlView(list, runner), model_(list), list_(new QListWidget(parent)) {
  adopt(list_);
  watch(list_->viewport());
  list_->setUniformItemSizes(true);
  connect(list_, &QListWidget::currentRowChanged, this, [this](int at) {
    if (!drawing() && at >= 0) perform([&] { model_.choose(at + 1); });
  });
  connect(list_, &QListWidget::itemDoubleClicked, this,
          [this] { perform([&] { model_.form().doubleClick(model_); }); });
}

void ListView::draw() {
  if (!sameItems(model_, list_->count(), [&](int at) { return list_->item(at)->text(); })) {
    list_->clear();
    for (const std::string& item : model_.items()) list_->addItem(toQt(item));
  }
  list_->setCurrentRow(model_.chosen() - 1);
}

}  // namespace quillet::desktop
