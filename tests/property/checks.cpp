#include "property/checks.h"

#include <algorithm>
#include <cmath>

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

void Checks::same(const std::string& what, const Rows& expected, const Rows& actual) {
  const Rows missing = without(expected, actual), over = without(actual, expected);
  require(missing.empty() && over.empty(),
          what + ": missing" + text(missing) + "\n  too many" + text(over));
}

std::optional<Where> Checks::yearBefore() const {
  const Where before{where_.client, where_.year - 1};
  return world_.contains(before) ? std::optional(before) : std::nullopt;
}

const Book& Checks::book(int year) const {
  static const Book none;
  if (year == current) return world_.at(where_);
  const auto before = yearBefore();
  return before ? world_.at(*before) : none;
}

World Checks::stored() {
  World all;
  for (const auto& [where, known] : world_) {
    const std::string table =
        host().GETTBNAME(tableOf(where)) +
        " t left join Mast_Part p on p.partid=t.partid left join Mast_AllGrp g on g.allid=t.allid"
        " where code_no='" +
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
World Checks::closed(World world) const {
  for (const auto& [where, pairs] : halfPosted_) {
    std::erase_if(world[where].lines,
                  [&pairs = pairs](const Entry& line) { return pairs.contains(line.first); });
  }
  return world;
}

void Checks::checkTables(const World& before, const std::vector<World>& candidates,
                         const Deed& deed, bool failed) {
  world_ = stored();
  const World now = closed(world_);
  const World& after = candidates.front();
  const auto held = std::find_if(candidates.begin(), candidates.end(),
                                 [&](const World& each) { return closed(each) == now; });
  if (held != candidates.end()) {
    if (deed.posts) {
      if (openPairs(*deed.posts)) checkHalfPosted(before, after, deed, failed);
      return;
    }
    // What was entered on an open pair is found again when the voucher is done.
    for (auto& [where, originals] : halfPosted_) {
      for (auto& [pair, original] : originals) {
        original += held->at(where).balance(pair) - before.at(where).balance(pair);
      }
    }
    return;
  }
  // Where a line could not be put back the journal is not opened.
  const bool posting = deed.posts && !undone_;
  const World then = closed(before), next = closed(after);
  for (const auto& [where, book] : now) {
    const Rows was = rowsOf(then.at(where)), is = rowsOf(book), wanted = rowsOf(next.at(where));
    if (!failed) {
      same("the trial balance of " + said(where), wanted, is);
      for (const auto& [number, voucher] : next.at(where).vouchers) {
        const auto at = book.vouchers.find(number);
        same("voucher " + std::to_string(number), rowsOf(number, voucher),
             at == book.vouchers.end() ? Rows{} : rowsOf(number, at->second));
      }
    } else if (!posting || deed.posts != where) {
      require(book.vouchers == then.at(where).vouchers,
              "a failure changed vouchers of another book");
      Rows both = without(was, without(was, wanted));
      std::erase_if(both, [&](const auto& row) { return deed.about.contains({row[0], row[1]}); });
      if (!undone_) {
        same("rows of the trial balance that the failed deed is not about", {}, without(both, is));
      }
      same("rows that are neither of before nor of after", {},
           without(without(is, was), without(wanted, both)));
    }
  }
  require(failed, "the tables do not hold what the deed leaves");
  if (posting) checkHalfPosted(before, after, deed, failed);
}

void Checks::checkHalfPosted(const World& before, const World& after, const Deed& deed,
                             bool failed) {
  const Where where = *deed.posts;
  const auto linesIn = [&](const World& world) {
    const auto& vouchers = world.at(where).vouchers;
    const auto at = vouchers.find(deed.voucher);
    return at == vouchers.end() ? Rows{} : rowsOf(at->first, at->second);
  };
  auto& originals = halfPosted_[where];
  for (const World* world : {&before, &after}) {
    const auto& vouchers = world->at(where).vouchers;
    if (!vouchers.contains(deed.voucher)) continue;
    const Book& beforehand = before.at(where);
    for (const auto& [pair, amount] : vouchers.at(deed.voucher).lines) {
      originals.try_emplace(pair, beforehand.balance(pair) - beforehand.posted(pair));
    }
  }
  same("rows that the voucher does not touch", rowsOf(closed(before).at(where)),
       rowsOf(closed(world_).at(where)));
  const Rows old = linesIn(before), made = linesIn(after), is = linesIn(world_);
  require(is == old || (is.size() <= made.size() && std::equal(is.begin(), is.end(), made.begin())),
          "the voucher is stored neither as before nor as typed");
  if (failed) return;
  const auto open = halfPosted_.extract(where);
  for (const auto& [pair, original] : open.mapped()) {
    const Paise expected = original + world_[where].posted(pair);
    const Paise actual = world_[where].balance(pair);
    require(actual == expected, "after the next deed of the journal " + pair.first + ", " +
                                    pair.second + " holds " + std::to_string(actual) +
                                    " paise instead of " + std::to_string(expected));
  }
}

void Checks::checkScreen() {
  if (journal()) return checkVouchers();
  if (!editor().visible()) return;
  checkLines();
  checkTotals();
  checkSummary();
  if (stale_) return;
  checkGroups();
  if (!unloaded_) checkPrintout();
}

void Checks::checkLines() {
  const Rows all = shown(editor().vsfm);
  // Of the same pair as many lines as the year with more of them has.
  std::map<Pair, std::size_t> count;
  for (const int year : {current, previous}) {
    if (!inView(year)) continue;
    const std::size_t at = view() == 2 && year == previous ? 4 : 2;
    Rows expected = rowsOf(book(year)), actual;
    std::map<Pair, std::size_t> ofYear;
    for (const auto& [pair, amount] : book(year).lines) {
      count[pair] = std::max(count[pair], ++ofYear[pair]);
    }
    for (const auto& row : all) {
      if (view() == 2 && row[at] == "-" && row[at + 1] == "-") continue;
      actual.push_back({row[0], row[1], row[at], row[at + 1]});
    }
    if (stale_) {
      // Where the groups could not be read their names are missing.
      for (auto row : rowsOf(book(year))) {
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
  Rows expected, actual;
  for (const auto& [pair, lines] : count) {
    expected.insert(expected.end(), lines, {pair.first, pair.second});
  }
  for (const auto& row : all) actual.push_back({row[0], row[1]});
  same("the pairs shown", expected, actual);
  const char* const years[] = {"", " (Previous Year)", " (with Previous Year)"};
  same("the caption",
       {{"Trial Balance of " + std::string(names[where_.client]) + " for the Period 01/04/" +
         std::to_string(where_.year) + " - 31/03/" + std::to_string(where_.year + 1) +
         years[view()]}},
       {{editor().caption()}});
}

void Checks::checkTotals() {
  frmcrtb& form = editor();
  for (const int year : {current, previous}) {
    if (!inView(year)) continue;
    const auto [debits, credits] = book(year).sides();
    const Rows actual{{form.txttotdeb[year].text(), form.txttotcr[year].text()}};
    const bool blank = actual == Rows{{"0.00", "0.00"}} || actual == Rows{{"", ""}};
    if (!(stale_ && blank)) same("the totals", {{grouped(debits), grouped(credits)}}, actual);
    if (year == previous || stale_) continue;
    const Paise over = debits - credits;
    const Rows difference{{form.txtdiff.text(), form.txtdifft.text()}};
    // The two sums are compared as they are, down to their last bit.
    if (over == 0 && difference[0][0] == "0.00") continue;
    same("the difference",
         over == 0 ? Rows{{"", ""}} : Rows{{grouped(over), over > 0 ? "Debit" : "Credit"}},
         difference);
  }
}

void Checks::checkSummary() {
  if (!editor().famSummary.visible()) return;
  const Rows years[] = {summaryOf(book(current)), summaryOf(book(previous))};
  const Rows actual = shown(editor().vsfr);
  require((stale_ && actual.empty()) || actual.size() == years[0].size(),
          "the summary is not complete");
  for (std::size_t row = 0; row < actual.size(); ++row) {
    const bool rate = row + 3 >= actual.size();
    for (const std::size_t year : {0U, 1U}) {
      const std::string &is = actual[row][year + 1], &wanted = years[year][row][1];
      require(actual[row][0] == years[0][row][0] && (rate ? nearly(wanted, is) : wanted == is),
              actual[row][0] + " is " + is + " instead of " + wanted);
    }
  }
}

void Checks::checkGroups() {
  frmcrtb& form = editor();
  if (!form.famGroups.visible()) return;
  Rows sides[2], all;
  for (const auto& [pair, amount] : book(view() == 1 ? previous : current).lines) {
    if (pair.second != form.cbogroup.text()) continue;
    all.push_back({pair.first, plain(amount), sideOf(amount)});
    sides[amount > 0 ? 0 : 1].push_back(all.back());
  }
  same("the debits of the group", sides[0], shown(form.vsf1));
  same("the credits of the group", sides[1], shown(form.vsf2));
  same("the lines to transfer", all, shown(form.vsf3));
}

// The rows printed below the headings.
Rows Checks::printed(const std::function<void()>& print) {
  practice.surroundings().forgetReport();
  print();
  Rows all;
  if (!practice.surroundings().lastReport()) return all;
  for (const suite::ReportRow& row : practice.surroundings().lastReport()->rows()) {
    if (row.heading) continue;
    auto& cells = all.emplace_back();
    for (const suite::ReportCell& cell : row.cells) cells.push_back(cell.text);
  }
  return all;
}

void Checks::checkPrintout() {
  const Book& shown = book(view() == 1 ? previous : current);
  Rows expected, actual;
  for (const auto& [pair, amount] : shown.lines) {
    expected.push_back({pair.first, pair.second, amount > 0 ? plain(amount) : "",
                        amount < 0 ? plain(amount) : ""});
  }
  const auto [debits, credits] = shown.sides();
  expected.push_back({"Total", "", plain(debits), plain(credits)});
  for (auto& row : printed([this] { editor().click(editor().mnuPreview); })) {
    row.erase(row.begin());
    // A line that only the other year has.
    if (view() == 2 && row[2].empty() && row[3].empty()) continue;
    actual.push_back(row);
  }
  same("the printout", expected, actual);
}

void Checks::checkVouchers() {
  const Grid& grid = journal()->vsf;
  if (!journal()->Frame1.visible() || stale_ || journalUnloaded_) return;
  Rows actual;
  std::string date;
  for (int row = 1; row <= grid.rows(); ++row) {
    if (!grid.cell(row, 0).empty()) date = grid.cell(row, 0);
    actual.push_back(
        {grid.cell(row, 4), date, grid.cell(row, 1), grid.cell(row, 2), grid.cell(row, 3)});
  }
  same("the list of vouchers", listOf(world_[journalOf_]), actual);
}

void Checks::checkBalances(const Voucher& voucher, long number) {
  if (openPairs(journalOf_)) return;
  Book posted = world_[journalOf_];
  const auto old = posted.vouchers.find(number);
  if (old != posted.vouchers.end()) posted.post(old->second, -1);
  posted.post(voucher, 1);
  for (std::size_t i = 0; i < voucher.lines.size(); ++i) {
    const Paise balance = posted.balance(voucher.lines[i].first);
    const std::string actual = journal()->txtcurbal[static_cast<int>(i)].text();
    // A pair that is new shows nothing until it is saved.
    if (actual == "0.00") continue;
    same("the balance beside line " + std::to_string(i + 1),
         {{grouped(balance) + (balance > 0 ? "Dr" : "Cr")}}, {{actual}});
  }
}

void Checks::checkJournalPrintouts() {
  Rows listed = listOf(world_[journalOf_]);
  Rows list = printed([this] { journal()->click(journal()->cmdprn); });
  // The date stands on a voucher's first row only.
  for (Rows* rows : {&listed, &list}) {
    for (auto& row : *rows) row = {row.end()[-3], row.end()[-2], row.end()[-1]};
  }
  same("the printed list of vouchers", listed, list);
  if (openPairs(journalOf_)) return;
  const Rows expected = subsidiaryOf(world_[journalOf_]);
  const Rows actual = printed([this] { journal()->click(journal()->cmdtb); });
  require(actual == expected,
          "the subsidiary trial balance is" + text(actual) + "\n  instead of" + text(expected));
}

}  // namespace quillet::support
