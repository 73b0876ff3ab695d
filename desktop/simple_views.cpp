#include "desktop/simple_views.h"

#include <QCheckBox>
#include <QFrame>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcutEvent>
#include <QStylePainter>
#include <QToolTip>
#include <QVBoxLayout>

#include "desktop/announce.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "view/access_keys.h"
#include "view/figure_groups.h"

namespace quillet::desktop {

// --- label --------------------------------------------------------------------------------------

namespace {

// A text that has no room ends with an ellipsis, and the mouse shows all of it.
class CutLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override {
    if (!isCut()) return QLabel::paintEvent(event);
    QStylePainter painter(this);
    const QRect room = contentsRect();
    const QString fitting = fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
    painter.drawItemText(room, static_cast<int>(alignment()) | Qt::TextSingleLine, palette(),
                         isEnabled(), fitting, foregroundRole());
  }
  bool event(QEvent* event) override {
    if (event->type() != QEvent::ToolTip || !isCut()) return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       QStringLiteral("<qt>%1</qt>").arg(text().toHtmlEscaped()), this);
    return true;
  }

 private:
  bool isCut() const { return !text().contains(u'\n') && sizeHint().width() > width(); }
};

}  // namespace

LabelView::LabelView(Label& label, view::ActionRunner& runner, QWidget* parent)
    : ControlView(label, runner), label_(label), text_(new CutLabel(parent)) {
  adopt(text_);
  text_->setTextFormat(Qt::PlainText);
  text_->setMinimumWidth(1);  // a long text is cut rather than widening the window
}

void LabelView::draw() {
  const QString text = toQt(view::groupedWords(label_.caption(), view::grouping()));
  const bool news = text_->text() != text && text_->isVisible();
  text_->setText(text);
  if (news) announce(*text_);
  const auto role = label_.quiet() ? QPalette::PlaceholderText : QPalette::WindowText;
  if (text_->foregroundRole() == role) return;
  text_->setForegroundRole(role);
  text_->setFont(label_.quiet() ? theme::scaled(text_->font(), 0.92) : QFont());
}

// --- button, option, check box ------------------------------------------------------------------

void ClickView::adoptButton(QAbstractButton* button) {
  adopt(button);
  connect(button, &QAbstractButton::clicked, this, [this] { click(); });
}

void ClickView::click() {
  perform([&] { control().form().click(control()); });
  // The widget may have ticked itself; what counts is the model.
  redraw();
}

bool ClickView::otherEvent(QObject* target, QEvent& event) {
  if (event.type() != QEvent::Shortcut) return ControlView::otherEvent(target, event);
  // Two commands with the same access key: the key only goes from one to the other.
  if (static_cast<QShortcutEvent&>(event).isAmbiguous()) {
    perform([&] { control().form().focus(control()); });
  } else {
    click();
  }
  return true;
}

ButtonView::ButtonView(Button& button, view::ActionRunner& runner, QWidget* parent)
    : ClickView(button, runner), button_(button), push_(new QPushButton(parent)) {
  adoptButton(push_);
  push_->setAutoDefault(false);
}

void ButtonView::draw() {
  push_->setText(toQt(button_.caption()));
  // Unchecked first: a button that merely stops being checkable is not drawn anew.
  if (!button_.chosen()) push_->setChecked(false);
  push_->setCheckable(button_.chosen());
  push_->setChecked(button_.chosen());
}

ToggleView::ToggleView(Toggle& toggle, view::ActionRunner& runner, QWidget* parent)
    : ClickView(toggle, runner), toggle_(toggle) {
  if (dynamic_cast<OptionButton*>(&toggle)) {
    box_ = new QRadioButton(parent);
  } else {
    box_ = new QCheckBox(parent);
  }
  adoptButton(box_);
  box_->setAutoExclusive(false);
}

void ToggleView::draw() {
  box_->setText(toQt(toggle_.caption()));
  box_->setChecked(toggle_.checked());
}

// --- frame --------------------------------------------------------------------------------------

FrameView::FrameView(Frame& frame, view::ActionRunner& runner, QWidget* parent)
    : ControlView(frame, runner), frame_(frame) {
  auto* group = new QFrame(parent);
  adopt(group);
  const int step = theme::spacing(*group);
  inside_ = new QVBoxLayout(group);
  inside_->setSpacing(step);
  inside_->setContentsMargins(0, 0, 0, 0);
  if (frame_.caption().empty()) return;
  group->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
  inside_->setContentsMargins(step + step / 2, step, step + step / 2, step + step / 2);
  heading_ = new QLabel(group);
  heading_->setTextFormat(Qt::PlainText);
  QFont font = heading_->font();
  font.setWeight(QFont::DemiBold);
  heading_->setFont(font);
  inside_->addWidget(heading_);
}

void FrameView::draw() {
  if (heading_) heading_->setText(toQt(view::withoutMarks(frame_.caption())));
}

void FrameView::becomePage() {
  page_ = true;
  widget()->show();
}

void FrameView::drawVisible(bool visible) {
  if (!page_) ControlView::drawVisible(visible);
}

}  // namespace quillet::desktop
