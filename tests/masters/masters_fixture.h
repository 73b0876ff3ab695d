// Two clients who share the per-year tables, their neighbours' groups and ledgers, and the hands of
// a person at a master's form.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "data/text.h"
#include "masters/frmgrpmas.h"
#include "masters/frmtbledmas.h"
#include "support/practice.h"

namespace quillet::support {

class MastersTest : public PracticeTest {
 protected:
  using Texts = std::vector<std::string>;
  using Act = std::function<void()>;

  MastersTest() {
    addClient("C1", "Asha Traders");
    addClient("O'C2", "Neighbour & Co");
    exec(
        "insert into mast_gunder values (1,'CAPITAL',2),(7,'CLOSING STOCK',1),"
        "(18,'OPENING STOCK',4),(19,'PURCHASES',4),(22,'EXPENSES',4)");
  }

  using Answers = std::initializer_list<Answer>;
  static constexpr Answer yes = Answer::Yes;
  static constexpr Answer no = Answer::No;
  void answer(Answers answers) {
    for (const Answer each : answers) dialogs.queueAnswer(each);
  }
  void press(Form& form, Control& button, Answers answers = {}) {
    answer(answers);
    EXPECT_TRUE(form.click(button)) << button.name() << " cannot be clicked";
  }
  // A row of a year's table; what else it holds does not matter.
  void use(const std::string& table, const std::string& ledgerId, const std::string& groupId,
           const std::string& client = "'C1'") {
    exec("insert into " + table + "(code_no,partid,allid) values(" + client + "," + ledgerId + "," +
         groupId + ")");
  }
  void fail(const std::string& statement) { host().statements().failNext(statement); }
  static void choose(Choice& choice, const std::string& text) {
    ASSERT_TRUE(choice.enabled()) << choice.name();
    ASSERT_GT(choice.find(text), 0) << text;
    choice.choose(choice.find(text));
  }
  // Makes the first row with that cell the current one.
  static void pick(Grid& grid, int column, const std::string& text) {
    ASSERT_GT(grid.find(column, text), 0) << text;
    grid.setCurrent(grid.find(column, text));
  }
  static void pickId(Grid& grid, long id) {
    ASSERT_GT(grid.findId(id), 0) << id;
    grid.setCurrent(grid.findId(id));
  }
  // Statements since the last call that hold the text.
  Texts statementsWith(const std::string& text) {
    Texts found;
    for (const std::string& sql : statements()) {
      if (upperCase(sql).find(upperCase(text)) != std::string::npos) found.push_back(sql);
    }
    return found;
  }
  // Those that change data.
  Texts changes() {
    Texts found;
    for (const std::string& sql : statements()) {
      const std::string verb = upperCase(sql.substr(0, 4));
      if (verb != "SELE" && verb != "SHOW") found.push_back(sql);
    }
    return found;
  }
  // Closes the form, giving up an entry that was begun.
  void leave(Form& form) {
    answer({yes});
    form.close();
    dialogs.clear();
  }
  // Remembers tables as they stand now, and brings them back.
  void keep(const Texts& tables) {
    for (const std::string& table : kept_ = tables) {
      exec("create or replace temporary table kept_" + table + " as select * from " + table);
    }
  }
  void restore() {
    for (const std::string& table : kept_) {
      exec("delete from " + table);
      exec("delete history from " + table);  // numbers begin anew
      exec("insert into " + table + " select * from kept_" + table);
    }
  }
  // The only message since the last call, "" when there is none, with its style: "text|buttons icon
  // default|title".
  std::string onlyMessage() {
    const auto asked = dialogs.takeMessages();
    if (asked.empty()) return {};
    if (asked.size() > 1) return std::to_string(asked.size()) + " messages";
    return styled(asked[0].message);
  }
  static std::string styled(const Message& message) {
    return message.text + "|" + std::string(suite::nameOf(message.buttons)) + " " +
           std::string(suite::nameOf(message.icon)) + " " +
           std::string(suite::nameOf(message.defaultAnswer)) + "|" + message.title;
  }
  // What a person saw of the action's progress: its last text, how far the bar came of how much,
  // and whether it moved in between.
  std::string progressOf(const std::function<void()>& action) {
    const long before = frontEnd.updates;
    action();
    EXPECT_FALSE(frontEnd.busy);
    return frontEnd.progress + " " + std::to_string(frontEnd.done) + " of " +
           std::to_string(frontEnd.total) + (frontEnd.updates - before > 2 ? " moving" : "");
  }
  static constexpr const char* unsearched =
      "The search failed; the error log says why. Nothing was deleted.";

 private:
  Texts kept_;
};

// The tests of one master.
template <class Master>
class MasterTest : public MastersTest {
 protected:
  using MastersTest::press;
  void open() {
    form.showModal([this] { ++closed; });
    statements();
  }
  void press(Control& button, Answers answers = {}) { press(form, button, answers); }
  // What is said on the click or key; see onlyMessage.
  std::string said(Control& button, Answers answers = {}) {
    press(button, answers);
    return onlyMessage();
  }
  std::string said(Key key, Answers answers = {}) {
    answer(answers);
    form.press(key);
    return onlyMessage();
  }
  void pressFailing(const std::string& statement, Control& button) {
    fail(statement);
    press(button);
  }
  const std::string& status() { return form.lblstatus.caption(); }
  std::string told(const std::string& text) {
    return text + "|OK information OK|" + form.caption();
  }
  std::string asked(const std::string& text, const std::string& title = {}) {
    return text + "|YesNo question No|" + (title.empty() ? form.caption() : title);
  }
  // The current row's cell, its name when no other is asked for.
  std::string current(int column = 0) {
    return form.vsf.current() == 0 ? "" : form.vsf.cell(form.vsf.current(), column);
  }
  // The first cells shown.
  static Texts listed(const Grid& grid) {
    Texts all;
    for (const auto& row : shown(grid)) all.push_back(row[0]);
    return all;
  }

  // What a person does, by the last button of it.
  struct Deed {
    std::string what;
    Act arrange;
    Button& button;
    int questions = 1;                               // answered with Yes
    std::size_t behind = 0;                          // statements at the end that read anew
    std::function<void(const Act& act)> again = {};  // the repetition, where it is another
    bool repeats = true;
  };
  // Each statement of the deed fails once. The deed done again ends as it does without a failure.
  void failEach(const Deed& deed, const std::function<Rows()>& result, const Act& check) {
    const Act act = [&] {
      for (int i = 0; i < deed.questions; ++i) answer({yes});
      if (deed.button.enabled()) press(deed.button);
    };
    const auto begin = [&] {
      leave(form);
      restore();
      open();
      deed.arrange();
    };
    const auto again = [&] { deed.again ? deed.again(act) : act(); };
    std::vector<Continuation> next;
    if (deed.repeats) next.push_back({"the same again", again});
    failEachStatement({.what = deed.what,
                       .arrange = begin,
                       .act = act,
                       .result = result,
                       .next = next,
                       .place = form.name() + "\t",
                       .stops = false,
                       .behind = deed.behind,
                       .check = check});
  }

  Master form{context()};
  int closed = 0;
};

// Five ledgers, four of them used by two clients in as many ways.
class LedgerMasterTest : public MasterTest<frmtbledmas> {
 protected:
  enum Option { notInUse, inUse, everything };

  LedgerMasterTest() {
    addYear("C1", 2008, {{"RENT", "G", 100}, {"CASH", "G", -100}});
    addYear("O'C2", 2008, {{"RENT", "G", 300}});
    addYear("C1", 2009);
    for (const char* name : {"RENT", "CASH", "ALPHA", "BETA", "GAMMA"}) ledger(name);
    use("JRNL_2", id("ALPHA"), "1");
    use("TRADE_1", id("BETA"), "1", "'O\\'C2'");
    exec("insert into master(code_no,tbl_nm) values('C1','')");
  }
  std::string id(const std::string& name) { return std::to_string(ledger(name)); }
  void pickLedger(const std::string& name) { pick(form.vsf, 0, name); }
  std::string enter(const std::string& name, Answers answers = {}) {
    type(form.VTxt1, name);
    return said(form.cmdupdate, answers);
  }
  std::string add(const std::string& name) {
    press(form.cmdadd);
    return enter(name);
  }
  void modify(const std::string& name) {
    pickLedger(name);
    press(form.cmdmodify);
  }
  // Opens the link view for the target.
  void link(const std::string& target, const Texts& ticked = {}) {
    pickLedger(target);
    press(form.cmdlink);
    for (const std::string& name : ticked) tick(name);
  }
  void tick(const std::string& name) { form.vsf.tick(form.vsf.find(0, name), true); }
  std::string useOf(const std::string& name) { return form.vsf.cell(form.vsf.find(0, name), 1); }
  void choose(Option option) { press(form.Option1[option]); }
  Texts names() {
    Texts all;
    for (const auto& row : rows("select Particular from Mast_Part order by PartId")) {
      all.push_back(row[0]);
    }
    return all;
  }
  Texts listed() { return MasterTest::listed(form.vsf); }
  // The statements that put a ledger into every table of both years.
  static Texts updates(const std::string& change, const Texts& behind) {
    Texts sent;
    for (const char* table : {"TAB_1", "JRNL_1", "TRADE_1", "TAB_2", "JRNL_2", "TRADE_2"}) {
      sent.push_back("Update " + std::string(table) + change);
    }
    sent.insert(sent.end(), behind.begin(), behind.end());
    return sent;
  }
};

// A predefined group and three others, one of which two clients use.
class GroupMasterTest : public MasterTest<frmgrpmas> {
 protected:
  GroupMasterTest() {
    group("FIXED GROUP", 1, true);
    rent = std::to_string(group("RENT", 22));
    fares = std::to_string(group("FARES", 22));
    post = std::to_string(group("POSTAGE", 22));
    addYear("C1", 2008, {{"Office Rent", "RENT", 100}});
    addYear("O'C2", 2008, {{"Shop Rent", "RENT", 300}});
    addYear("C1", 2009);
  }
  void beginMerge(const Texts& groups, const std::string& target) {
    press(form.cmdMerge);
    for (const std::string& name : groups) form.vsM.tick(form.vsM.find(0, name), true);
    pick(form.vsMW, 0, target);
    answer({yes});
  }
  void merge(const std::string& name, const std::string& target) {
    beginMerge({name}, target);
    press(form.cmdMergeGroup);
    press(form.cmdMergeBack);
  }
  void pickGroup(const std::string& name) { pick(form.vsf, 0, name); }
  std::string enter(const std::string& name, const std::string& under = {}) {
    type(form.Text1, name);
    if (!under.empty()) choose(form.Combo1, under);
    return said(form.cmdupdate);
  }
  void add(const std::string& name) {
    press(form.cmdadd);
    EXPECT_EQ(enter(name, "EXPENSES"), "");
  }
  void modify(const std::string& name) {
    pickGroup(name);
    press(form.cmdmodify);
  }
  Rows stored() { return rows("select ALLID,GID,ALLGRP,UserGrp from Mast_AllGrp order by ALLID"); }

  std::string rent, fares, post;
};

}  // namespace quillet::support
