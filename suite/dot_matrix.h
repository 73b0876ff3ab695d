// A report as a dot-matrix printer takes it: plain characters with codes of the ESC/P command set,
// page by page of continuous paper.
#pragma once

#include <cstddef>
#include <string>

#include "suite/document.h"

namespace quillet::suite {

// In characters; the wide one is printed condensed.
enum PaperWidth : std::size_t { columns80 = 80, columns132 = 132 };

// Texts are shortened where the columns do not fit; amounts stay whole. A character that such a
// printer does not have becomes '?', the rupee sign "Rs".
std::string dotMatrixOf(const Document& document, PaperWidth width);

}  // namespace quillet::suite
