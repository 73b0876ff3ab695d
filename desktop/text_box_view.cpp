#include "desktop/text_box_view.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>

#include "desktop/text.h"
#include "desktop/theme.h"
#include "view/box_typing.h"
#include "view/cell_look.h"
#include "view/typed_text.h"

namespace quillet::desktop {
namespace {

constexpr int caretRoom = 2;  // beside the text, by the line edit itself

}  // namespace

TextBoxView::TextBoxView(TextBox& box, view::ActionRunner& runner, QWidget* parent)
    : ControlView(box, runner), box_(box), line_(new QLineEdit(parent)) {
  adopt(line_);
  const int margin = theme::spacing(*line_) / 4;
  line_->setTextMargins(margin, 0, margin, 0);
  line_->setAcceptDrops(false);  // the key handlers would not see dropped text
  line_->setAttribute(Qt::WA_InputMethodEnabled);
  drawAlignment();
  connect(line_, &QLineEdit::textEdited, this, [this] { handOver(); });
  connect(line_, &QLineEdit::selectionChanged, this, [this] { followSelection(); });
  connect(line_, &QLineEdit::cursorPositionChanged, this, [this] { followSelection(); });
}

void TextBoxView::draw() {
  drawAlignment();
  const QString text = shownText();
  if (line_->text() != text) line_->setText(text);
  line_->setReadOnly(box_.locked());
  const auto echo = box_.secret() ? QLineEdit::Password : QLineEdit::Normal;
  if (line_->echoMode() != echo) line_->setEchoMode(echo);
  const int start = unitsOf(text, box_.selStart());
  const int length = unitsOf(text, box_.selStart() + box_.selLength()) - start;
  if (length == 0) {
    if (line_->hasSelectedText()) line_->deselect();
    line_->setCursorPosition(start);
  } else if (line_->selectionStart() != start || line_->selectionLength() != length) {
    line_->setSelection(start, length);
  }
}

// Figures that are only read.
QString TextBoxView::shownText() {
  const bool inFocus = line_->hasFocus();
  const QString text = toQt(view::shownText(box_, inFocus));
  if (!box_.locked() || !box_.rightAligned() || inFocus) return text;
  const QMargins margins = line_->textMargins();
  const int room = line_->contentsRect().width() - margins.left() - margins.right() - 2 * caretRoom;
  const QString fitting = figuresIn(room, text, line_->fontMetrics());
  if (box_.toolTip().empty()) line_->setToolTip(fitting == text ? QString() : text);
  return fitting;
}

// Amounts stand under each other, so their figures are of one width.
void TextBoxView::drawAlignment() {
  const Qt::Alignment wanted =
      Qt::AlignVCenter | (box_.rightAligned() ? Qt::AlignRight : Qt::AlignLeft);
  if (line_->alignment() == wanted) return;
  line_->setAlignment(wanted);
  line_->setFont(box_.rightAligned() ? theme::figures(line_->font()) : QFont());
}

// --- keys ---------------------------------------------------------------------------------------

bool TextBoxView::keyPressed(QKeyEvent& event) {
  if (event.matches(QKeySequence::Paste)) {
    typeText(QGuiApplication::clipboard()->text());
    return true;
  }
  const std::vector<Key> typed = keysOf(event);
  typeEach(typed);
  return !typed.empty();
}

void TextBoxView::typeText(const QString& text) {
  if (box_.locked() || takesCells(fromQt(text))) return;
  typeEach(view::pastedKeys(fromQt(text), box_.maxLength()));
}

void TextBoxView::typeEach(const std::vector<Key>& typed) {
  typeAll(typed,
          [this](Key key) { return view::typeInto(box_, key, [this](Key left) { edit(left); }); });
}

void TextBoxView::edit(Key key) {
  refresh();  // what the handlers changed comes before what the key does
  if (key == keys::Backspace) {
    line_->backspace();
  } else if (key == keys::Delete) {
    line_->del();
  } else {
    line_->insert(QString::fromUcs4(&key, 1));
  }
}

void TextBoxView::handOver() {
  if (drawing()) return;
  const QString text = line_->text();
  perform([&] { box_.edited(fromQt(text), charactersOf(text, line_->cursorPosition())); });
}

void TextBoxView::followSelection() {
  const QString text = line_->text();
  if (drawing() || !line_->hasFocus() || text != toQt(box_.text())) return;
  const bool some = line_->hasSelectedText();
  const int start = some ? line_->selectionStart() : line_->cursorPosition();
  const int length = some ? line_->selectionLength() : 0;
  view::selectUnits(box_, unitsIn(text), static_cast<std::size_t>(start),
                    static_cast<std::size_t>(start + length));
}

// --- mouse, input methods, clipboard menu -------------------------------------------------------

bool TextBoxView::mousePressed(QObject*, QMouseEvent&, bool arrived) {
  // A box that selects its text when it gets the focus keeps it selected under the click.
  return arrived && box_.selLength() > 0;
}

bool TextBoxView::otherEvent(QObject* target, QEvent& event) {
  switch (event.type()) {
    case QEvent::InputMethod:
      return compose(static_cast<QInputMethodEvent&>(event));
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::Resize:
      if (box_.locked()) redraw();
      return ControlView::otherEvent(target, event);
    case QEvent::ContextMenu:
      showMenu(static_cast<QContextMenuEvent&>(event));
      return true;
    case QEvent::MouseButtonRelease: {
      const auto& mouse = static_cast<QMouseEvent&>(event);
      QClipboard* clipboard = QGuiApplication::clipboard();
      if (mouse.button() != Qt::MiddleButton || !clipboard->supportsSelection()) return false;
      line_->setCursorPosition(line_->cursorPositionAt(mouse.position().toPoint()));
      typeText(clipboard->text(QClipboard::Selection));
      return true;
    }
    default:
      return ControlView::otherEvent(target, event);
  }
}

bool TextBoxView::compose(QInputMethodEvent& event) {
  const QString& typed = event.commitString();
  if (typed.isEmpty()) return false;
  QInputMethodEvent rest(event.preeditString(), event.attributes());
  if (event.replacementLength() > 0) {
    rest.setCommitString({}, event.replacementStart(), event.replacementLength());
  }
  QCoreApplication::sendEvent(line_, &rest);
  typeEach(view::typedKeys(fromQt(typed)));
  return true;
}

void TextBoxView::showMenu(const QContextMenuEvent& event) {
  QMenu menu(line_);
  const bool some = line_->hasSelectedText();
  const bool writable = !box_.locked();
  const auto add = [&](const QString& caption, QKeySequence::StandardKey key, bool usable,
                       const std::function<void()>& run) {
    QAction* action = menu.addAction(caption, this, run);
    action->setShortcut(key);
    action->setEnabled(usable);
  };
  add("&Undo", QKeySequence::Undo, writable && line_->isUndoAvailable(), [&] { line_->undo(); });
  add("&Redo", QKeySequence::Redo, writable && line_->isRedoAvailable(), [&] { line_->redo(); });
  menu.addSeparator();
  add("Cu&t", QKeySequence::Cut, writable && some, [&] { line_->cut(); });
  add("&Copy", QKeySequence::Copy, some, [&] { line_->copy(); });
  add("&Paste", QKeySequence::Paste, writable,
      [&] { typeText(QGuiApplication::clipboard()->text()); });
  menu.addSeparator();
  add("Select &all", QKeySequence::SelectAll, !line_->text().isEmpty(),
      [&] { line_->selectAll(); });
  menu.exec(event.globalPos());
}

}  // namespace quillet::desktop
