#include "desktop/mask_box_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

#include "desktop/text.h"
#include "desktop/theme.h"
#include "view/mask_text.h"
#include "view/typed_text.h"

namespace quillet::desktop {

MaskBoxView::MaskBoxView(MaskBox& box, view::ActionRunner& runner, QWidget* parent)
    : ControlView(box, runner), box_(box), line_(new QLineEdit(parent)) {
  adopt(line_);
  const int margin = theme::spacing(*line_) / 4;
  line_->setTextMargins(margin, 0, margin, 0);
  line_->setAcceptDrops(false);
  line_->setContextMenuPolicy(Qt::NoContextMenu);
  line_->setFont(theme::figures(line_->font()));
}

void MaskBoxView::draw() {
  const QString text = toQt(view::shownText(box_));
  if (line_->text() != text) line_->setText(text);
  line_->deselect();
  line_->setCursorPosition(static_cast<int>(box_.caret()));
}

bool MaskBoxView::keyPressed(QKeyEvent& event) {
  if (event.matches(QKeySequence::Paste)) {
    typeText(QGuiApplication::clipboard()->text());
    return true;
  }
  if (event.matches(QKeySequence::Copy)) {
    QGuiApplication::clipboard()->setText(line_->text());
    return true;
  }
  if (ControlView::keyPressed(event)) return true;
  // Commands of the menu go on; whatever Qt would edit by itself does not.
  return !(event.modifiers() & Qt::AltModifier) && !event.text().isEmpty();
}

void MaskBoxView::typeText(const QString& text) {
  typeAll(view::pastedKeys(fromQt(text)), [this](Key key) {
    pressAll({key});
    return true;
  });
}

bool MaskBoxView::otherEvent(QObject* target, QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonRelease: {
      const auto& mouse = static_cast<QMouseEvent&>(event);
      if (mouse.button() == Qt::LeftButton) {
        const int place = line_->cursorPositionAt(mouse.position().toPoint());
        perform([&] { box_.setCaret(static_cast<std::size_t>(place)); });
        refresh();
      }
      return true;  // a middle click would paste past the model
    }
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
      return true;
    case QEvent::InputMethod:
      typeText(static_cast<QInputMethodEvent&>(event).commitString());
      return true;
    default:
      return ControlView::otherEvent(target, event);
  }
}

}  // namespace quillet::desktop
