// Bringing a year forward by its books: two clients, groups of every kind, what is offered and what
// the check of the opening tells.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "books/forward_entry.h"
#include "books/opening_check.h"
#include "controls/acts.h"
#include "support/practice.h"

namespace quillet::support {

class BringForwardTest : public PracticeTest {
 protected:
  BringForwardTest() {
    addClient("C1", "Asha Traders");
    addClient("C2", "Neighbour & Co");
    for (const auto& [name, primary] : {std::pair{"CAPITAL", 1},
                                        {"BANKS", 9},
                                        {"SALES", 15},
                                        {"RENT", 22},
                                        {"OS RM", 18},
                                        {"OS GOODS", 18},
                                        {"PURCHASES", 19},
                                        {"DEPRECIATION", 29},
                                        {"CS RM", 7},
                                        {"CS GOODS", 7}}) {
      group(name, primary);
    }
  }
  // Ledger, group and amount; the binding leads from the group of closing to that of opening stock.
  std::string oldYear(const std::vector<Line>& lines, const std::vector<Line>& stock = {},
                      const std::vector<std::pair<const char*, const char*>>& bound = {}) {
    const std::string table = addYear("C1", 2007, lines);
    for (const Line& line : stock) {
      exec("insert into TRADE" + table.substr(3) + "(code_no,partid,allid,amt) values('C1'," +
           std::to_string(ledger(line.ledger)) + ',' + std::to_string(group(line.group)) + ',' +
           std::to_string(line.amount) + ')');
    }
    for (const auto& [closing, opening] : bound) {
      exec("insert into RMGRP" + table.substr(3) + " values('C1',1,1," +
           std::to_string(group(opening)) + ",0,0," + std::to_string(group(closing)) + ",1)");
    }
    return table;
  }
  ForwardBooks read() {
    return readForwardBooks(
        host(), *Registry(host()).year("C1", {"01042007", "31032008"}, YearSelect::home));
  }
  std::string nameOfLine(const OpeningLine& line) {
    return line.pair.partId == 0 ? line.ledger : host().GetPart_MastPartId(line.pair.partId);
  }
  // All that is taken without a choice of a person.
  ForwardEnd bring(const ForwardBooks& books) {
    std::vector<ForwardEntry::Taken> lines;
    const Opening opening = openingOf(books.closing, books.choices);
    for (const OpeningChange& change : openingChanges(opening, books.year)) {
      lines.push_back({change, change.takenFirst});
    }
    const Act act(context().openForms.acts);
    return ForwardEntry(host(), books).run(std::move(lines), books.choices, "2008-04-02 10:00");
  }
  Rows year(const std::string& table) {
    return rows("select particular,allgrp,amt,nid from " + table +
                " t join Mast_Part p on p.PartId=t.partid join Mast_AllGrp g on g.ALLID=t.allid "
                "where code_no='C1' order by srno");
  }
  // What is offered: ledger, state, what stands, what would stand, whether it is taken by itself.
  Rows offered() {
    const ForwardBooks books = read();
    Rows found;
    const Opening opening = openingOf(books.closing, books.choices);
    for (const OpeningChange& change : openingChanges(opening, books.year)) {
      if (!change.offered) continue;
      found.push_back({nameOfLine(change.line), quillet::nameOf(change.state),
                       std::to_string(change.standing.paise()),
                       std::to_string(change.after.paise()), change.takenFirst ? "taken" : ""});
    }
    return found;
  }
  Rows check() {
    Rows found;
    for (const auto& each : checkOpening(host(), "C1", {"01042008", "31032009"}).differences) {
      found.push_back({each.ledger, each.group, std::to_string(each.closing.paise()),
                       std::to_string(each.opening.paise())});
    }
    return found;
  }
  void set(const std::string& table, const std::string& ledgerName, const std::string& amount) {
    exec("update " + table + " set amt=" + amount +
         " where code_no='C1' and partid=" + std::to_string(ledger(ledgerName)));
  }
};

}  // namespace quillet::support
