// Compares screen and printouts with the model.
#pragma once

#include "books/summary_figures.h"
#include "editor/frmcrtb.h"
#include "journal/frmjrnl.h"
#include "property/tables.h"

namespace quillet::support {

class Screen : public Tables {
 protected:
  enum Year { current = 0, previous = 1 };

  frmcrtb& editor() { return theEditor(context()); }
  frmjrnl* journal() { return static_cast<frmjrnl*>(context().openForms.find("frmjrnl")); }
  int view() { return editor().mnuyrs[1].checked() ? 1 : editor().mnuyrs[2].checked() ? 2 : 0; }
  bool inView(int year) { return view() == 2 || view() == year; }
  std::optional<Where> yearBefore() const {
    const Where before{where_.client, where_.year - 1};
    return world_.contains(before) ? std::optional(before) : std::nullopt;
  }
  Where whereInView() { return view() == 1 ? yearBefore().value_or(where_) : where_; }

  void checkScreen() {
    if (journal()) return checkVouchers();
    if (!editor().visible()) return;
    checkLines();
    checkTotals();
    if (editor().famSummary.visible()) checkSummary();
    if (stale_) return;
    if (editor().famGroups.visible()) checkGroups();
    if (!unloaded_) checkPrintout();
  }

  // Beside each line of the voucher being entered stands what its pair holds once it is posted.
  void checkBalances(const Voucher& voucher, long number) {
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

  void checkJournalPrintouts() {
    Rows listed = listOf(world_[journalOf_]), list = printedBy(journal()->cmdprn);
    // The date stands on a voucher's first row only.
    for (Rows* rows : {&listed, &list}) {
      for (auto& row : *rows) row = {row.end()[-3], row.end()[-2], row.end()[-1]};
    }
    same("the printed list of vouchers", listed, list);
    if (openPairs(journalOf_)) return;
    Rows ledgers = printedBy(journal()->cmdtb);
    std::erase_if(ledgers,
                  [](const auto& row) { return row[1].empty() || row[0].ends_with("Total"); });
    same("the subsidiary trial balance", subsidiaryOf(world_[journalOf_]), ledgers);
  }

  Where where_;  // the editor's current year
  Where journalOf_;
  bool stale_ = false;     // the last reload failed
  bool unloaded_ = false;  // the last opening failed
  bool journalUnloaded_ = false;

 private:
  const Book& book(int year) const {
    static const Book none;
    if (year == current) return world_.at(where_);
    const auto before = yearBefore();
    return before ? world_.at(*before) : none;
  }

  void checkLines() {
    const Rows all = shown(editor().vsfm);
    std::vector<Pair> pairs[2], either;
    for (const int year : {current, previous}) {
      if (!inView(year)) continue;
      for (const auto& [pair, amount] : book(year).lines) pairs[year].push_back(pair);
      const std::size_t at = view() == 2 && year == previous ? 4 : 2;
      Rows expected = rowsOf(book(year).lines), actual;
      for (const auto& row : all) {
        if (view() == 2 && row[at] == "-" && row[at + 1] == "-") continue;
        actual.push_back({row[0], row[1], row[at], row[at + 1]});
      }
      if (!stale_) same("the lines shown of " + std::to_string(year), expected, actual);
      // Where the groups could not be read their names are missing.
      for (auto row : rowsOf(book(year).lines)) expected.push_back({row[0], "", row[2], row[3]});
      same("lines shown after a failed reload", {}, without(actual, expected));
    }
    if (stale_) return;
    // Of the same pair as many lines as the year with more of them has.
    std::ranges::set_union(pairs[0], pairs[1], std::back_inserter(either));
    Rows expected, actual;
    for (const auto& [ledger, group] : either) expected.push_back({ledger, group});
    for (const auto& row : all) actual.push_back({row[0], row[1]});
    same("the pairs shown", expected, actual);
    const char* const years[] = {"", " (Previous Year)", " (with Previous Year)"};
    same("the caption",
         {{"Trial Balance of " + std::string(names[where_.client]) + " for the Period 01/04/" +
           std::to_string(where_.year) + " - 31/03/" + std::to_string(where_.year + 1) +
           years[view()]}},
         {{editor().caption()}});
  }

  void checkTotals() {
    frmcrtb& form = editor();
    for (const int year : {current, previous}) {
      if (!inView(year)) continue;
      const auto [debits, credits] = book(year).sides();
      const Rows actual{{form.txttotdeb[year].text(), form.txttotcr[year].text()}};
      const bool blank = actual == Rows{{"0.00", "0.00"}} || actual == Rows{{"", ""}};
      if (!(stale_ && blank)) same("the totals", {{grouped(debits), grouped(credits)}}, actual);
      if (year == previous || stale_) continue;
      const Paise over = debits - credits;
      // The two sums are compared as they are, down to their last bit.
      if (over == 0 && form.txtdiff.text() == "0.00") continue;
      same("the difference",
           over == 0 ? Rows{{"", ""}} : Rows{{grouped(over), over > 0 ? "Debit" : "Credit"}},
           {{form.txtdiff.text(), form.txtdifft.text()}});
    }
  }

  // In paise. The rules of the summary have tests of their own.
  static std::array<SummaryRow, summaryRows> summaryOf(const Book& book) {
    Balances balances;
    balances.closingStock = static_cast<double>(book.stock);
    for (const auto& [pair, amount] : book.lines) {
      const auto primary = static_cast<std::size_t>(groups.at(pair.second));
      double& balance = pair.second == "DEPRECIATION" ? balances.depreciation
                        : primary == splitGroup       ? balances.appropriations
                                                      : balances.group[primary];
      balance += static_cast<double>(amount);
    }
    return quillet::summaryOf(balances);
  }

  // The quotient of sums that cancel out holds nine digits for certain, whatever its size.
  static bool isAbout(Paise value, std::string text) {
    std::erase_if(text, [](char c) { return c == ',' || c == '.' || c == '(' || c == ')'; });
    if (text.empty() || text == "-") return false;
    return std::llabs(std::llabs(value) - std::stoll(text)) <= std::llabs(value) / 1'000'000'000;
  }

  void checkSummary() {
    const Rows actual = shown(editor().vsfr);
    if (stale_ && actual.empty()) return;
    const auto years = {summaryOf(book(current)), summaryOf(book(previous))};
    require(actual.size() == summaryRows, "the summary is not whole");
    Rows expected;
    for (std::size_t row = 0; row < summaryRows; ++row) {
      auto& cells = expected.emplace_back(1, std::string(years.begin()->at(row).caption));
      const bool rate = row + 3 >= summaryRows;
      for (const auto& year : years) {
        const Paise value = std::llround((rate ? 100 : 1) * year[row].value.value_or(0));
        const std::string text = value < 0 ? '(' + grouped(value) + ')' : grouped(value);
        cells.push_back(!year[row].value ? "-"
                        : rate && isAbout(value, actual[row][cells.size()])
                            ? actual[row][cells.size()]
                            : text);
      }
    }
    same("the summary", expected, actual);
  }

  void checkGroups() {
    frmcrtb& form = editor();
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

  // The rows below the headings.
  Rows printedBy(Control& command) {
    practice.environment().forgetReport();
    command.form().click(command);
    return printed(false);
  }

  void checkPrintout() {
    const Book& shown = book(view() == 1 ? previous : current);
    Rows expected, actual;
    for (const auto& [pair, amount] : shown.lines) {
      expected.push_back({pair.first, pair.second, amount > 0 ? plain(amount) : "",
                          amount < 0 ? plain(amount) : ""});
    }
    const auto [debits, credits] = shown.sides();
    expected.push_back({"Total", "", plain(debits), plain(credits)});
    for (auto& row : printedBy(editor().mnuPreview)) {
      row.erase(row.begin());
      // A line that only the other year has.
      if (view() == 2 && row[2].empty() && row[3].empty()) continue;
      actual.push_back(row);
    }
    same("the printout", expected, actual);
  }

  void checkVouchers() {
    const Grid& grid = journal()->vsf;
    if (!journal()->Frame1.visible() || stale_ || journalUnloaded_) return;
    Rows actual;
    std::string date;
    for (int row = 1; row <= grid.rows(); ++row) {
      if (!grid.cell(row, 0).empty()) date = grid.cell(row, 0);
      actual.push_back({std::to_string(grid.rowId(row)), date, grid.cell(row, 1), grid.cell(row, 2),
                        grid.cell(row, 3)});
    }
    same("the list of vouchers", listOf(world_[journalOf_]), actual);
  }
};

}  // namespace quillet::support
