// Between the model's texts (UTF-8, positions count characters) and Qt's (UTF-16, positions count
// code units): a character outside the basic plane, such as an emoji, is two code units.
#pragma once

#include <QString>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "controls/key.h"

class QFontMetrics;
class QKeyEvent;

namespace quillet::desktop {

QString toQt(std::string_view text);
std::string fromQt(const QString& text);

// As long as the text lives.
std::u16string_view unitsIn(const QString& text);
// The code units that the first `characters` of the text take.
int unitsOf(const QString& text, std::size_t characters);
// The characters that the first `units` code units of the text hold.
std::size_t charactersOf(const QString& text, qsizetype units);

// view::figuresIn by the widths of a font.
QString figuresIn(int room, const QString& text, const QFontMetrics& font);

// The key that a code of Qt's names, keys::none for any other.
Key namedKey(int code);
// What a key event says to a form: one key as a rule, several when an input method sends a whole
// word, none for shortcuts and for keys that are Qt's own (selecting, copying, function keys).
std::vector<Key> keysOf(const QKeyEvent& event);
}  // namespace quillet::desktop
