// A practice with two clients, its home form and its deletion form, and rows in every table that
// hangs on a year.
#pragma once

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "data/text.h"
#include "deletion/frmdelwhatinTB.h"
#include "home/third.h"
#include "suite/schema_tables.h"
#include "support/practice.h"

namespace quillet::support {

class YearsTest : public PracticeTest {
 protected:
  YearsTest() {
    addClient("C1", "Asha Traders");
    addClient("C2", "Neighbour & Co");
  }

  third& home() {
    auto& form = static_cast<third&>(*practice.forms().ObjThird());
    form.show();
    return form;
  }
  frmdelwhatinTB& deletion() {
    Form* form = context().openForms.find("frmdelwhatinTB");
    if (!form) throw std::runtime_error("the deletion form is not open");
    return static_cast<frmdelwhatinTB&>(*form);
  }
  bool deletionOpen() { return context().openForms.find("frmdelwhatinTB") != nullptr; }

  // A command, then the client of that code.
  third& choose(Button third::*command, const std::string& client) {
    third& form = home();
    form.click(form.*command);
    form.ClGrd1.search("");
    for (int row = 1; row <= form.ClGrd1.rows(); ++row) {
      if (form.ClGrd1.TextMatrix(row, 0) == client) form.ClGrd1.setCurrent(row);
    }
    form.doubleClick(form.ClGrd1);
    return form;
  }
  static void type(MaskBox& box, const std::string& text) {
    ASSERT_TRUE(box.form().focus(box)) << box.name();
    box.clear();
    box.setCaret(0);
    for (const char32_t c : charactersOf(text)) box.form().press(c);
  }
  // Both dates, then Enter; an empty second date takes the one proposed.
  static void typeYear(third& form, const std::string& first, const std::string& second = {}) {
    type(form.MaskEdBox1, first);
    if (second.empty()) {
      form.press(keys::Enter);
    } else {
      type(form.MaskEdBox2, second);
    }
    form.press(keys::Enter);
  }
  std::string tab(long count) { return "TAB_" + host().GETTBNAME(count); }
  std::string jrnl(long count) { return "JRNL_" + host().GETTBNAME(count); }
  void answer(std::initializer_list<Answer> answers) {
    for (const Answer each : answers) dialogs.queueAnswer(each);
  }

  // Everything of C1 in the first two tables, and its years.
  void emptyClient() {
    exec("delete from master where code_no='C1'");
    for (const long each : {1, 2}) exec("delete from " + tab(each) + " where code_no='C1'");
  }
  Rows registry(const std::string& client = "C1") {
    return rows("select f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr from master where code_no='" +
                client + "' order by s_yr");
  }
  Rows lines(const std::string& table) {
    return rows("select srno,code_no,partid,allid,amt,nid from " + table +
                " where code_no='C1' order by srno");
  }
  Rows registryAndLines(const std::string& table) {
    Rows all = registry();
    for (const auto& line : lines(table)) all.push_back(line);
    return all;
  }
  // The year that an existing one is created or merged over, with the option of that number.
  void overwrite(third& form, int option, const std::string& first = "01/04/2008") {
    answer({Answer::Yes});
    typeYear(form, first);
    deletion().click(deletion().optMain[option]);
    answer({Answer::Yes});
  }

  // What the context says is being worked on.
  Texts inWork() {
    return {context().clientCode, context().table, context().firstDate, context().secondDate};
  }
  // The deletion form, opened from the home form for the client's only or last year.
  frmdelwhatinTB& openDeletion(const std::string& client = "C1") {
    third& form = choose(&third::mnudelete, client);
    answer({Answer::Yes});
    form.press(keys::Enter);
    messages();
    statements();
    return deletion();
  }
  // The whole way, with one of the three main options.
  void remove(int option, const std::string& client = "C1") {
    frmdelwhatinTB& box = openDeletion(client);
    box.click(box.optMain[option]);
    answer({Answer::Yes});
    box.click(box.cmddelete);
  }

  // Either a year as the registry has it, or none.
  bool inWorkWhole() {
    const std::string code = host().TruncVarSQL(context().clientCode);
    const auto registered =
        rows("select code_no,tbl_nm,f_yr,s_yr from master where code_no='" + code + "'");
    return inWork() == Texts{context().clientCode, "", "", ""} ||
           std::find(registered.begin(), registered.end(), inWork()) != registered.end();
  }

  // One row for the client in every table that hangs on a year, but for the trial balance itself.
  // Without a chart there are none in the tables that tell whether there is one; the others may
  // hold some all the same.
  void hangOn(const std::string& client, const std::string& suffix, int year, long count,
              bool chart = true) {
    static const std::set<std::string> chartTables{"FIXED_", "NewFATRo", "NewFATRa"};
    const std::string code = "'" + host().TruncVarSQL(client) + "'";
    for (const auto& table : suite::yearTables(suffix)) {
      const std::string prefix = table.name.substr(0, table.name.size() - suffix.size());
      if (prefix == "TAB_" || (!chart && chartTables.contains(prefix))) continue;
      exec("insert into " + table.name + "(code_no) values(" + code + ")");
    }
    for (const auto& [table, column] : keyedTables()) {
      const long key = column == "RCOUNT" ? count : year;
      exec("insert into " + table + "(code_no," + column + ") values(" + code + "," +
           std::to_string(key) + ")");
    }
  }
  // How many rows of the client each table holds that holds any; those kept by year or number with
  // that key in their name.
  std::map<std::string, long> held(const std::string& client) {
    const std::string code = "'" + host().TruncVarSQL(client) + "'";
    std::map<std::string, long> rowsOf;
    std::string sql;
    for (long n = 1; n <= tableNumbers; ++n) {
      for (const auto& table : suite::yearTables(host().GETTBNAME(n))) {
        sql += "select '" + table.name + "',count(*) from " + table.name +
               " where binary code_no=" + code + " union all ";
      }
    }
    for (const auto& [table, column] : keyedTables()) {
      sql += "select concat('" + table + " '," + column + "),count(*) from " + table +
             " where binary code_no=" + code + " group by " + column + " union all ";
    }
    for (const auto& row : rows(sql + "select '',0")) {
      if (row[1] != "0") rowsOf[row[0]] = std::stol(row[1]);
    }
    for (const auto& row : rows("select f_yr from master where binary code_no=" + code)) {
      rowsOf["master " + row[0]] += 1;
    }
    return rowsOf;
  }

 private:
  // Tables kept by year or by the number in the registry, and the column that says so.
  static const std::map<std::string, std::string>& keyedTables() {
    static const std::map<std::string, std::string> tables = [] {
      std::map<std::string, std::string> found;
      for (const auto& table : suite::sharedTables()) {
        for (const auto& column : table.columns) {
          const bool key = column.name == "FYear" || column.name == "FYr" || column.name == "Yr" ||
                           column.name == "RCOUNT";
          if (key && !table.name.starts_with("Suite")) found[table.name] = column.name;
        }
      }
      return found;
    }();
    return tables;
  }
};

}  // namespace quillet::support
