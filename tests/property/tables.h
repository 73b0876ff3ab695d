// Compares the tables with the model.
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

#include "property/books.h"
#include "suite/history/act_inverse.h"
#include "suite/history/taking_back.h"
#include "support/practice.h"

namespace quillet::support {

inline constexpr const char* codes[] = {"C1", "C2", "O'C3"};
inline constexpr const char* names[] = {"Asha Traders", "Neighbour & Co", "Third's"};
// The number of the tables that hold a client's year. The third client has no year before 2008,
// which stands in the tables of the others' 2007.
inline int tableOf(const Where& where) { return where.client == 2 || where.year == 2007 ? 1 : 2; }

struct Deed {
  std::string what = {};
  std::function<void()> press = {};
  std::function<void(World&)> change = [](World&) {};
  std::function<void()> again = {};  // when it is not the same key
  std::optional<Where> posts = {};   // the book that the journal is open on
  long voucher = 0;
  bool lenient = false;       // may also be refused
  bool looksOnly = false;     // may leave a save that failed as it is
  bool saves = false;         // a line
  bool repeats = false;       // one that failed
  std::set<Pair> about = {};  // pairs whose rows are taken out on the way
  bool* unloaded = nullptr;   // tells whether this opening failed
};

inline void require(bool holds, const std::string& what) {
  if (!holds) throw std::runtime_error(what);
}
inline std::string text(const Rows& rows) {
  std::string all;
  for (const auto& row : rows) {
    all += "\n    ";
    for (const std::string& cell : row) all += cell + " | ";
  }
  return all.empty() ? " none" : all;
}
// Rows that the one has and the other has not.
inline Rows without(Rows all, const Rows& others) {
  for (const auto& row : others) {
    const auto at = std::ranges::find(all, row);
    if (at != all.end()) all.erase(at);
  }
  return all;
}
// The order of the rows does not matter.
inline void same(const std::string& what, const Rows& expected, const Rows& actual) {
  const Rows missing = without(expected, actual), over = without(actual, expected);
  require(missing.empty() && over.empty(),
          what + ": missing" + text(missing) + "\n  too many" + text(over));
}

class Tables : public PracticeTest {
 protected:
  // Takes over what the tables hold, when it is something that they may hold: one of the
  // candidates, of which the first is what the deed leaves, or a state on the way there.
  void checkTables(const World& before, const std::vector<World>& candidates, const Deed& deed,
                   bool failed) {
    world_ = stored();
    const World now = closed(world_);
    const World& after = candidates.front();
    const auto held =
        std::ranges::find_if(candidates, [&](const World& each) { return closed(each) == now; });
    if (held == candidates.end()) {
      const World wanted = closed(after);
      for (const auto& [where, book] : failed ? World{} : now) {
        same("the lines of " + said(where), rowsOf(wanted.at(where).lines), rowsOf(book.lines));
      }
      require(failed, "the vouchers are not what the deed leaves");
      checkBetween(closed(before), wanted, now, deed);
      if (deed.posts && !undone_) checkHalfPosted(before, after, deed, failed);
    } else if (deed.posts) {
      if (openPairs(*deed.posts)) checkHalfPosted(before, after, deed, failed);
    } else {
      // What was entered on an open pair is found again when the voucher is done.
      for (auto& [where, originals] : halfPosted_) {
        for (auto& [pair, original] : originals) {
          original += held->at(where).balance(pair) - before.at(where).balance(pair);
        }
      }
    }
  }
  bool openPairs(const Where& where) const { return halfPosted_.contains(where); }

  // Takes note of what the tables hold as of the last act, which began with those books. What puts
  // a line of another client back is nobody's act.
  void remember(const World& before, bool mayPutBack = false) {
    std::map<Where, int> acts;
    std::map<Where, suite::ActRow> last;
    const RecordsetPtr rows = practice.database().query(
        std::string("select ") + suite::ActRow::columns + " from SuiteAct where At>'" +
        suite::instantText(seen_) + "' order by At");
    for (; !rows->EOF_(); rows->MoveNext()) {
      const suite::ActRow act = suite::ActRow::from(*rows);
      seen_ = act.at;
      // A ledger that is made while it is typed is nobody's.
      if (act.takesBack != 0 || act.tables == "mast_part" ||
          suite::ActInverse(practice.environment().unit(), act).empty()) {
        continue;
      }
      const auto at =
          std::ranges::find(codes, act.client, [](const char* c) { return std::string(c); });
      require(at != std::end(codes) || mayPutBack,
              "an act is nobody's: " + suite::wordsFor(act) + ' ' + act.tables);
      if (act.secondDate.empty()) {
        for (auto& [where, done] : done_) done.clear();
        continue;
      }
      const Where where{static_cast<int>(at - codes), std::stoi(act.secondDate.substr(4)) - 1};
      ++acts[where];
      last[where] = act;
    }
    if (rows->RecordCount() == 0) return;
    moments_.push_back({seen_, world_});
    for (const auto& [where, count] : acts) {
      auto& done = done_[where];
      // What lay between two acts of one deed is not known.
      if (count > 1) done.clear();
      if (count == 1) done.push_back({last[where], before.at(where)});
    }
  }

  // The books as of each act were those that were seen then.
  void checkMoments() {
    const World now = world_;
    for (std::size_t i = 0; i < moments_.size(); i += 3) {
      const auto& [at, world] = moments_[i];
      world_ = world;
      const World then =
          stored(" for system_time as of timestamp'" + suite::instantText(at) + "' ");
      for (const auto& [where, book] : world) {
        same("the lines of " + said(where) + " as of " + suite::instantText(at), rowsOf(book.lines),
             rowsOf(then.at(where).lines));
        require(book.vouchers == then.at(where).vouchers,
                "the vouchers as of " + suite::instantText(at) + " are other ones");
      }
    }
    world_ = now;
  }

  // The last act on each book that can be taken back, and what it held before.
  struct Done {
    suite::ActRow act;
    Book before;
  };
  std::map<Where, std::vector<Done>> done_;
  std::vector<std::pair<suite::Instant, World>> moments_;
  suite::Instant seen_ = 0;

  World world_;
  // Of the pairs that are open: what they hold apart from the vouchers.
  std::map<Where, std::map<Pair, Paise>> halfPosted_;
  std::optional<World> undone_;  // the books before the save that failed

 private:
  // `asOf` goes with every table.
  World stored(const std::string& asOf = " ") {
    World all;
    for (const auto& [where, known] : world_) {
      const std::string table = host().GETTBNAME(tableOf(where)) + asOf + "t left join Mast_Part" +
                                asOf + "p on p.partid=t.partid left join Mast_AllGrp" + asOf +
                                "g on g.allid=t.allid where code_no='" +
                                host().TruncVarSQL(codes[where.client]) + "'";
      Book& book = all[where];
      book.stock = known.stock;
      std::set<std::string> serials;
      for (const auto& row : rows("select particular,allgrp,round(if(nid=2,-amt,amt)*100),srno,"
                                  "amt>0 and nid in (1,2) and amt=round(amt,2) from TAB_" +
                                  table)) {
        require(row[4] == "1" && serials.insert(row[3]).second,
                "a row of the trial balance is broken: " + text({row}));
        book.lines.emplace(Pair{row[0], row[1]}, std::stoll(row[2]));
      }
      for (const auto& row : rows("select VID,LSrNo,VDate,particular,allgrp,round(Amount*100),VNar "
                                  "from JRNL_" +
                                  table + " order by VID,LSrNo")) {
        Voucher& voucher = book.vouchers[std::stol(row[0])];
        voucher.date = row[2];
        voucher.narration = row[6];
        voucher.lines.emplace_back(Pair{row[3], row[4]}, std::stoll(row[5]));
        require(row[1] == std::to_string(voucher.lines.size()),
                "the lines of a voucher are not numbered: " + text({row}));
      }
    }
    return all;
  }

  // Without the pairs that a half posted voucher touches.
  World closed(World world) const {
    for (const auto& [where, pairs] : halfPosted_) {
      std::erase_if(world[where].lines,
                    [&pairs = pairs](const Entry& line) { return pairs.contains(line.first); });
    }
    return world;
  }

  void checkBetween(const World& before, const World& after, const World& now, const Deed& deed) {
    for (const auto& [where, book] : now) {
      // Where a line could not be put back the journal is not opened.
      if (deed.posts == where && !undone_) continue;
      require(book.vouchers == before.at(where).vouchers,
              "a failure changed vouchers of another book");
      const Rows was = rowsOf(before.at(where).lines), wanted = rowsOf(after.at(where).lines);
      const Rows is = rowsOf(book.lines);
      Rows both = without(was, without(was, wanted));
      std::erase_if(both, [&](const auto& row) { return deed.about.contains({row[0], row[1]}); });
      if (!undone_) {
        same("rows of the trial balance that the failed deed is not about", {}, without(both, is));
      }
      same("rows that are neither of before nor of after", {},
           without(without(is, was), without(wanted, both)));
    }
  }

  void checkHalfPosted(const World& before, const World& after, const Deed& deed, bool failed) {
    const Where where = *deed.posts;
    const Book& book = world_[where];
    const auto voucherIn = [&](const World& world) {
      const auto& vouchers = world.at(where).vouchers;
      const auto at = vouchers.find(deed.voucher);
      return at == vouchers.end() ? Voucher{} : at->second;
    };
    const Voucher old = voucherIn(before), made = voucherIn(after), is = voucherIn(world_);
    for (const Voucher* voucher : {&old, &made}) {
      for (const auto& [pair, amount] : voucher->lines) {
        const Book& known = before.at(where);
        halfPosted_[where].try_emplace(pair, known.balance(pair) - known.posted(pair));
      }
    }
    same("rows that the voucher does not touch", rowsOf(closed(before).at(where).lines),
         rowsOf(closed(world_).at(where).lines));
    Voucher begun = made;
    begun.lines.resize(std::min(is.lines.size(), made.lines.size()));
    require(is == old || is == begun || is.lines.empty(),
            "the voucher is stored neither as before nor as typed");
    if (failed) return;
    const auto open = halfPosted_.extract(where);
    for (const auto& [pair, original] : open.mapped()) {
      same("after the next deed of the journal " + pair.first + ", " + pair.second,
           {{std::to_string(original + book.posted(pair))}},
           {{std::to_string(book.balance(pair))}});
    }
  }
};

}  // namespace quillet::support
