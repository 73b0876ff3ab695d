// The home form at a station, and what is asked there about a year.
#pragma once

#include <string>

#include "home/third.h"
#include "server/stations_fixture.h"

namespace quillet::support {

class StationYearsTest : public StationsTest {
 protected:
  static third& choose(Station& station, Button third::*command, const std::string& client) {
    third& form = theHome(station.context());
    form.show();
    form.click(form.*command);
    for (int row = 1; row <= form.ClGrd1.rows(); ++row) {
      if (form.ClGrd1.TextMatrix(row, 0) == client) form.ClGrd1.setCurrent(row);
    }
    form.doubleClick(form.ClGrd1);
    return form;
  }
  static void typeDate(third& form, int firstYear) {
    form.focus(form.MaskEdBox1);
    form.MaskEdBox1.clear();
    form.MaskEdBox1.setCaret(0);
    for (const char digit : "0104" + std::to_string(firstYear)) form.press(static_cast<Key>(digit));
    form.press(keys::Enter);
  }
  static void typeYear(third& form, int firstYear) {
    typeDate(form, firstYear);
    form.press(keys::Enter);
  }
  // Two years, the later one with a line; the next one is the third.
  static void addFilled(const std::string& client) {
    for (const int year : {2007, 2008}) anna().addYear(client, year);
    anna().open(client, 2008);
    anna().enter("Before", "RENT", "8");
    anna().leave();
  }
  static std::string held(const std::string& client) {
    return anna().value("select group_concat(Yr) from SuitePresence where Code_No='" + client +
                        '\'');
  }
  static std::string told(Station& station) {
    std::string texts;
    for (const auto& each : station.dialogs.takeMessages()) texts += each.message.text + '\n';
    return texts;
  }
  // Ben opens the year, and enters a line if it can be had.
  static void openedByBen(const std::string& client, int firstYear, Answer takeOver) {
    ben().dialogs.answering = [&](const Message& message) {
      return message.text.find("open at") != std::string::npos ? takeOver : Answer::No;
    };
    frmcrtb& editor = ben().open(client, firstYear);
    EXPECT_NE(told(ben()).find("open at"), std::string::npos);
    EXPECT_EQ(editor.txtpart.enabled(), takeOver == Answer::Yes);
    if (takeOver == Answer::Yes) ben().enter("Of Ben", "RENT", "55");
    ben().leave();
    ben().dialogs.answering = {};
  }
  static std::string sumOf(const std::string& client, const std::string& table) {
    return anna().value("select round(sum(amt)) from " + table + " where code_no='" + client +
                        '\'');
  }
};

}  // namespace quillet::support
