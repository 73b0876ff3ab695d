// Two clients who share the per-year tables, their neighbours' groups and ledgers, and the hands of
// a person at a master's form.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/choice.h"
#include "controls/grid.h"
#include "controls/text_box.h"
#include "data/text.h"
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

  static void press(Form& form, Control& button) {
    ASSERT_TRUE(form.click(button)) << button.name() << " cannot be clicked";
  }
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
    dialogs.queueAnswer(Answer::Yes);
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
      exec("insert into " + table + " select * from kept_" + table);
    }
  }
  // The only message since the last call, with its style: "text|buttons icon default|title".
  std::string onlyMessage() {
    const auto asked = dialogs.takeMessages();
    if (asked.size() != 1) return std::to_string(asked.size()) + " messages";
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
  // What the last field of each new line of the error log says: form and procedure.
  Texts errors() {
    Texts places;
    for (const std::string& line : log()) {
      const std::size_t procedure = line.rfind('\t');
      const std::size_t form = line.rfind('\t', procedure - 1);
      places.push_back(line.substr(form + 1));
    }
    return places;
  }

 private:
  Texts kept_;
};

}  // namespace quillet::support
