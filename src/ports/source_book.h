// What a file or a pasted range holds before anybody knows what it means: sheets of rows of cells,
// as their program stored them. Nothing in it was reckoned or run by us.
#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillet {

struct SourceCell {
  enum class Kind : std::uint8_t { empty, text, number, date, truth, error };

  Kind kind = Kind::empty;
  bool bold = false;
  // Shown with the side "Dr" or "Cr" that stands in the number's format alone: 'D', 'C', else 0.
  // The number's sign is then the one that is shown: -500 shown as "500.00 Cr" is "500" and 'C'.
  char side = 0;
  int indent = 0;  // steps of the cell's format; blanks before a text stay in the text
  // Those it covers when it is merged with its neighbours to the right and below.
  int columns = 1;
  int rows = 1;
  // In UTF-8. A number as decimal digits with a point ("1234.5", never 1.2345E+03), whatever its
  // format shows; a date as "2026-03-31"; an error as it is shown ("#REF!"), a formula without a
  // stored value as "(not calculated)"; "TRUE" or "FALSE". A time of day is a text.
  std::string text;
};

struct SourceRow {
  int number = 0;  // as its program counts rows, from 1
  bool hidden = false;
  std::vector<SourceCell> cells;  // up to the last one that is not empty
};

struct SourceSheet {
  std::string name;
  bool hidden = false;
  std::vector<int> hiddenColumns;  // from 0, ascending
  std::vector<SourceRow> rows;     // blank ones between others included
  // Why there are no rows although the sheet has some, as "has 200 columns, ..."; else empty.
  std::string refusal;
};

struct SourceBook {
  std::vector<SourceSheet> sheets;
  std::string fingerprint;  // of the bytes: the same text for the same file
  // Of a text file: how it was read, as SourceOptions names it. Empty for a workbook.
  std::string encoding;
  char delimiter = 0;
};

// How a person wants a text file to be read; what is empty or 0 is found out from the file.
struct SourceOptions {
  std::string encoding;  // "UTF-8", "UTF-16LE", "UTF-16BE", "windows-1252"
  char delimiter = 0;    // ',', ';', '\t', '|'
};

// The file cannot be read: what() says why and what to do, for a person.
struct SourceError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Told how far a reading is, from 0 to 100; false ends it, and the book is then without sheets.
using GoesOn = std::function<bool(int percent)>;

// Reads what the host can read.
class SourceReader {
 public:
  virtual ~SourceReader() = default;
  virtual SourceBook file(const std::string& path, const SourceOptions& options,
                          const GoesOn& goesOn) = 0;
};

}  // namespace quillet
