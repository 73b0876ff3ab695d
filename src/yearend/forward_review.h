// What a person decides before a year is brought forward, and what follows from it: the opening of
// the new year, what it changes there, and what stands in the way. Every choice has the whole
// reckoned anew.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "books/forward_entry.h"
#include "import/sums.h"

namespace quillet {

class ForwardReview {
 public:
  void open(ForwardBooks books);
  // What the books hold by now; choices and ticks stay.
  void setBooks(ForwardBooks books);
  void forget();
  bool isOpen() const { return open_; }
  // A person chose anything.
  bool touched() const { return touched_; }

  const ForwardBooks& books() const { return books_; }
  const OpeningChoices& choices() const { return choices_; }
  const Opening& opening() const { return opening_; }
  using Row = ForwardEntry::Taken;
  const std::vector<Row>& rows() const { return rows_; }
  // Nothing stands in the new year, or it is not there.
  bool beginsYear() const { return books_.year.isEmpty(); }
  bool takesAny() const;
  bool leavesAny() const;  // of what is offered
  // What stands there is not what is remembered to have been brought.
  bool remembersOther() const;

  void choose(const std::function<void(OpeningChoices& choices)>& change);
  // A row that is not offered stays as it is.
  void take(std::size_t row, bool taken);

  // Debits and credits of the old year, of what is brought forward, of the new year afterwards.
  SideTotals last() const;
  SideTotals brought() const;
  SideTotals afterwards() const;

 private:
  using Key = std::tuple<long, long, std::string>;
  static Key keyOf(const OpeningLine& line);
  void reckon();

  ForwardBooks books_;
  OpeningChoices choices_;
  Opening opening_;
  std::vector<Row> rows_;
  std::map<Key, bool> ticks_;
  bool open_ = false;
  bool touched_ = false;
};

}  // namespace quillet
