// A report as plain text, for saving as .txt: columns padded with blanks, rules drawn with dashes.
#pragma once

#include <string>

#include "suite/document.h"

namespace quillet::suite {

std::string textOf(const Document& document);

// The tables alone as a spreadsheet takes them from the clipboard: cells parted by tabs.
std::string tabbedTextOf(const Document& document);

}  // namespace quillet::suite
