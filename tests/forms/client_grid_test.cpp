// The list of clients on the home form: what it shows, its search and its filters.
#include <filesystem>

#include "forms/home_fixture.h"
#include "support/growth.h"

namespace quillet::support {
namespace {

class ClientGridTest : public HomeTest {
 protected:
  ClGrd& grid() { return home().ClGrd1; }
  void put(const std::string& code, const std::string& status, const std::string& group = {}) {
    exec("update TempClTbl set Status='" + status + "',GroupCode='" + group + "' where CodeNo='" +
         code + "'");
  }
  static void choose(ComboBox& filter, const std::string& value) {
    filter.choose(filter.find(value));
  }
  // The codes shown, and the current one.
  std::string codes() {
    std::string all;
    for (int row = 1; row <= grid().rows(); ++row) all += grid().TextMatrix(row, 0) + ' ';
    return all + "on " + grid().TextMatrix(grid().Row(), 0);
  }
};

TEST_F(ClientGridTest, ListsTheClientsAndGoesToTheOneChosenLast) {
  host().vLstSelClCode("C2");
  EXPECT_EQ(codes(), "C1 C2 on C2");
  Texts heads;
  for (const GridColumn& column : grid().columns()) heads.push_back(column.heading);
  EXPECT_EQ(heads, (Texts{"Code", "Name", "Status", "Father/Husband Name", "DOB/DOI", "Address",
                          "Group Code", "Group Name", "Company Name"}));
}

// Whatever changed in the register is there when the list comes into sight again; what a person
// has made of the list stays.
TEST_F(ClientGridTest, TheRegisterIsReadWheneverTheListIsShown) {
  for (const char* code : {"A1", "Z9"}) addClient(code, std::string("Asha ") + code);
  third& form = home();
  press(form, "asha");
  grid().sortBy(0);
  grid().sortBy(0);
  grid().setCurrent(2);
  ASSERT_EQ(codes(), "Z9 C1 A1 on C1");
  const std::function<void()> ways[] = {[&] { form.click(form.mnusumm); },
                                        [&] {
                                          form.doubleClick(form.ClGrd1);
                                          form.press(keys::Escape);
                                          EXPECT_EQ(form.ClGrd1.txtsearch.text(), "");
                                          press(form, "asha");
                                        },
                                        [&] {
                                          form.click(form.cmdgrpmas);
                                          context().openForms.active()->close();
                                        }};
  std::string added;
  for (const auto& way : ways) {
    const std::string code = "M" + std::to_string(added.size());
    addClient(code, "Asha " + code);
    added = code + ' ' + added;
    way();
    EXPECT_EQ(codes(), "Z9 " + added + "C1 A1 on C1");
  }
  // Fewer than before, also when the form was closed meanwhile.
  exec("delete from TempClTbl where CodeNo<>'C2'");
  form.click(form.mnualter);
  EXPECT_EQ(codes(), "on ");
  form.press(keys::Escape);
  EXPECT_EQ(codes(), "C2 on C2");
  form.close();
  exec("delete from TempClTbl");
  host().statements().failNext("TempClTbl");
  EXPECT_EQ(grid().rows(), 0);
  EXPECT_EQ(form.lblstatus.caption(), "The clients could not be read.");
  EXPECT_EQ(log().size(), 1U);
  messages();
}

TEST_F(ClientGridTest, FiltersThatNobodyAnswersToAreDroppedAndSaid) {
  put("C1", "Firm", "G1");
  put("C2", "Company", "G2");
  const std::string none = "No client has ";
  const std::string dropped = ". The list is no longer kept to it.";
  const struct {
    const char *status, *group;
    int rows;
    const char* kept;
    std::string told;
  } cases[] = {
      {"Firm", "", 1, "Firm/", ""},
      {"firm", "G1", 1, "firm/G1", ""},
      {"Gone", "G1", 1, "/G1", none + R"(the status "Gone")" + dropped},
      {"Firm", "Gone", 1, "Firm/", none + R"(the group "Gone")" + dropped},
      {"Firm", "G2", 2, "/", none + R"(the status "Firm" and the group "G2")" + dropped},
  };
  third& form = home();
  const auto setting = [&](const char* key) { return host().GetSettingINI("ClientList", key, ""); };
  for (const auto& c : cases) {
    for (const bool open : {false, true}) {
      SCOPED_TRACE(std::string(c.status) + ' ' + c.group + (open ? ", open" : ", closed"));
      home().click(form.mnualter);
      if (!open) form.close();
      host().SaveSettingINI("ClientList", "Status", c.status);
      host().SaveSettingINI("ClientList", "Group", c.group);
      home().click(form.mnualter);
      EXPECT_EQ(form.ClGrd1.rows(), c.rows);
      EXPECT_EQ(setting("Status") + '/' + setting("Group"), c.kept);
      if (open) {
        EXPECT_EQ(form.lblstatus.caption(), c.told);
      }
    }
  }
  // Spellings of one name are one filter.
  put("C2", "firm ", "G2");
  form.click(form.mnualter);
  ASSERT_EQ(form.ClGrd1.cbostatus.size(), 2);
  form.ClGrd1.cbostatus.choose(2);
  EXPECT_EQ(form.ClGrd1.rows(), 2);
  put("C2", "Company", "G2");
  form.click(form.mnualter);
  // What a person chooses is not dropped while nothing else has changed.
  choose(form.ClGrd1.cbostatus, "Firm");
  choose(form.ClGrd1.cbogrpcode, "G2");
  form.click(form.mnualter);
  EXPECT_EQ(form.ClGrd1.rows(), 0);
}

// Settings that cannot be written are no reason to keep anybody from work.
TEST_F(ClientGridTest, WorkGoesOnWithoutWritableSettings) {
  put("C1", "Firm");
  addYear("C1", 2008);
  third& form = home();
  const auto file = practice.folder().settings().string() + ".new";
  std::filesystem::create_directory(file);  // stands where the new settings would be written
  choose(grid().cbostatus, "Firm");
  EXPECT_EQ(grid().rows(), 1);
  form.click(form.mnualter);
  EXPECT_EQ(grid().rows(), 1) << "the choice holds as long as the form is open";
  grid().setColumnWidth(1, 33);
  form.click(grid().cmdcolumns);
  context().openForms.active()->press(keys::Escape);
  form.doubleClick(form.ClGrd1);
  EXPECT_EQ(context().clientCode, "C1");
  EXPECT_EQ(frontEnd.client, "C1");
  EXPECT_EQ(form.flexgrid2.rows(), 1);
  EXPECT_TRUE(form.close());
  EXPECT_GE(log().size(), 3U);
  std::filesystem::remove(file);
}

TEST_F(ClientGridTest, SearchesEveryShownColumnAsOneTypes) {
  exec(
      "insert into TempClTbl (CodeNo,Name,Status,Address,GroupCode,GroupName) "
      "values('P9','Meera Östlund','Individual','12 Hill Road, Pune','G1','Hill Family')");
  third& form = home();
  const auto found = [&](const char* typed) {
    press(form, typed);
    return grid().rows();
  };
  EXPECT_EQ(found(""), 3);
  EXPECT_EQ(found("pune MEER"), 1);
  EXPECT_EQ(grid().TextMatrix(1, 1), "Meera Östlund");
  form.press(keys::Escape);
  EXPECT_EQ(found(""), 3);
  EXPECT_EQ(found("öST"), 1);
  EXPECT_EQ(found("\b\b\b"), 3);
  EXPECT_EQ(codes(), "C1 P9 C2 on P9") << "the cursor stays on its client";

  // A hidden column is not searched; the arrangement is kept between runs.
  host().SaveSettingINI("ClientList", "Columns", "code:9,name:30");
  grid().refresh();
  EXPECT_EQ(found("pune"), 0);
  form.press(keys::Enter);
  EXPECT_TRUE(grid().shown()) << "no client, nothing to choose";
  form.press(keys::Escape);
  grid().setColumnWidth(1, 33);
  form.close();
  EXPECT_EQ(host().GetSettingINI("ClientList", "Columns", ""), "code:9,name:33");
  choose(grid().cbostatus, "Individual");
  EXPECT_EQ(grid().rows(), 1);
  form.close();
  EXPECT_EQ(grid().rows(), 1) << "the filter is kept between runs";
}

TEST_F(ClientGridTest, TenThousandClientsAreSearchedWithoutDelay) {
  third& form = home();
  const auto work = [&](int count) {
    exec("delete from TempClTbl");
    exec(
        "insert into TempClTbl (CodeNo,Name) select seq,concat('Client ',seq*7919) from seq_1_to_" +
        std::to_string(count));
    grid().refresh();
    statements();
    press(form, "client 79");
    EXPECT_GT(grid().rows(), count / 100);
    EXPECT_LT(grid().rows(), count / 10);
    EXPECT_TRUE(statements().empty()) << "no query for each key";
    form.press(keys::Escape);
  };
  EXPECT_LT(growthTenfold(1000, work), 30);
}

}  // namespace
}  // namespace quillet::support
