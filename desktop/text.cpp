#include "desktop/text.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <utility>

#include "view/figure_groups.h"
#include "view/typed_text.h"
#include "view/utf16_positions.h"

namespace quillet::desktop {
namespace {

constexpr std::array<std::pair<int, Key>, 16> namedKeys{{
    {Qt::Key_Return, keys::Enter},
    {Qt::Key_Enter, keys::Enter},
    {Qt::Key_Tab, keys::Tab},
    {Qt::Key_Backtab, keys::BackTab},
    {Qt::Key_Escape, keys::Escape},
    {Qt::Key_Backspace, keys::Backspace},
    {Qt::Key_Delete, keys::Delete},
    {Qt::Key_Up, keys::Up},
    {Qt::Key_Down, keys::Down},
    {Qt::Key_Left, keys::Left},
    {Qt::Key_Right, keys::Right},
    {Qt::Key_Home, keys::Home},
    {Qt::Key_End, keys::End},
    {Qt::Key_PageUp, keys::PageUp},
    {Qt::Key_PageDown, keys::PageDown},
    {Qt::Key_Space, keys::Space},
}};

}  // namespace

QString toQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string fromQt(const QString& text) { return text.toStdString(); }

std::u16string_view unitsIn(const QString& text) {
  return {QStringView(text).utf16(), static_cast<std::size_t>(text.size())};
}

int unitsOf(const QString& text, std::size_t characters) {
  return static_cast<int>(view::unitsOf(unitsIn(text), characters));
}

std::size_t charactersOf(const QString& text, qsizetype units) {
  return view::charactersOf(unitsIn(text), static_cast<std::size_t>(units));
}

QString figuresIn(int room, const QString& text, const QFontMetrics& font) {
  const auto widthOf = [&](const std::string& of) { return font.horizontalAdvance(toQt(of)); };
  return toQt(view::figuresIn(room, fromQt(text), widthOf));
}

Key namedKey(int code) {
  const auto found = std::find_if(namedKeys.begin(), namedKeys.end(),
                                  [&](const auto& entry) { return entry.first == code; });
  return found == namedKeys.end() ? keys::none : found->second;
}

std::vector<Key> keysOf(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
  // Ctrl and Alt together are AltGr on keyboards that type with it.
  const bool altGr = held & Qt::ControlModifier && held & Qt::AltModifier;
  const bool command =
      (held & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) && !altGr;
  if (held == Qt::ControlModifier && event.key() == Qt::Key_F) return {keys::Find};
  if (event.key() == Qt::Key_F3 && held == Qt::NoModifier) return {keys::FindNext};
  if (event.key() == Qt::Key_F3 && held == Qt::ShiftModifier) return {keys::FindPrevious};
  if (command) return {};
  if (const Key named = namedKey(event.key()); named != keys::none && !altGr) {
    if ((held & Qt::ShiftModifier) && view::selectsWithShift(named)) return {};
    return {named};
  }
  return view::typedKeys(fromQt(event.text()));
}

}  // namespace quillet::desktop
