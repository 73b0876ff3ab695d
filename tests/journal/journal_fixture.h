// The journal open on a client's year, with one more client in the same tables.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "data/text.h"
#include "journal/frmjrnl.h"
#include "masters/frmgrpmas.h"
#include "support/practice.h"

namespace quillet::support {

// A line of a voucher as a person enters it: a positive amount is a debit.
struct Entered {
  std::string ledger;
  std::string group;
  std::string amount;
  bool debit = true;
};

class JournalTest : public PracticeTest {
 protected:
  // The groups' ids are the positions in which they are made here: 1, 2, 3, 4.
  JournalTest() {
    addClient("C1", "Asha Traders");
    addClient("C2", "Neighbour & Co");
    for (const char* name : {"BANKS", "CAPITAL", "RENT", "SALES"}) group(name, 1);
  }
  ~JournalTest() override {
    if (!form_) return;
    dialogs.clear();
    if (form_->visible()) yes();
    form_->close();
  }

  frmjrnl& journal() { return *form_; }
  frmjrnl& open(const std::string& client, int firstYear, bool previousYear = false) {
    if (form_ && form_->visible()) close();
    select(client, firstYear);
    form_ = std::make_unique<frmjrnl>(context());
    form_->INITDATA(context().table, previousYear);
    form_->show();
    statements();
    return *form_;
  }
  void close() {
    yes();
    ASSERT_TRUE(form_->close());
    messages();
  }

  using PracticeTest::type;
  static void type(MaskBox& box, const std::string& digits) {
    ASSERT_TRUE(box.form().focus(box)) << box.name();
    box.clear();
    for (const char32_t c : charactersOf(digits)) box.form().press(c);
  }
  // Fills the line in and leaves the focus in its amount box.
  void fillLine(int line, const Entered& entered) {
    frmjrnl& j = journal();
    j.focus(j.cboside[line]);
    j.cboside[line].choose(entered.debit ? 2 : 1);
    type(j.txtledger[line], entered.ledger);
    j.press(keys::Tab);
    if (!entered.group.empty()) type(j.txtgroup[line], entered.group);
    type(entered.debit ? j.txtdramt[line] : j.txtcramt[line], entered.amount);
  }
  void fillVoucher(const std::string& date, const std::vector<Entered>& lines,
                   const std::string& narration = {}) {
    frmjrnl& j = journal();
    type(j.txtdt, date);
    for (std::size_t i = 0; i < lines.size(); ++i) {
      if (i > 0) j.press(keys::Enter);
      fillLine(static_cast<int>(i), lines[i]);
    }
    if (!narration.empty()) type(j.txtnarr, narration);
  }
  void pass(const std::string& date, const std::vector<Entered>& lines,
            const std::string& narration = {}) {
    ASSERT_TRUE(journal().click(journal().cmdadd));
    fillVoucher(date, lines, narration);
    ASSERT_TRUE(journal().click(journal().cmdupdate));
    ASSERT_TRUE(journal().Frame1.visible()) << "the voucher was not saved";
  }
  void yes() { dialogs.queueAnswer(Answer::Yes); }
  void no() { dialogs.queueAnswer(Answer::No); }
  // The first voucher, onto the entry frame.
  void modifyFirst() {
    pick(1);
    journal().press(keys::Enter);
  }
  // Its first line a debit, its second a credit.
  void changeAmounts(const std::string& amount) {
    type(journal().txtdramt[0], amount);
    type(journal().txtcramt[1], amount);
    ASSERT_TRUE(journal().click(journal().cmdupdate));
  }
  void giveUp() {
    yes();
    journal().press(keys::Escape);
  }
  void removeFirst() {
    pick(1);
    yes();
    journal().press(keys::Delete);
    messages();
  }
  void mergeGroup(const std::string& name, const std::string& target) {
    frmgrpmas groups(context());
    groups.showModal();
    groups.click(groups.cmdMerge);
    groups.vsM.tick(groups.vsM.find(0, name), true);
    groups.vsMW.setCurrent(groups.vsMW.find(0, target));
    for (int answers = 0; answers < 2; ++answers) yes();
    groups.click(groups.cmdMergeGroup);
    EXPECT_EQ(messages().back(), "Merge Successfully.");
    groups.close();
  }
  // A line of a voucher behind the journal's back.
  void put(long vid, int line, const std::string& ledgerName, const std::string& groupName,
           double amount, const std::string& narration = {}, const std::string& client = "C1",
           const std::string& date = "2008-06-02") {
    exec("insert into JRNL_1 values('" + client + "'," + std::to_string(vid) + ',' +
         std::to_string(line) + ",'" + date + "'," + std::to_string(ledger(ledgerName)) + ',' +
         std::to_string(group(groupName)) + ',' + std::to_string(amount) + ",'" + narration + "')");
  }
  void pick(int row) {
    journal().focus(journal().vsf);
    journal().vsf.setCurrent(row);
  }

  static void append(Texts& all, const Texts& more) {
    all.insert(all.end(), more.begin(), more.end());
  }
  // Each statement with the flush that follows it.
  static Texts flushed(const Texts& statements) {
    Texts all;
    for (const std::string& sql : statements) append(all, {sql, "Flush Tables"});
    return all;
  }
  // The statements that make the scratch tables.
  static Texts scratchTables(const std::string& columns) {
    Texts all;
    for (const std::string table : {"Ledger_Temp1", "Ledger_Temp"}) {
      append(all, {"Drop Table If Exists " + table,
                   "Create Table If Not Exists " + table + " " + columns, "Delete from " + table});
    }
    return flushed(all);
  }
  Rows scratchLeft() { return rows("show tables like 'ledger_temp%'"); }
  // " from {table} ... where " with the names of its rows.
  static std::string namesOf(const std::string& table) {
    return " from " + table + " LEFT JOIN mast_part ON " + table +
           ".partid=mast_part.partid LEFT JOIN mast_allgrp on " + table +
           ".allid=mast_allgrp.allid where ";
  }

  // srno, ledger, group, amt, nid.
  Rows trialBalance(const std::string& table, const std::string& client = "C1") {
    return rows("select srno,particular,allgrp,amt,nid from " + table +
                " t join Mast_Part p on p.partid=t.partid join Mast_AllGrp g on g.allid=t.allid "
                "where code_no='" +
                client + "' order by srno");
  }

 private:
  std::unique_ptr<frmjrnl> form_;
};

}  // namespace quillet::support
