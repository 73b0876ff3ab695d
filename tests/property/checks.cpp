// The comparisons with the model.
#include <algorithm>
#include <cmath>

#include "property/player.h"

namespace quillet::support {
namespace {

std::string text(const Rows& rows) {
  std::string all;
  for (const auto& row : rows) {
    all += "\n    ";
    for (const std::string& cell : row) all += cell + " | ";
  }
  return all.empty() ? " none" : all;
}

// Rows that the one has and the other has not.
Rows without(Rows all, const Rows& others) {
  for (const auto& row : others) {
    const auto at = std::find(all.begin(), all.end(), row);
    if (at != all.end()) all.erase(at);
  }
  return all;
}

Rows cellsOf(const Grid& grid) {
  Rows rows;
  for (int row = 1; row <= grid.rows(); ++row) {
    auto& cells = rows.emplace_back();
    for (int column = 0; column < grid.cols(); ++column) {
      if (!grid.columns()[static_cast<std::size_t>(column)].hidden) {
        cells.push_back(grid.cell(row, column));
      }
    }
  }
  return rows;
}

// A rate is a quotient of doubles in the module: its last digit may be rounded the other way.
bool nearly(std::string a, std::string b) {
  if (a == b) return true;
  const auto number = [](std::string& shown) {
    const bool negative = shown.starts_with('(');
    std::erase_if(shown, [](char c) { return c == ',' || c == '(' || c == ')'; });
    return (negative ? -1 : 1) * std::strtod(shown.c_str(), nullptr);
  };
  return a != "-" && b != "-" && std::fabs(number(a) - number(b)) < 0.011;
}

}  // namespace

void Player::same(const std::string& what, Rows expected, Rows actual) {
  const Rows missing = without(expected, actual), over = without(actual, expected);
  require(missing.empty() && over.empty(),
          what + ": missing" + text(missing) + "\n  too many" + text(over));
}

// --- the tables ---------------------------------------------------------------------------------

Book Player::storedBook(const Where& where, int number) {
  const std::string suffix = host().GETTBNAME(number);
  const std::string ours = " where code_no='" + host().TruncVarSQL(codes[where.client]) + "'";
  const std::string joined =
      " t left join Mast_Part p on p.partid=t.partid left join Mast_AllGrp g on g.allid=t.allid";
  Book book;
  book.stock = world_.at(where).stock;
  std::set<std::string> serials;
  for (const auto& row : rows("select particular,allgrp,round(if(nid=2,-amt,amt)*100),srno,"
                              "amt>0 and nid in (1,2) and amt=round(amt,2) from TAB_" +
                              suffix + joined + ours)) {
    require(row[4] == "1" && serials.insert(row[3]).second,
            "a row of the trial balance is broken: " + text({row}));
    book.lines.emplace_back(Pair{row[0], row[1]}, std::stoll(row[2]));
  }
  long line = 0;
  for (const auto& row : rows("select VID,LSrNo,VDate,particular,allgrp,round(Amount*100),VNar "
                              "from JRNL_" +
                              suffix + joined + ours + " order by VID,LSrNo")) {
    Voucher& voucher = book.vouchers[std::stol(row[0])];
    line = voucher.lines.empty() ? 1 : line + 1;
    require(std::to_string(line) == row[1],
            "the lines of a voucher are not numbered: " + text({row}));
    voucher.date = row[2];
    voucher.narration = row[6];
    voucher.lines.emplace_back(Pair{row[3], row[4]}, std::stoll(row[5]));
  }
  book.sort();
  return book;
}

World Player::stored() {
  World all;
  for (const auto& [where, book] : world_) {
    all[where] = storedBook(where, tableOf(where));
  }
  return all;
}

namespace {

Rows rowsOf(const Book& book) {
  Rows rows;
  for (const auto& [pair, amount] : book.lines) {
    rows.push_back({pair.first, pair.second, (amount < 0 ? "-" : "") + plain(amount)});
  }
  return rows;
}

Rows rowsOf(const Voucher& voucher) {
  Rows rows;
  for (const auto& [pair, amount] : voucher.lines) {
    rows.push_back({voucher.date, voucher.narration, pair.first, pair.second,
                    (amount < 0 ? "-" : "") + plain(amount)});
  }
  return rows;
}

// The first of the lines, or all.
bool begins(const Voucher& whole, const Voucher& part) {
  const Rows all = rowsOf(whole), some = rowsOf(part);
  return some.size() <= all.size() && std::equal(some.begin(), some.end(), all.begin());
}

}  // namespace

// Takes over what the tables hold, when it is something that they may hold.
void Player::learn(const World& before, const std::vector<World>& candidates, const Deed& deed,
                   bool failed) {
  const World now = stored();
  // Pairs that a half posted voucher touches are open.
  const auto open = [&](const Where& where) {
    std::set<Pair> pairs;
    if (const auto at = halfPosted_.find(where); at != halfPosted_.end()) {
      for (const auto& [pair, original] : at->second) pairs.insert(pair);
    }
    return pairs;
  };
  const auto comparable = [&](const World& world) {
    World some;
    for (const auto& [where, book] : world) {
      some[where] = book.without(open(where));
      some[where].sort();
    }
    return some;
  };
  const bool about = deed.posts && halfPosted_.contains(*deed.posts);
  const World seen = comparable(now);
  for (const World& candidate : candidates) {
    if (comparable(candidate) != seen) continue;
    // What was entered on an open pair is found again when the voucher is done.
    for (auto& [where, originals] : halfPosted_) {
      for (auto& [pair, original] : originals) {
        if (deed.posts) continue;
        original += candidate.at(where).balance(pair) - before.at(where).balance(pair);
      }
    }
    world_ = now;
    if (about) learnPosting(before, candidates.front(), deed, failed);
    return;
  }
  const World& after = candidates.front();
  for (const auto& [where, book] : seen) {
    const Book beforehand = comparable(before).at(where), afterwards = comparable(after).at(where);
    if (!failed) {
      same("the trial balance of " + std::string(codes[where.client]) + " " +
               std::to_string(where.year),
           rowsOf(afterwards), rowsOf(book));
      for (const auto& [number, voucher] : afterwards.vouchers) {
        const auto at = book.vouchers.find(number);
        same("voucher " + std::to_string(number), rowsOf(voucher),
             at == book.vouchers.end() ? Rows{} : rowsOf(at->second));
      }
      require(book.vouchers == afterwards.vouchers, "there are vouchers too many");
      continue;
    }
    if (deed.posts == where) continue;
    require(book.vouchers == beforehand.vouchers, "a failure changed vouchers of another book");
    // Each row is one of before or of after; what is in both is there.
    Rows both = without(rowsOf(beforehand), without(rowsOf(beforehand), rowsOf(afterwards)));
    std::erase_if(both, [&](const auto& row) { return deed.about.contains({row[0], row[1]}); });
    if (!undone_) {
      same("rows of the trial balance that the failed deed is not about", both,
           without(rowsOf(book), without(rowsOf(book), both)));
    }
    Rows either = rowsOf(beforehand);
    for (const auto& row : without(rowsOf(afterwards), both)) either.push_back(row);
    same("rows that are neither of before nor of after", {}, without(rowsOf(book), either));
  }
  require(failed, "the tables do not hold what the deed leaves");
  world_ = now;
  if (deed.posts) learnPosting(before, after, deed, failed);
}

void Player::learnPosting(const World& before, const World& after, const Deed& deed, bool failed) {
  const Where where = *deed.posts;
  const Book& beforehand = before.at(where);
  const Book& now = world_.at(where);
  Originals& originals = halfPosted_[where];
  const auto voucherIn = [&](const Book& book) -> const Voucher* {
    const auto at = book.vouchers.find(deed.voucher);
    return at == book.vouchers.end() ? nullptr : &at->second;
  };
  const Voucher* old = voucherIn(beforehand);
  const Voucher* made = voucherIn(after.at(where));
  const Voucher* is = voucherIn(now);
  std::set<Pair> open;
  for (const Voucher* voucher : {old, made}) {
    if (!voucher) continue;
    for (const auto& [pair, amount] : voucher->lines) {
      originals.try_emplace(pair, beforehand.original(pair));
    }
  }
  for (const auto& [pair, original] : originals) open.insert(pair);
  same("rows that the voucher does not touch", rowsOf(beforehand.without(open)),
       rowsOf(now.without(open)));
  require(!is || (old && *is == *old) || (made && begins(*made, *is)),
          "the voucher is stored neither as before nor as typed");
  if (!failed) checkPosted(where);
}

void Player::checkPosted(const Where& where) {
  Rows expected, actual;
  const Book& now = world_.at(where);
  const auto open = halfPosted_.extract(where);
  for (const auto& [pair, original] : open.mapped()) {
    Paise sum = original;
    for (const auto& [number, voucher] : now.vouchers) {
      for (const auto& [each, amount] : voucher.lines) sum += each == pair ? amount : 0;
    }
    expected.push_back({pair.first, pair.second, std::to_string(sum)});
    actual.push_back({pair.first, pair.second, std::to_string(now.balance(pair))});
  }
  same("balances after the next deed of the journal, in paise", expected, actual);
}

// --- the editor's screen ------------------------------------------------------------------------

void Player::checkScreen() {
  if (journal()) return checkJournal();
  if (!editor().visible()) return;
  checkLines();
  checkTotals();
  checkPages();
  if (!stale_ && !unloaded_) checkPrintout();
}

void Player::checkLines() {
  frmcrtb& form = editor();
  std::map<Pair, std::vector<Paise>> ofPair[2];
  for (const int year : {current, previous}) {
    if (!inView(year)) continue;
    for (const auto& [pair, amount] : book(year).lines) ofPair[year][pair].push_back(amount);
  }
  Rows expected;
  if (view() == 2) {
    std::set<Pair> pairs;
    for (const auto& year : ofPair) {
      for (const auto& [pair, amounts] : year) pairs.insert(pair);
    }
    // Several lines of one pair stand beside each other in no order that matters here.
    for (const Pair& pair : pairs) {
      for (std::size_t i = 0; i < std::max(ofPair[0][pair].size(), ofPair[1][pair].size()); ++i) {
        expected.push_back({pair.first, pair.second});
      }
    }
    Rows pairsShown;
    for (const auto& row : cellsOf(form.vsfm)) pairsShown.push_back({row[0], row[1]});
    same("the pairs of both years", stale_ ? pairsShown : expected, pairsShown);
  }
  for (const int year : {current, previous}) {
    if (!inView(year)) continue;
    const std::size_t at = view() == 2 && year == previous ? 4 : 2;
    expected.clear();
    for (const auto& [pair, amounts] : ofPair[year]) {
      for (const Paise amount : amounts) {
        expected.push_back({pair.first, pair.second, plain(amount), sideOf(amount)});
      }
    }
    Rows actual;
    for (const auto& row : cellsOf(form.vsfm)) {
      if (row[at] == "-" && row[at + 1] == "-" && view() == 2) continue;
      actual.push_back({row[0], row[1], row[at], row[at + 1]});
    }
    if (stale_) {
      // Where the groups could not be read their names are missing.
      const Rows named = expected;
      for (auto row : named) {
        row[1].clear();
        expected.push_back(row);
      }
      same("lines shown after a failed reload", {}, without(actual, expected));
    } else {
      same(year == current ? "the lines shown" : "the previous year's lines shown", expected,
           actual);
    }
  }
  if (stale_) return;
  const std::string period =
      "01/04/" + std::to_string(where_.year) + " - 31/03/" + std::to_string(where_.year + 1);
  const char* const years[] = {"", " (Previous Year)", " (with Previous Year)"};
  const std::string caption = "Trial Balance of " + std::string(names[where_.client]) +
                              " for the Period " + period + years[view()];
  require(form.caption() == caption, "the caption is \"" + form.caption() + "\"");
  const std::string fields = form.txtpart.text() + "|" + form.txtgroup.text() + "|" +
                             form.txtamount.text() + "|" + form.txtdrcr.text();
  if (!failed_ && !draft_) require(fields == "|||", "the fields hold " + fields);
}

void Player::checkTotals() {
  frmcrtb& form = editor();
  for (const int year : {current, previous}) {
    if (!inView(year)) continue;
    Paise debits = 0, credits = 0;
    for (const auto& [pair, amount] : book(year).lines) (amount > 0 ? debits : credits) += amount;
    const Rows expected{{grouped(debits), grouped(credits)}};
    const Rows actual{{form.txttotdeb[year].text(), form.txttotcr[year].text()}};
    const bool blank = actual == Rows{{"0.00", "0.00"}} || actual == Rows{{"", ""}};
    if (!(stale_ && blank)) same("the totals", expected, actual);
    if (year == previous || stale_) continue;
    const Paise over = debits + credits;
    const Rows difference{{form.txtdiff.text(), form.txtdifft.text()}};
    // The two sums are compared as they are, down to their last bit.
    if (over == 0 && difference[0][0] == "0.00") continue;
    same("the difference",
         over == 0 ? Rows{{"", ""}} : Rows{{grouped(over), over > 0 ? "Debit" : "Credit"}},
         difference);
  }
}

void Player::checkPages() {
  frmcrtb& form = editor();
  if (form.famSummary.visible()) {
    const Rows figures[] = {summaryOf(book(current)), summaryOf(book(previous))};
    const bool empty = form.vsfr.rows() == 0 && stale_;
    require(empty || form.vsfr.rows() == static_cast<int>(figures[0].size()),
            "the summary is not complete");
    for (int row = 1; row <= form.vsfr.rows(); ++row) {
      const auto at = static_cast<std::size_t>(row - 1);
      const std::string& caption = figures[0][at][0];
      for (const int year : {0, 1}) {
        const std::string& actual = form.vsfr.cell(row, year + 1);
        const bool rate = at + 3 >= figures[0].size();
        require(form.vsfr.cell(row, 0) == caption &&
                    (rate ? nearly(figures[year][at][1], actual) : figures[year][at][1] == actual),
                form.vsfr.cell(row, 0) + " is " + actual + " instead of " + figures[year][at][1]);
      }
    }
  }
  if (form.famGroups.visible() && !stale_) {
    Rows expected[2];
    for (const auto& [pair, amount] : book(view() == 1 ? previous : current).lines) {
      if (pair.second != form.cbogroup.text()) continue;
      expected[amount > 0 ? 0 : 1].push_back({pair.first, plain(amount), sideOf(amount)});
    }
    same("the debits of the group", expected[0], cellsOf(form.vsf1));
    same("the credits of the group", expected[1], cellsOf(form.vsf2));
    expected[0].insert(expected[0].end(), expected[1].begin(), expected[1].end());
    same("the lines to transfer", expected[0], cellsOf(form.vsf3));
  }
}

void Player::checkPrintout() {
  frmcrtb& form = editor();
  practice.surroundings().forgetReport();
  form.click(form.mnuPreview);
  require(practice.surroundings().lastReport().has_value(), "nothing is printed");
  const Book& shown = book(view() == 1 ? previous : current);
  Rows expected, actual;
  Paise debits = 0, credits = 0;
  for (const auto& [pair, amount] : shown.lines) {
    expected.push_back({pair.first, pair.second, amount > 0 ? plain(amount) : "",
                        amount < 0 ? plain(amount) : ""});
    (amount > 0 ? debits : credits) += amount;
  }
  expected.push_back({"Total", "", plain(debits), plain(credits)});
  for (const suite::ReportRow& row : practice.surroundings().lastReport()->rows()) {
    if (row.heading) continue;
    auto& cells = actual.emplace_back();
    for (std::size_t i = 1; i < row.cells.size(); ++i) cells.push_back(row.cells[i].text);
    // A line that only the other year has.
    if (view() == 2 && cells[2].empty() && cells[3].empty()) actual.pop_back();
  }
  same("the printout", expected, actual);
}

// --- the journal's screen -----------------------------------------------------------------------

void Player::checkJournal() {
  frmjrnl& form = *journal();
  if (!form.Frame1.visible() || stale_ || journalUnloaded_) return;
  Rows actual;
  std::string date;
  for (int row = 1; row <= form.vsf.rows(); ++row) {
    if (!form.vsf.cell(row, 0).empty()) date = form.vsf.cell(row, 0);
    actual.push_back({form.vsf.cell(row, 4), date, form.vsf.cell(row, 1), form.vsf.cell(row, 2),
                      form.vsf.cell(row, 3)});
  }
  same("the list of vouchers", listOf(world_[journalOf_]), actual);
}

// Beside each line stands what the pair holds once the voucher on screen is posted.
void Player::checkBalances(const Voucher& voucher, long number) {
  if (openPairs(journalOf_)) return;
  frmjrnl& form = *journal();
  Book posted = world_[journalOf_];
  const auto old = posted.vouchers.find(number);
  if (old != posted.vouchers.end()) posted.post(old->second, -1);
  posted.post(voucher, 1);
  for (std::size_t i = 0; i < voucher.lines.size(); ++i) {
    const Paise balance = posted.balance(voucher.lines[i].first);
    const std::string actual = form.txtcurbal[static_cast<int>(i)].text();
    // A pair that is new shows nothing until it is saved.
    if (actual == "0.00") continue;
    require(actual == grouped(balance) + (balance > 0 ? "Dr" : "Cr"),
            "the balance beside line " + std::to_string(i + 1) + " is " + actual + " instead of " +
                grouped(balance) + (balance > 0 ? "Dr" : "Cr"));
  }
}

}  // namespace quillet::support
