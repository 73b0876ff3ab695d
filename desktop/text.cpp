#include "desktop/text.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <utility>

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

Key namedKey(int code) {
  const auto found = std::find_if(namedKeys.begin(), namedKeys.end(),
                                  [&](const auto& entry) { return entry.first == code; });
  return found == namedKeys.end() ? keys::none : found->second;
}

}  // namespace

QString toQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string fromQt(const QString& text) { return text.toStdString(); }

int unitsOf(const QString& text, std::size_t characters) {
  int units = 0;
  for (; characters > 0 && units < text.size(); --characters) {
    const bool pair = text[units].isHighSurrogate() && units + 1 < text.size() &&
                      text[units + 1].isLowSurrogate();
    units += pair ? 2 : 1;
  }
  return units;
}

std::size_t charactersOf(const QString& text, qsizetype units) {
  std::size_t characters = 0;
  for (int at = 0; at < units && at < text.size(); ++characters) {
    at += unitsOf(text.mid(at, 2), 1);
  }
  return characters;
}

std::vector<Key> keysOf(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
  // Ctrl and Alt together are AltGr on keyboards that type with it.
  const bool altGr = held & Qt::ControlModifier && held & Qt::AltModifier;
  const bool command =
      (held & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) && !altGr;
  if (command) return {};
  if (const Key named = namedKey(event.key()); named != keys::none && !altGr) {
    // With Shift the keys that move the caret select, which is Qt's own; Enter, Tab, Backspace and
    // Space are typed by hasty fingers with Shift still down.
    if ((held & Qt::ShiftModifier) && named >= keys::firstNamed && named != keys::BackTab)
      return {};
    return {named};
  }
  return keysOf(event.text());
}

std::vector<Key> keysOf(const QString& text) {
  std::vector<Key> typed;
  for (char32_t character : text.toUcs4()) {
    if (character == U'\n' || character == U'\t' || character == 0x2028) character = U' ';
    if (keys::typesText(character)) typed.push_back(character);
  }
  return typed;
}

}  // namespace quillet::desktop
