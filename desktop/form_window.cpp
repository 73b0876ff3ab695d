#include "desktop/form_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <unordered_set>

#include "controls/grid.h"
#include "desktop/drop_down.h"
#include "desktop/text.h"
#include "desktop/theme.h"

namespace quillet::desktop {

FormWindow::FormWindow(Form& form, Stage& stage)
    : form_(form), stage_(stage), menu_(form, stage, *menuBar()) {
  setObjectName(toQt(form.name()));
  setFont(theme::scaled(font(), form.size.font));
  menuBar()->setFont(font());
  menuBar()->setNativeMenuBar(false);
  refresh();
  takeSize();
}

FormWindow::~FormWindow() = default;

// Builds the widgets anew: when the window is made, and when the form's arrangement changed.
void FormWindow::arrange() {
  arranged_ = form_.arrangementVersion();
  retireViews();
  for (DropDown* list : dropDowns_) list->deleteLater();
  dropDowns_.clear();
  views_.clear();
  auto* body = new QWidget(this);
  layout_ = std::make_unique<FormLayout>(stage_, body);
  layout_->build(form_.arrangement());
  for (ControlView* view : layout_->views()) views_[&view->control()] = view;
  addDropDowns();
  setCentralWidget(body);
}

void FormWindow::addDropDowns() {
  for (Control* control : form_.controls()) {
    auto* grid = dynamic_cast<Grid*>(control);
    if (grid && grid->dropOf) dropDowns_.push_back(new DropDown(*grid, stage_, this));
  }
}

void FormWindow::takeSize() {
  const QRect room = screen()->availableGeometry();
  const QSize wanted(qRound(room.width() * form_.size.width),
                     qRound(room.height() * form_.size.height));
  // Room for the title bar and the borders that the window manager adds.
  const QSize most(room.width(), room.height() - 40);
  resize(wanted.expandedTo(minimumSizeHint()).boundedTo(most));
  move(room.center() - rect().center() - QPoint(0, 12));
}

void FormWindow::refresh() {
  if (retired_) return;
  if (drawn_ != form_.version()) {
    drawn_ = form_.version();
    setWindowTitle(toQt(form_.caption()));
    menu_.refresh();
    if (arranged_ != form_.arrangementVersion()) arrange();
    drawControls();
  }
  followFocus();
}

void FormWindow::drawControls() {
  const std::unordered_set<const Control*> present(form_.controls().begin(),
                                                   form_.controls().end());
  for (const auto& [control, view] : views_) {
    // A control that the form has just removed is not asked any more.
    if (present.contains(control)) {
      view->refresh();
    } else {
      view->retire();
      view->widget()->hide();
    }
  }
  layout_->refreshStacks();
  for (DropDown* list : dropDowns_) {
    // One list may serve several text boxes in turn.
    const auto field = views_.find(list->grid().dropOf);
    list->attach(field == views_.end() ? nullptr : field->second->widget());
    list->refresh();
  }
}

void FormWindow::followFocus() {
  const auto active = views_.find(form_.active());
  if (active == views_.end()) {
    setFocus(Qt::OtherFocusReason);
  } else if (!active->second->hasFocus()) {
    active->second->takeFocus();
  }
}

void FormWindow::retire() {
  retired_ = true;
  retireViews();
}

void FormWindow::retireViews() {
  for (const auto& [control, view] : views_) view->retire();
  for (DropDown* list : dropDowns_) list->retire();
}

void FormWindow::setFootnote(const QString& text) {
  if (!footnote_) {
    footnote_ = new QLabel(this);
    footnote_->setTextFormat(Qt::PlainText);
    footnote_->setForegroundRole(QPalette::PlaceholderText);
    const int step = theme::step(*this);
    statusBar()->setContentsMargins(2 * step - 4, 0, 2 * step, step / 2);
    statusBar()->addWidget(footnote_, 1);
    statusBar()->setSizeGripEnabled(false);
  }
  footnote_->setText(text);
}

bool FormWindow::event(QEvent* event) {
  if (retired_) return QMainWindow::event(event);
  switch (event->type()) {
    case QEvent::KeyPress: {
      // No control has the focus, or the one that has it made no use of the key: the form still
      // sees every key.
      const auto& key = static_cast<QKeyEvent&>(*event);
      if (key.key() == Qt::Key_F1 && onHelp) {
        onHelp();
        return true;
      }
      const std::vector<Key> typed = keysOf(key);
      for (const Key each : typed) stage_.perform([&] { form_.press(each); });
      if (!typed.empty()) return true;
      break;
    }
    case QEvent::WindowActivate:
      if (onActivated) onActivated();
      break;
    case QEvent::WindowBlocked:
      if (onCovered) onCovered();
      break;
    default:
      break;
  }
  return QMainWindow::event(event);
}

void FormWindow::closeEvent(QCloseEvent* event) {
  if (retired_) return;
  event->ignore();  // the form decides, and its window goes with it
  stage_.perform([&] { form_.close(); });
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (!retired_) stage_.perform([&] { form_.resized(); });
}

}  // namespace quillet::desktop
