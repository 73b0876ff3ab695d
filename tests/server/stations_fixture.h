// Two stations, Anna's and Ben's, on the same books: each has a client with a year, and the server
// serves all tests of the program.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "server/station.h"

namespace quillet::support {

// A server with both, and clients with the year 2008 each.
struct TwoStations {
  RealServer server;
  std::unique_ptr<Station> first, second;

  explicit TwoStations(const std::vector<const char*>& clients) {
    for (const char* name : {"anna", "ben"}) server.addAccount(name, name);
    first = std::make_unique<Station>(server, "anna");
    second = std::make_unique<Station>(server, "ben");
    for (const char* client : clients) first->addYear(client, 2008);
  }
  // As the next test finds them.
  void tidy() {
    for (Station* station : {first.get(), second.get()}) {
      station->leave();
      station->notices();
      EXPECT_EQ(station->dialogs.takeFailure().value_or(""), "");
      station->dialogs.answering = {};
      station->dialogs.clear();
    }
  }
};

class StationsTest : public ::testing::Test {
 protected:
  StationsTest() = default;
  // Tests with a client of their own.
  explicit StationsTest(const std::string& client) {
    if (RealServer::absent().empty() &&
        anna().value("select code_no from master where code_no='" + client + '\'').empty()) {
      anna().addYear(client, 2008);
    }
  }
  static TwoStations& books() {
    static TwoStations only({"A1", "B1"});
    return only;
  }
  static Station& anna() { return *books().first; }
  static Station& ben() { return *books().second; }

  void SetUp() override { NEEDS_REAL_SERVERS(); }
  void TearDown() override {
    if (!IsSkipped()) books().tidy();
  }
  // Ben takes the year over, does that, and leaves it.
  static void takeOver(const std::string& client, const std::string& secondDate,
                       const std::function<void()>& deeds) {
    YearLocks& locks = *ben().practice().environment().yearLocks();
    locks.enter(client, secondDate, "", YearLocks::Purpose::show);
    locks.takeOver(client, secondDate);
    deeds();
    locks.leave(client, secondDate);
  }
  static std::string balance(const std::string& client, const std::string& ledger) {
    return anna().value(
        "select sum(if(t.nid=2,-t.amt,t.amt)) from TAB_2 as t join Mast_Part as p on "
        "p.PartId=t.partid where t.code_no='" +
        client + "' and p.Particular='" + ledger + '\'');
  }
};

}  // namespace quillet::support
