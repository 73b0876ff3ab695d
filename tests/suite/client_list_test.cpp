// The register of clients and the two forms that arrange its list.
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/client_columns.h"
#include "suite/client_register.h"
#include "suite/client_selection_form.h"
#include "suite/client_setup_form.h"
#include "suite/passwords.h"
#include "support/practice.h"

namespace quillet::suite {
namespace {

namespace cc = client_columns;
using Rows = std::vector<std::vector<std::string>>;

class ClientListTest : public support::PracticeTest {
 protected:
  void add(const std::function<void(Client&)>& fill) {
    Client client;
    client.code = "C1";
    client.name = "Asha Traders";
    fill(client);
    suite::addClient(practice.database(), client);
  }
  std::string refusal(const std::function<void(Client&)>& fill) {
    try {
      add(fill);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return {};
  }
  template <class F>
  F& shown() {
    return dynamic_cast<F&>(*context().openForms.active());
  }
  std::string setting(const char* key) { return practice.settings().get(cc::section, key); }
};

TEST_F(ClientListTest, ACompanyAndAPersonStandInTheList) {
  add([](Client& c) {
    c.code = " C1 ";
    c.status = "Company";
    c.father = "D'Souza";
    c.born = "1.4.98";
    c.address = "Line 1\nLine 2";
    c.groupCode = "G1";
    c.groupName = "Family";
    c.company = "Holding";
  });
  add([](Client& c) {
    c.code = "P1";
    c.name = "";
    c.first = " Ravi ";
    c.last = "Rao";
  });
  EXPECT_EQ(rows("select * from TempClTbl order by CodeNo"),
            (Rows{{"C1", "Asha Traders", "Company", "D'Souza", "01/04/1998", "Line 1\nLine 2", "G1",
                   "Family", "Holding"},
                  {"P1", "Ravi Rao", "", "", "", "", "", "", ""}}));
  EXPECT_EQ(rows("select code_no,nm,born from Main_Info1 order by code_no"),
            (Rows{{"C1", "Asha Traders", "1998-04-01"}, {"P1", "", "NULL"}}));
  EXPECT_EQ(rows("select * from owner1"), (Rows{{"P1", "Ravi", "", "Rao"}}));

  const Rows list = rows("select * from TempClTbl order by CodeNo");
  exec("delete from TempClTbl");
  completeClientList(practice.database());
  EXPECT_EQ(rows("select * from TempClTbl order by CodeNo"), list);
}

TEST_F(ClientListTest, RefusesWhatIsNoClient) {
  add([](Client&) {});
  const std::pair<const char*, std::function<void(Client&)>> cases[] = {
      {"needs a code", [](Client& c) { c.code = "  "; }},
      {"needs a code", [](Client& c) { c.code = "\u200B\uFEFF"; }},
      {"the code c1 already: C1, Asha Traders.", [](Client& c) { c.code = "c1"; }},
      {": C1, Asha Traders.", [](Client& c) { c.code = "Ｃ\u200B１"; }},
      {"in common", [](Client& c) { c.code = "#?#Common#?#"; }},
      {"in common", [](Client& c) { c.code = "C2", c.groupCode = " #?#COMMON#?# "; }},
      {"needs a name", [](Client& c) { c.code = "C2", c.name = " "; }},
      {"is no date", [](Client& c) { c.code = "C2", c.born = "31/02/2000"; }},
      {"longer than 20", [](Client& c) { c.code = std::string(21, 'x'); }},
      {"longer than 100", [](Client& c) { c.code = "C2", c.name = std::string(101, 'x'); }},
      {"UTF-8", [](Client& c) { c.code = "C2", c.address = "\xFF"; }},
  };
  for (const auto& [says, fill] : cases) {
    EXPECT_NE(refusal(fill).find(says), std::string::npos) << says << ": " << refusal(fill);
  }
  EXPECT_EQ(value("select count(*) from Main_Info1"), "1");
  EXPECT_EQ(value("select count(*) from TempClTbl"), "1");
}

TEST_F(ClientListTest, ThePasswordOfANewClientIsAskedFor) {
  add([](Client& c) { c.password = "secret"; });
  dialogs.queuePassword("secret");
  EXPECT_TRUE(host().CheckClpass("C1"));

  suite::Passwords::set(practice.database(), suite::PasswordKind::client, "C1", "another");
  EXPECT_EQ(value("select count(*) from SuitePassword where Code='C1'"), "1");
  for (const char* typed : {"secret", "secret", "another"}) dialogs.queuePassword(typed);
  EXPECT_TRUE(host().CheckClpass("C1"));
}

TEST_F(ClientListTest, AClientIsNotAddedWithoutItsPassword) {
  exec("rename table SuitePassword to Elsewhere");
  EXPECT_THROW(add([](Client& c) { c.password = "secret"; }), std::runtime_error);
  exec("rename table Elsewhere to SuitePassword");
  EXPECT_EQ(value("select (select count(*) from Main_Info1)+(select count(*) from TempClTbl)"),
            "0");
}

TEST_F(ClientListTest, ColumnSettingsReadBackOrFallBack) {
  const std::string usual = cc::format(cc::defaults());
  const std::pair<const char*, std::string> cases[] = {
      {"code:12,name:40", "code:12,name:40"},
      {" Name : 30 , CODE:8", "name:30,code:8"},
      {"name:40", "code:12,name:40"},
      {"code,name:x,status:-5,born:99999", "code:12,name:40,status:4,born:120"},
      {"code:1,code:2,bogus:3,,:", "code:4"},
      {"", usual},
      {"bogus", usual},
  };
  for (const auto& [setting, means] : cases) {
    EXPECT_EQ(cc::format(cc::parse(setting)), means) << setting;
  }
}

TEST_F(ClientListTest, TheSelectionFormFiltersByStatusAndGroup) {
  add([](Client& c) { c.status = "Company", c.groupCode = "G1"; });
  add([](Client& c) { c.code = "C2", c.status = "Individual"; });
  host().ShowClListSelection("Individual");
  auto& form = shown<frmClSelection>();
  EXPECT_TRUE(form.modal());
  EXPECT_EQ(form.cbostatus.items(), (std::vector<std::string>{"(All)", "Company", "Individual"}));
  EXPECT_EQ(form.cbostatus.text(), "Individual");
  EXPECT_EQ(form.cbogroup.items(), (std::vector<std::string>{"(All)", "G1"}));
  form.cbostatus.choose(2);
  form.cbogroup.choose(2);
  form.click(form.cmdok);
  EXPECT_FALSE(form.visible());
  EXPECT_EQ(setting(cc::statusKey) + '/' + setting(cc::groupKey), "Company/G1");

  host().ShowClListSelection("");
  EXPECT_EQ(shown<frmClSelection>().cbostatus.text(), "Company");
  shown<frmClSelection>().cbostatus.choose(1);
  shown<frmClSelection>().press(keys::Escape);
  EXPECT_EQ(setting(cc::statusKey), "Company") << "Escape changes nothing";

  host().ShowClListSelection("");
  auto& again = shown<frmClSelection>();
  again.click(again.cmdall);
  EXPECT_EQ(setting(cc::statusKey) + setting(cc::groupKey), "");
}

TEST_F(ClientListTest, TheSetUpFormChoosesOrdersAndSizesColumns) {
  practice.settings().set(cc::section, cc::columnsKey, "code:12,name:40,status:9");
  host().ShowClListSetup();
  auto& form = shown<frmClSetup>();
  ASSERT_EQ(form.vsf.rows(), 9);
  EXPECT_TRUE(form.vsf.ticked(3));
  EXPECT_FALSE(form.vsf.ticked(4));
  EXPECT_FALSE(form.cmdup.enabled());
  form.vsf.tick(1, false);
  EXPECT_TRUE(form.vsf.ticked(1)) << "the code stays";
  form.vsf.tick(2, false);
  form.vsf.setCurrent(3);
  form.click(form.cmdup);
  form.click(form.cmdup);
  EXPECT_EQ(form.vsf.cell(1, 1), "Status");
  form.vsf.edit(1, 2, "500");
  EXPECT_EQ(form.vsf.cell(1, 2), "120");
  form.vsf.edit(1, 2, "abc");
  form.click(form.cmdok);
  EXPECT_EQ(setting(cc::columnsKey), "status:14,code:12");

  host().ShowClListSetup();
  auto& again = shown<frmClSetup>();
  again.click(again.cmddefault);
  again.press(keys::Escape);
  EXPECT_EQ(setting(cc::columnsKey), "status:14,code:12");
}

}  // namespace
}  // namespace quillet::suite
