#include "server/station.h"

#include <fstream>

#include "suite/client_register.h"
#include "suite/starter_data.h"

namespace quillet::support {
suite::DataFolder folderOfStation(const std::filesystem::path& path, const std::string& hosts,
                                  const std::string& account) {
  suite::DataFolder folder = suite::DataFolder::create(path);
  suite::Settings settings(folder.settings());
  settings.set("Suite", "TableCount", std::to_string(tableNumbers));
  settings.set("Server", "Host", hosts);
  settings.set("Server", "User", account);
  const std::filesystem::path password = path.string() + ".password";
  std::ofstream(password) << account;
  std::filesystem::permissions(password, std::filesystem::perms::owner_read);
  settings.set("Server", "PasswordFile", password.string());
  settings.set("Server", "Database", "quillet");
  return folder;
}

namespace {

suite::DataFolder prepared(const suite::DataFolder& folder, const Station::Preparing& prepare) {
  suite::Settings settings(folder.settings());
  if (prepare) prepare(settings);
  return folder;
}

suite::StartPolicy making(bool books) {
  suite::StartPolicy policy;
  policy.mayMakeBooks = books;
  return policy;
}

}  // namespace

Station::Station(const std::string& hosts, const std::string& account, const Preparing& prepare)
    : practice_(std::make_unique<suite::Practice>(
          prepared(folderOfStation(folder_.path() / "practice", hosts, account), prepare),
          frontEnd_, clock_, making(!prepare))) {
  suite::Database& database = practice_->database();
  if (database.query("select 1 from Mast_AllGrp limit 1")->EOF_()) {
    practice_->environment().actLog().alone("Starter groups",
                                            [&] { suite::installStarterData(database); });
  }
}

std::string Station::value(const std::string& sql) {
  const RecordsetPtr found = practice_->database().query(sql);
  return found->EOF_() ? std::string() : found->text(0);
}

void Station::addYear(const std::string& client, int firstYear) {
  const std::string first = std::to_string(firstYear);
  const std::string second = std::to_string(firstYear + 1);
  const std::string table = "TAB_" + std::to_string(firstYear - 2006);
  if (value("select code_no from Main_Info1 where code_no='" + client + '\'').empty()) {
    suite::Client added;
    added.code = client;
    added.name = "Client " + client;
    suite::addClient(practice_->database(), added);
  }
  change("insert into master(code_no,f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr) values('" +
         client + "','01/04/" + first + "','31/03/" + second + "','" + table + "'," +
         std::to_string(firstYear - 2006) + ",'0104" + first + "','3103" + second + "')");
}

frmcrtb& Station::open(const std::string& client, int firstYear) {
  editor_.reset();
  context().setYear({client, "TAB_" + std::to_string(firstYear - 2006),
                     "0104" + std::to_string(firstYear), "3103" + std::to_string(firstYear + 1)});
  editor_ = std::make_unique<frmcrtb>(context());
  editor_->show();
  return *editor_;
}

void Station::type(TextBox& box, const std::string& keys) {
  struct Keys : PracticeTest {
    using PracticeTest::type;
  };
  Keys::type(box, keys);
}

void Station::enter(const std::string& ledger, const std::string& group,
                    const std::string& amount) {
  type(editor_->txtpart, ledger + '\r');
  type(editor_->txtgroup, group + '\r');
  type(editor_->txtamount, amount + '\r');
  type(editor_->txtdrcr, "D\r");
}

frmjrnl& Station::openJournal() {
  editor_->click(editor_->mnujournal);
  return dynamic_cast<frmjrnl&>(*context().openForms.find("frmjrnl"));
}

void Station::pass(frmjrnl& journal, int lines) {
  dialogs.answering = [](const Message&) { return Answer::Yes; };
  journal.click(journal.cmdadd);
  for (int i = 0; i < lines; ++i) {
    if (i > 0) journal.press(keys::Down);
    journal.focus(journal.cboside[i]);
    journal.press(i % 2 == 0 ? U'B' : U'T');
    type(journal.txtledger[i], "Passed " + std::to_string(i));
    journal.press(keys::Tab);
    type(journal.txtgroup[i], "RENT");
    journal.press(keys::Tab);
    type(i % 2 == 0 ? journal.txtdramt[i] : journal.txtcramt[i], "100");
  }
}

std::vector<std::string> Station::notices() {
  std::vector<std::string> texts = frontEnd_.notices().open();
  frontEnd_.notices().close();
  return texts;
}

}  // namespace quillet::support
