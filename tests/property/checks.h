// Compares tables, screen, totals, summary and printouts with the model.
//
// What is required after a statement has failed:
// - The tables hold what the deed leaves, what was there before, or a state between the two: of the
//   rows that the deed is about, each is one of before or of after; all others are untouched. A
//   voucher is stored as before, as after, or with the first of its new lines.
// - The repetition ends where the deed without a failure ends.
// - A line that was not saved to its end is as if it had not been begun: whatever else is done on
//   the editor next begins with the books as they were before, in whatever view and of whatever
//   client. Sorting and refreshing may leave it as it stands.
// - A voucher in the middle of its posting leaves the pairs that it touches open. The editor may
//   enter lines on them meanwhile. As soon as the journal has done anything else on these books, be
//   it that it was closed or opened, each pair holds what it held apart from the vouchers, and the
//   vouchers as they are stored.
// - The screen shows what the tables hold, but for a reload that failed: that shows nothing of
//   another year, and no wrong figure.
#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "editor/frmcrtb.h"
#include "journal/frmjrnl.h"
#include "property/books.h"
#include "support/practice.h"

namespace quillet::support {

inline constexpr const char* codes[] = {"C1", "C2", "O'C3"};
inline constexpr const char* names[] = {"Asha Traders", "Neighbour & Co", "Third's"};
// The number of the tables that hold a client's year. The third client has no year before 2008,
// which stands in the tables of the others' 2007.
inline int tableOf(const Where& where) { return where.client == 2 || where.year == 2007 ? 1 : 2; }

struct Deed {
  std::string what;
  std::function<void()> press;
  std::function<void(World&)> change = [](World&) {};
  std::function<void()> again = {};  // when it is not the same key
  std::optional<Where> posts = {};   // the book that the journal is open on
  long voucher = 0;
  bool lenient = false;       // may also be refused
  bool looksOnly = false;     // may leave a save that failed as it is
  bool saves = false;         // a line
  std::set<Pair> about = {};  // pairs whose rows are taken out on the way
  bool* unloaded = nullptr;   // tells whether this opening failed
};

class Checks : public PracticeTest {
 protected:
  enum Year { current = 0, previous = 1 };

  static void require(bool holds, const std::string& what) {
    if (!holds) throw std::runtime_error(what);
  }
  // The order of the rows does not matter.
  static void same(const std::string& what, const Rows& expected, const Rows& actual);

  // Takes over what the tables hold, when it is something that they may hold: one of the
  // candidates, of which the first is what the deed leaves, or a state on the way there.
  void checkTables(const World& before, const std::vector<World>& candidates, const Deed& deed,
                   bool failed);
  void checkScreen();
  // Beside each line of the voucher being entered stands what its pair holds once it is posted.
  void checkBalances(const Voucher& voucher, long number);
  void checkJournalPrintouts();

  frmcrtb& editor() { return theEditor(context()); }
  frmjrnl* journal() { return static_cast<frmjrnl*>(context().desk.find("frmjrnl")); }
  int view() { return editor().mnuyrs[1].checked() ? 1 : editor().mnuyrs[2].checked() ? 2 : 0; }
  bool inView(int year) { return view() == 2 || view() == year; }
  std::optional<Where> yearBefore() const;
  Where whereInView() { return view() == 1 ? yearBefore().value_or(where_) : where_; }
  bool openPairs(const Where& where) const { return halfPosted_.contains(where); }

  World world_;
  Where where_;  // the editor's current year
  Where journalOf_;
  // Of the pairs that are open: what they hold apart from the vouchers.
  std::map<Where, std::map<Pair, Paise>> halfPosted_;
  std::optional<World> undone_;  // the books before the save that failed
  bool stale_ = false;           // the last reload failed
  bool unloaded_ = false;        // the last opening failed
  bool journalUnloaded_ = false;

 private:
  World stored();
  World closed(World world) const;
  void checkHalfPosted(const World& before, const World& after, const Deed& deed, bool failed);
  void checkLines();
  void checkTotals();
  void checkSummary();
  void checkGroups();
  void checkPrintout();
  void checkVouchers();
  Rows printed(const std::function<void()>& print);
  const Book& book(int year) const;
};

}  // namespace quillet::support
