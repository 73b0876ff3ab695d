// An editor open on a client's year, with one more client in the same tables.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "data/text.h"
#include "editor/frmcrtb.h"
#include "home/third.h"
#include "support/practice.h"

namespace quillet::support {

class EditorTest : public PracticeTest {
 protected:
  EditorTest() {
    addClient("C1", "Asha Traders");
    addClient("C2", "Neighbour & Co");
    exec(
        "insert into mast_gunder values (1,'Capital',2),(9,'Banks',1),(22,'Expenses',4),"
        "(15,'Sales',3)");
    group("CAPITAL", 1);
    group("BANKS", 9);
    group("RENT", 22);
    group("SALES", 15);
  }

  frmcrtb& open(const std::string& client, int firstYear) {
    select(client, firstYear);
    auto& form = static_cast<frmcrtb&>(*practice.forms().ObjCreate());
    form.close();
    form.show();
    statements();
    return form;
  }

  static void fill(frmcrtb& form, const std::string& ledger, const std::string& group,
                   const std::string& amount, const std::string& side) {
    type(form.txtpart, ledger);
    type(form.txtgroup, group);
    type(form.txtamount, amount);
    type(form.txtdrcr, side);
  }
  static void enter(frmcrtb& form, const std::string& ledger, const std::string& group,
                    const std::string& amount, const std::string& side) {
    fill(form, ledger, group, amount, side);
    form.press(keys::Enter);
  }

  void yes() { dialogs.queueAnswer(Answer::Yes); }
  static void pick(frmcrtb& form, const std::string& ledger) {
    form.vsfm.setCurrent(form.vsfm.find(0, ledger));
  }
  static void alter(frmcrtb& form, const std::string& ledger, const std::string& amount) {
    pick(form, ledger);
    form.click(form.mnualter);
    type(form.txtamount, amount);
    form.focus(form.txtdrcr);
    form.press(keys::Enter);
  }
  void remove(frmcrtb& form, const std::string& ledger) {
    pick(form, ledger);
    yes();
    form.click(form.mnudelete);
  }
  // In the group view, up to the last click.
  void chooseMove(frmcrtb& form, const std::string& from, const std::string& to) {
    form.cbogroup.choose(form.cbogroup.find(from));
    form.cbotgroup.choose(form.cbotgroup.find(to));
    yes();
  }
  void lookIntoJournal(frmcrtb& form) {
    form.click(form.mnujournal);
    Form* journal = form.openForms().find("frmjrnl");
    if (!journal) return;
    yes();
    journal->close();
  }
  // A line of C1 behind the form's back; the figures are amount and side.
  void put(const std::string& table, const std::string& srno, const std::string& ledgerName,
           const std::string& groupName, const std::string& figures) {
    exec("insert into " + table + " values(" + srno + ",'C1'," +
         std::to_string(ledger(ledgerName)) + "," + std::to_string(group(groupName)) + "," +
         figures + ")");
  }
  static Rows joined(const std::vector<Rows>& parts) {
    Rows all;
    for (const Rows& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
  }

  // All that the form's controls hold, shown or not, by their names.
  static Rows held(const Form& form) {
    Rows all{{form.caption()}};
    for (const Control* control : form.controls()) {
      auto& cells = all.emplace_back(std::vector<std::string>{control->name(), control->text()});
      if (const auto* choice = dynamic_cast<const Choice*>(control)) {
        cells.insert(cells.end(), choice->items().begin(), choice->items().end());
      }
      const auto* grid = dynamic_cast<const Grid*>(control);
      for (auto& row : grid ? shown(*grid) : Rows{}) {
        cells.insert(cells.end(), row.begin(), row.end());
      }
    }
    return all;
  }
  // What of it contains the text.
  static Rows holding(const Form& form, const std::string& text) {
    Rows found = held(form);
    std::erase_if(found, [&](const auto& cells) {
      return std::none_of(cells.begin(), cells.end(), [&](const std::string& cell) {
        return cell.find(text) != std::string::npos;
      });
    });
    return found;
  }

  // What the grid of lines has to show of a year, in the order of their serial numbers.
  Rows toBeShown(const std::string& table) {
    Rows lines;
    for (const auto& line : stored(table)) {
      lines.push_back({line[1], line[2], host().formatgen(std::stod(line[3]), "###0.00"),
                       line[4] == "2" ? "CR" : "DR"});
    }
    return lines;
  }
  static Rows totals(const frmcrtb& form, int year = 0) {
    return {{form.txttotdeb[year].text(), form.txttotcr[year].text()}};
  }

  Rows totalsToBeShown(const std::string& table) {
    double sums[2] = {};
    for (const auto& line : stored(table)) sums[line[4] == "2"] += std::stod(line[3]);
    return {{host().formatgen(sums[0], "#,##0.00"), host().formatgen(sums[1], "#,##0.00")}};
  }

  Rows stored(const std::string& table, const std::string& client = "C1") {
    return rows("select srno,particular,allgrp,amt,nid from " + table +
                " t join mast_part p on p.partid=t.partid join mast_allgrp g on g.allid=t.allid "
                "where code_no='" +
                client + "' order by srno");
  }
};

// The editor is open on a year of the client C1.
class EntryTest : public EditorTest {
 protected:
  EntryTest() : table(addYear("C1", 2008)), form(open("C1", 2008)) {}

  using EditorTest::stored;
  Rows stored() { return stored(table); }

  std::string table;
  frmcrtb& form;
};

}  // namespace quillet::support
