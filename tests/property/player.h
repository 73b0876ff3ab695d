// Plays random acts on the editor and the journal of three clients, two of whom share the tables of
// a year, and compares tables, screen, totals, summary and printouts with the model after each.
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
#include <random>
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
inline const char* sideOf(Paise amount) { return amount > 0 ? "DR" : "CR"; }

enum class Kind {
  // on the editor
  open,
  view,
  sort,
  refresh,
  enter,
  fill,
  save,
  alter,
  remove,
  transfer,
  page,
  escape,
  journal,
  // on the journal
  pass,
  modify,
  erase,
  print,
  back,
  // on either: what failed once more
  again
};

// Everything that an act draws comes from its seed and from what is on the screen, so that it can
// be played again with acts before it left out.
struct Act {
  Kind kind = Kind::open;
  unsigned seed = 0;
  int failing = -1;  // the number of the statement that fails
};

struct Mismatch : std::runtime_error {
  using runtime_error::runtime_error;
};

class Player : public PracticeTest {
 protected:
  Player();
  // Plays the acts on fresh books drawn from that seed. Returns what does not agree, "" when
  // everything does.
  std::string play(unsigned books, const std::vector<Act>& acts);
  // What was done, a line for each act.
  const std::string& transcript() const { return transcript_; }

 private:
  enum Year { current = 0, previous = 1 };
  struct Draft {
    std::string ledger, group, side;
    Paise amount = 0;  // without a sign
    Where where;
    std::optional<std::pair<Pair, Paise>> altered;
    bool stored = false;  // although its save failed
    Pair pair() const { return {ledger, group}; }
    Paise signedAmount() const { return side == "D" ? amount : -amount; }
  };
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
  };
  using Originals = std::map<Pair, Paise>;

  // The acts.
  void perform(const Act& act);
  void open(bool again);
  void changeView();
  void refresh();
  void enter(bool save);
  void save();
  void alter();
  void remove();
  void transfer();
  void turnPage();
  void openJournal();
  void passVoucher();
  void modifyVoucher();
  void eraseVoucher();
  void printJournal();
  void closeJournal();
  void repeat();
  void finishVouchers();

  // Their parts.
  void carryOut(const Deed& deed);
  void saveDraft(const std::string& what);
  void typeDraft(const Draft& draft);
  void toLines();
  void toList();
  void fillVoucher(const Voucher& voucher);
  void updateVoucher(const std::string& what, long number, const Voucher& old,
                     const Voucher& voucher);
  void pickVoucher(long number);
  std::optional<std::pair<long, Voucher>> drawStored();
  Voucher drawVoucher();
  Draft drawDraft();
  void learn(const World& before, const std::vector<World>& candidates, const Deed& deed,
             bool failed);
  void learnPosting(const World& before, const World& after, const Deed& deed, bool failed);
  void checkPosted(const Where& where);

  // The comparisons.
  World stored();
  Book storedBook(const Where& where, int number);
  void checkScreen();
  void checkLines();
  void checkTotals();
  void checkPages();
  void checkPrintout();
  void checkJournal();
  void checkBalances(const Voucher& voucher, long number);

  frmcrtb& editor() { return theEditor(context()); }
  frmjrnl* journal() { return static_cast<frmjrnl*>(context().desk.find("frmjrnl")); }
  int view() { return editor().mnuyrs[1].checked() ? 1 : editor().mnuyrs[2].checked() ? 2 : 0; }
  bool inView(int year) { return view() == 2 || view() == year; }
  std::optional<Where> yearBefore() const;
  const Book& book(int year) const;
  Where whereInView();
  bool openPairs(const Where& where) const { return halfPosted_.contains(where); }
  int draw(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  Pair drawPair();
  Paise drawAmount();
  static void require(bool holds, const std::string& what) {
    if (!holds) throw Mismatch(what);
  }
  static void same(const std::string& what, Rows expected, Rows actual);
  void put(TextBox& box, const std::string& text);

  World world_;
  Where where_;  // the editor's current year
  std::optional<Draft> draft_;
  std::map<Where, Originals> halfPosted_;  // of the pairs that are open
  std::optional<World> undone_;            // the books before the save that failed
  struct Failed {
    Deed deed;
    World after;
  };
  std::optional<Failed> failed_;
  Where journalOf_;
  bool stale_ = false;     // the last reload failed
  bool unloaded_ = false;  // the last opening failed
  bool journalUnloaded_ = false;
  bool importing_ = false;  // the answer to the question, if it is asked
  bool imported_ = false;
  int failing_ = -1;
  std::minstd_rand random_;
  std::string transcript_;
};

}  // namespace quillet::support
