// A client that another station gives another code, or deletes, while its first year is made here.
#include "server/station_years_fixture.h"
#include "suite/client_register.h"

namespace quillet::support {
namespace {

class FormerCodeTest : public StationYearsTest {
 protected:
  static std::string years(const std::string& client) {
    return anna().value("select group_concat(s_yr) from master where code_no='" + client +
                        "' and s_yr<>''");
  }
};

// A code can be altered, and a client deleted, as long as there is no year.
TEST_F(FormerCodeTest, AClientThatIsAlteredOrDeletedWhileItsFirstYearIsTyped) {
  for (const bool altered : {true, false}) {
    for (const bool looks : {true, false}) {
      SCOPED_TRACE(std::string(altered ? "altered" : "deleted") + (looks ? ", looks" : ""));
      suite::Client client;
      client.code = std::string(altered ? "YW" : "YD") + (looks ? "1" : "2");
      client.name = "Client";
      ben().act([&] { suite::addClient(ben().unit(), client); });
      third& form = choose(anna(), &third::mnucreate, client.code);
      told(anna());
      typeDate(form, 2008);
      suite::Client other = client;
      other.code = "N" + client.code;
      ben().act([&] {
        if (altered) {
          suite::alterClient(ben().unit(), client.code, other, std::nullopt, tableNumbers);
        } else {
          suite::removeClient(ben().unit(), client.code, tableNumbers);
        }
      });
      if (looks) {
        anna().practice().environment().lookAround();
      } else {
        form.press(keys::Enter);
      }
      EXPECT_TRUE(form.Frame3.visible());
      EXPECT_EQ(form.lblstatus.caption(),
                "The client " + client.code +
                    (altered ? " was given the code " + other.code + " meanwhile."
                             : " was deleted meanwhile, or given another code."));
      const std::string current = form.ClGrd1.TextMatrix(form.ClGrd1.Row(), 0);
      EXPECT_EQ(current == other.code, altered) << current;
      EXPECT_EQ(anna().context().table, "");
      EXPECT_EQ(years(client.code), "");
      EXPECT_EQ(told(anna()), "");
      EXPECT_TRUE(anna().notices().empty());
      form.close();
    }
  }
}

// What gets past the form.
TEST_F(FormerCodeTest, AYearOfAFormerCodeIsRefusedByWhatBecameOfIt) {
  suite::Client client;
  client.code = "YF1";
  client.name = "Client";
  ben().act([&] { suite::addClient(ben().unit(), client); });
  client.code = "YF2";
  ben().act([&] { suite::alterClient(ben().unit(), "YF1", client, std::nullopt, tableNumbers); });
  anna().change(
      "insert into master(code_no,tbl_nm,count,f_yr,s_yr) values('YF1','TAB_3',3,'01042009',"
      "'31032010')");
  EXPECT_EQ(years("YF1"), "");
  const auto notices = anna().notices();
  ASSERT_EQ(notices.size(), 1U);
  EXPECT_NE(notices[0].find("The client YF1 was given the code YF2 meanwhile."), std::string::npos)
      << notices[0];
}

}  // namespace
}  // namespace quillet::support
