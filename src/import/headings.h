// Where the headings of a sheet are, and what they say of each column.
#pragma once

#include <cstddef>
#include <vector>

#include "import/heading_words.h"

namespace quillet {

struct Headings {
  std::size_t row = 0;   // index of the first one
  std::size_t rows = 0;  // 0 when there are none
  int words = 0;         // cells that are known, in the best row
};

Headings findHeadings(const SourceSheet& sheet);

// For each column, what the rows of headings say together: a band's word holds for the columns
// below it.
std::vector<HeadingWords> wordsOfColumns(const SourceSheet& sheet, const Headings& headings);

// The cell, an empty one beyond the row's last.
const SourceCell& cellAt(const SourceRow& row, std::size_t column);
// How many columns the sheet's longest row has.
std::size_t columnsOf(const SourceSheet& sheet);

}  // namespace quillet
