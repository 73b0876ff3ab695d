// Which sheet of a book is a trial balance, where its headings are, and what its columns hold.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "import/mapping.h"

namespace quillet {

struct FoundColumns {
  Mapping mapping;
  // What a person should look at, such as another sheet that looks like one too.
  std::vector<std::string> doubts;
};

// The best sheet of the book; `recalled` answers the stored text of the client's mapping for a
// fingerprint, "" when there is none. A book without cells gives an empty mapping.
FoundColumns findColumns(
    const SourceBook& book,
    const std::function<std::string(const std::string& fingerprint)>& recalled);
// The same for one sheet that a person chose.
FoundColumns findColumns(
    const SourceSheet& sheet,
    const std::function<std::string(const std::string& fingerprint)>& recalled);
// Under which a mapping is remembered: the same text for sheets with the same headings, or without
// any and with as many columns.
std::string headingFingerprint(const SourceSheet& sheet);
// The roles below headings that a person chose; 0 rows for a sheet without headings.
FoundColumns columnsBelow(const SourceSheet& sheet, std::size_t headingRow,
                          std::size_t headingRows);

}  // namespace quillet
