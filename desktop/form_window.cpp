#include "desktop/form_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>
#include <utility>

#include "desktop/drop_down.h"
#include "desktop/grid_view.h"
#include "desktop/kept_places.h"
#include "desktop/notice_bar.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "view/form_controls.h"

namespace quillet::desktop {

FormWindow::FormWindow(Form& form, view::ActionRunner& runner, KeptPlaces& places)
    : form_(form),
      runner_(runner),
      places_(places),
      menu_(form, runner, *menuBar()),
      layout_(runner, makeBody()) {
  setObjectName(toQt(form.name()));
  menuBar()->setFont(font());
  menuBar()->setNativeMenuBar(false);
  refresh();
  takeSize();
  places_.restore(*this, form.name());
}

FormWindow::~FormWindow() = default;

QWidget& FormWindow::makeBody() {
  setFont(theme::scaled(font(), form_.size.font));
  auto* content = new QWidget(this);
  auto* body = new QWidget(content);
  notices_ = new NoticeBar(*content);
  notices_->onClosed = [this] {
    if (onNoticesClosed) onNoticesClosed();
  };
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(body, 1);
  column->addWidget(notices_);
  setCentralWidget(content);
  return *body;
}

void FormWindow::arrange() {
  arranged_ = form_.arrangementVersion();
  layout_.arrange(form_.arrangement());
  for (const auto& [id, view] : layout_.views()) {
    if (auto* grid = dynamic_cast<GridView*>(view)) grid->keepWidthsIn(places_);
  }
  arrangeDropDowns();
}

void FormWindow::arrangeDropDowns() {
  std::map<unsigned, DropDown*> before = std::exchange(dropDowns_, {});
  for (Grid* grid : view::dropDowns(form_)) {
    const auto known = before.extract(grid->id());
    dropDowns_[grid->id()] = known ? known.mapped() : new DropDown(*grid, runner_, this);
  }
  for (const auto& [id, list] : before) {
    list->detach();
    list->hide();
    list->deleteLater();
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
  if (detached_) return;
  if (drawn_ != form_.version()) {
    drawn_ = form_.version();
    setWindowTitle(toQt(form_.caption()));
    menu_.refresh();
    const bool moved = arranged_ != form_.arrangementVersion();
    if (moved) arrange();
    drawControls();
    if (moved) layout_.settle();
  }
  followFocus();
}

void FormWindow::drawControls() {
  const auto present = view::presentIds(form_);
  for (const auto& [id, view] : layout_.views()) {
    // A control that the form has just removed is not asked any more.
    if (present.contains(id)) {
      view->refresh();
    } else {
      view->detach();
      view->widget()->hide();
    }
  }
  layout_.refreshStacks();
  for (const auto& [id, list] : dropDowns_) {
    // One list may serve several text boxes in turn.
    const ControlView* field = viewOf(list->grid().dropOf());
    list->attach(field ? field->widget() : nullptr);
    list->refresh();
  }
}

void FormWindow::redraw() {
  const auto present = view::presentIds(form_);
  for (const auto& [id, view] : layout_.views()) {
    if (present.contains(id)) view->redraw();
  }
}

// Null for a control that has no place, or that the form has removed.
ControlView* FormWindow::viewOf(const Control* control) const {
  if (!view::isPresent(form_, control)) return nullptr;
  const auto found = layout_.views().find(control->id());
  return found == layout_.views().end() ? nullptr : found->second;
}

void FormWindow::followFocus() {
  ControlView* active = viewOf(form_.active());
  if (!active) {
    setFocus(Qt::OtherFocusReason);
  } else if (!active->hasFocus()) {
    active->takeFocus();
  }
}

void FormWindow::detach() {
  detached_ = true;
  detachViews();
}

void FormWindow::detachViews() {
  for (const auto& [id, view] : layout_.views()) view->detach();
  for (const auto& [id, list] : dropDowns_) list->detach();
}

void FormWindow::setNotices(const std::vector<std::string>& notices) { notices_->show(notices); }

void FormWindow::setFootnote(const QString& text) {
  if (!footnote_) {
    footnote_ = new QLabel(this);
    footnote_->setTextFormat(Qt::PlainText);
    footnote_->setForegroundRole(QPalette::PlaceholderText);
    const int step = theme::spacing(*this);
    statusBar()->setContentsMargins(2 * step - 4, 0, 2 * step, step / 2);
    statusBar()->addWidget(footnote_, 1);
    statusBar()->setSizeGripEnabled(false);
  }
  footnote_->setText(text);
}

bool FormWindow::event(QEvent* event) {
  if (detached_) return QMainWindow::event(event);
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
      for (const Key each : typed) runner_.perform([&] { form_.press(each); });
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
  if (detached_) return;
  event->ignore();  // the form decides, and its window goes with it
  runner_.perform([&] { form_.close(); });
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (!detached_) runner_.perform([&] { form_.resized(); });
}

}  // namespace quillet::desktop
