// An amount cell of a source, read digit by digit: what programs and people write for an amount,
// and why a cell is none. Nothing is guessed: what can be read in two ways stays unread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/money.h"
#include "ports/source_book.h"

namespace quillet {

// What stands before the paise in texts. Number cells always have a point.
enum class DecimalMark : std::uint8_t { open, point, comma };

struct Figure {
  enum class State : std::uint8_t { nothing, amount, unread };

  State state = State::nothing;
  char side = 0;  // 'D' or 'C' where the cell says it, else 0
  Money amount;   // with the sign that the cell shows
  std::string problem;

  bool isAmount() const { return state == State::amount; }
  bool isUnread() const { return state == State::unread; }
};

// How the amounts of a sheet are to be read.
struct FigureRules {
  DecimalMark decimals = DecimalMark::open;
  // Parts of a paisa are rounded as on paper; otherwise such a cell stays unread.
  bool rounds = false;
};

Figure readFigure(const SourceCell& cell, FigureRules rules);

// What most texts of a column say about its mark; open when they say nothing.
DecimalMark decimalMarkOf(const std::vector<const SourceCell*>& column);

// Whether a cell of these figures could be an amount, read or not.
bool looksLikeFigure(const SourceCell& cell);

// "DR", "Dr.", "D", "Debit" and the like: 'D' or 'C', else 0.
char sideNamed(std::string_view text);

}  // namespace quillet
