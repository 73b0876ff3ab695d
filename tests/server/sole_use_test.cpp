// What is done with the whole of the books waits until nobody works on them, and keeps the others
// from it meanwhile.
#include "suite/stations/sole_use.h"

#include <gtest/gtest.h>

#include "data/errors.h"
#include "server/real_cluster.h"
#include "server/station.h"
#include "suite/firm_name.h"

namespace quillet::support {
namespace {

class SoleUseTest : public ::testing::Test {
 protected:
  void SetUp() override { NEEDS_REAL_SERVERS(); }
  static constexpr const char* addition =
      "insert into SuiteMisc(Section,Name,Value) values('T','t','1')";
  static constexpr const char* additions = "select count(*) from SuiteMisc where Section='T'";
};

TEST_F(SoleUseTest, IsRefusedAndKeepsOthersOut) {
  RealServer server;
  for (const char* person : {"anna", "ben"}) server.addAccount(person, person);
  Station anna(server, "anna");
  anna.addYear("A1", 2008);
  anna.practice().database().execute("set session innodb_lock_wait_timeout=1");
  auto keeper = suite::Database::connect(server.entrance("ben", "ben"));
  keeper->share();
  const auto begun = [&] {
    try {
      return std::make_unique<suite::SoleUse>(*keeper, "Pruning");
    } catch (const std::runtime_error& error) {
      const std::string told = error.what();
      EXPECT_NE(told.find("anna"), std::string::npos) << told;
      EXPECT_NE(told.find("A1"), std::string::npos) << told;
      return std::unique_ptr<suite::SoleUse>();
    }
  };
  anna.open("A1", 2008);
  EXPECT_EQ(begun(), nullptr);
  anna.leave();
  for (const bool killed : {false, true}) {
    auto alone = begun();
    ASSERT_NE(alone, nullptr);
    EXPECT_THROW(anna.change(addition), RunTimeError);
    const auto notices = anna.notices();
    ASSERT_EQ(notices.size(), 1U);
    EXPECT_NE(notices[0].find("Pruning is under way, by ben at "), std::string::npos) << notices[0];
    EXPECT_EQ(anna.value(additions), killed ? "1" : "0");
    if (killed) server.root().execute("kill user ben");
    alone.reset();
    anna.change(addition);
    EXPECT_EQ(anna.value(additions), killed ? "2" : "1");
    EXPECT_TRUE(anna.notices().empty());
  }
}

TEST_F(SoleUseTest, TheFirmHasOneNameAtAllStations) {
  RealServer server;
  for (const char* person : {"anna", "ben"}) server.addAccount(person, person);
  Station anna(server, "anna");
  Station ben(server, "ben");
  ben.practice().settings().setCompanyName("Of the station");
  EXPECT_EQ(ben.practice().service().COMPANY_NAME(), "Of the station");
  anna.act([&] { suite::FirmName(anna.practice().settings(), anna.unit()).set("Rao & Co"); });
  EXPECT_EQ(ben.practice().service().COMPANY_NAME(), "Rao & Co");
  EXPECT_EQ(anna.practice().settings().companyName(), "");
}

// Two stations on two nodes: what one has stored the other reads at once, and both are told.
TEST_F(SoleUseTest, StationsOnDifferentNodesAreTold) {
  RealCluster cluster;
  for (const char* person : {"anna", "ben"}) cluster.node(0).addAccount(person, person);
  Station anna(cluster.node(0), "anna");
  Station ben(cluster.node(1), "ben");
  for (int i = 1; i <= 20; ++i) {
    Station& writer = i % 2 == 0 ? anna : ben;
    Station& reader = i % 2 == 0 ? ben : anna;
    writer.change(addition);
    EXPECT_EQ(reader.value(additions), std::to_string(i));
  }
  const auto notices = anna.notices();
  ASSERT_EQ(notices.size(), 1U);
  EXPECT_NE(notices[0].find("Another station works on the node"), std::string::npos) << notices[0];
  EXPECT_NE(notices[0].find(std::to_string(cluster.node(1).port())), std::string::npos);
}

}  // namespace
}  // namespace quillet::support
