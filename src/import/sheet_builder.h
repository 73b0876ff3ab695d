// Places the cells of a source in its sheets and keeps within what an import can hold in memory,
// whatever a file claims.
#pragma once

#include <cstddef>
#include <string_view>

#include "ports/source_book.h"

namespace quillet {

// Far above every trial balance.
inline constexpr std::size_t mostSourceBytes = std::size_t{64} << 20;
inline constexpr int mostSourceRows = 1'048'576;
inline constexpr int mostSourceColumns = 100;

// What all sheets of one book together may take. Throws SourceError when it is used up.
class SourceBudget {
 public:
  void take(std::size_t cells, std::size_t bytes);

 private:
  std::size_t cells_ = 0;
  std::size_t bytes_ = 0;
};

class SheetBuilder {
 public:
  SheetBuilder(SourceSheet& sheet, SourceBudget& budget) : sheet_(sheet), budget_(budget) {}

  // Rows and columns count from 0. A cell without anything to see takes no place.
  void place(int row, int column, SourceCell cell);
  // The placed cell; null where there is none.
  SourceCell* at(int row, int column);
  // Says what is wrong with a sheet that has too much of something; its rows are gone then.
  void finish();

 private:
  SourceRow& rowAt(int row);

  SourceSheet& sheet_;
  SourceBudget& budget_;
  int columns_ = 0;  // of all cells, those that found no place included
};

bool isBlank(std::string_view text);

// A book none of whose sheets can be used is an error, for the reason of the first.
void requireReadable(const SourceBook& book);

}  // namespace quillet
