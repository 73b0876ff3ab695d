#include "desktop/busy_panel.h"

#include <QApplication>
#include <QEvent>
#include <QFrame>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/theme.h"

namespace quillet::desktop {
namespace {

constexpr int patienceMs = 150;  // work shorter than this shows nothing
constexpr int frameMs = 40;      // the panel is painted no more often

bool isInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::Wheel:
    case QEvent::InputMethod:
    case QEvent::TouchBegin:
    case QEvent::Close:
      return true;
    default:
      return false;
  }
}

}  // namespace

BusyPanel::~BusyPanel() { end(); }

void BusyPanel::begin(QWidget* over) {
  if (busy_) return;
  busy_ = true;
  over_ = over;
  text_.clear();
  done_ = total_ = 0;
  stoppable_ = stopped_ = waiting_ = false;
  since_.start();
  painted_.invalidate();
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void BusyPanel::end() {
  if (!busy_) return;
  busy_ = false;
  delete panel_;
  QGuiApplication::restoreOverrideCursor();
}

bool BusyPanel::visible() const { return panel_ && panel_->isVisible(); }

void BusyPanel::setText(const QString& text) {
  text_ = text;
  step();
}

void BusyPanel::setBar(long done, long total) {
  done_ = done;
  total_ = total;
  waiting_ = false;
  step();
}

void BusyPanel::wait() {
  waiting_ = true;
  if (busy_) draw();
}

void BusyPanel::hold(QWidget* over, const QString& text) {
  if (!busy_ && over == nullptr) return;
  if (!busy_) {
    begin(over);
    held_ = true;
  }
  const bool waitedFor = std::exchange(waiting_, true);
  arrange(text);
  waiting_ = waitedFor;
  panel_->repaint();
}

void BusyPanel::goOn() {
  if (std::exchange(held_, false)) end();
}

bool BusyPanel::stopped() {
  stoppable_ = true;
  return stopped_;
}

void BusyPanel::step() {
  if (!busy_ || since_.elapsed() < patienceMs) return;
  if (painted_.isValid() && painted_.elapsed() < frameMs && done_ < total_) return;
  draw();
}

void BusyPanel::draw() {
  const QString text = text_.isEmpty() ? tr("Please wait ...") : text_;
  arrange(stoppable_ ? tr("%1  Esc stops").arg(text) : text);
  shield(true);
  QCoreApplication::processEvents();
  shield(false);
  painted_.start();
}

void BusyPanel::arrange(const QString& text) {
  if (!panel_) build();
  setProgress();
  place(text);
  panel_->show();
  panel_->raise();
}

// The bar counts in thousandths: rows may be more than it can count. While nobody knows how long it
// takes, it fills every two seconds.
void BusyPanel::setProgress() {
  constexpr int full = 1000;
  const double part = static_cast<double>(done_) / static_cast<double>(std::max(total_, 1L));
  bar_->setVisible(waiting_ || total_ > 0);
  bar_->setRange(0, full);
  bar_->setValue(waiting_ ? static_cast<int>(since_.elapsed() / 2 % full)
                          : static_cast<int>(full * part));
}

void BusyPanel::build() {
  panel_ = new QFrame(over_, over_ ? Qt::Widget : Qt::SplashScreen);
  panel_->setObjectName(QStringLiteral("busy"));
  panel_->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
  panel_->setAutoFillBackground(true);
  if (over_) panel_->setFont(over_->font());
  const int step = theme::spacing(*panel_);
  auto* inside = new QVBoxLayout(panel_);
  inside->setContentsMargins(3 * step, 2 * step, 3 * step, 3 * step);
  inside->setSpacing(step);
  label_ = new QLabel(panel_);
  label_->setTextFormat(Qt::PlainText);
  bar_ = new QProgressBar(panel_);
  bar_->setTextVisible(false);
  bar_->setFixedHeight(step);
  inside->addWidget(label_);
  inside->addWidget(bar_);
}

// A text that is wider than the window loses its middle: the name of a file ends with what tells
// it.
void BusyPanel::place(const QString& text) {
  const QRect room = over_ ? over_->rect() : QGuiApplication::primaryScreen()->availableGeometry();
  const QMargins margins = panel_->layout()->contentsMargins();
  const int beside = margins.left() + margins.right() + 2 * panel_->frameWidth();
  label_->setText(
      label_->fontMetrics().elidedText(text, Qt::ElideMiddle, room.width() - 2 * beside));
  // As wide from the first text to the last, so that it does not jump.
  const int width = theme::characters(*panel_, 44);
  panel_->resize(std::max(width, label_->sizeHint().width() + beside), panel_->sizeHint().height());
  panel_->move(room.center() - panel_->rect().center());
}

void BusyPanel::shield(bool on) {
  if (on == shielded_) return;
  shielded_ = on;
  if (on) {
    qApp->installEventFilter(this);
  } else {
    qApp->removeEventFilter(this);
  }
}

bool BusyPanel::eventFilter(QObject*, QEvent* event) {
  if (!isInput(event->type())) return false;
  if (stoppable_ && event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    stopped_ = true;
  }
  event->ignore();
  return true;
}

BusyPanel::Pause::Pause(BusyPanel& panel) : panel_(panel), wasBusy_(panel.busy_) {
  if (!wasBusy_) return;
  if (panel_.panel_) panel_.panel_->hide();
  QGuiApplication::restoreOverrideCursor();
}

BusyPanel::Pause::~Pause() {
  if (!wasBusy_) return;
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  panel_.since_.restart();
  panel_.painted_.invalidate();
}

}  // namespace quillet::desktop
