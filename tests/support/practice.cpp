#include "support/practice.h"

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "controls/form.h"
#include "data/sql.h"
#include "data/text.h"
#include "suite/schema.h"
#include "suite/schema_tables.h"

namespace quillet::support {
namespace {

namespace fs = std::filesystem;

std::string quoted(suite::Database& database, const std::string& text) {
  return '\'' + database.escape(text) + '\'';
}

// Everything that lives as long as the process. Members go in reverse order: the folder last.
struct Shared {
  TemporaryFolder folder;
  Answers dialogs;
  suite::HeadlessFrontEnd frontEnd{dialogs};
  suite::FixedClock clock;
  suite::Practice practice;

  Shared() : practice(create(folder.path() / "practice"), frontEnd, clock) {
    // What these tests write is gone with the process: no statement waits for the disk.
    practice.database().execute("set global innodb_flush_log_at_trx_commit=0, global sync_frm=0");
  }

  static suite::DataFolder create(const fs::path& path) {
    suite::DataFolder folder = suite::DataFolder::create(path);
    suite::Settings(folder.settings()).set("Suite", "TableCount", std::to_string(tableNumbers));
    return folder;
  }
};

Shared& shared() {
  static Shared only;
  return only;
}

std::vector<std::string> allTables() {
  std::vector<std::string> names;
  const auto add = [&](const std::vector<suite::TableDefinition>& tables) {
    for (const suite::TableDefinition& table : tables) names.push_back(table.name);
  };
  add(suite::sharedTables());
  for (long n = 1; n <= tableNumbers; ++n) add(suite::yearTables(suite::tableSuffix(n)));
  return names;
}

void emptyTables(suite::Database& database) {
  static const std::vector<std::string> names = allTables();
  for (const std::string& name : names) database.execute("delete from " + name);
  if (!database.keepsHistory()) return;
  // Ledgers and groups are numbered from one again, and nobody has changed the log.
  for (const char* name : {"Mast_Part", "Mast_AllGrp", "SuiteAct"}) {
    database.execute(std::string("delete history from ") + name);
  }
}

// The file is emptied rather than removed, since the settings object keeps what it read.
void resetSettings(suite::Settings& settings) {
  for (const auto& [section, key] : {std::pair{"Suite", "LastClient"},
                                     {"ClientList", "Status"},
                                     {"ClientList", "Group"},
                                     {"ClientList", "Columns"}}) {
    settings.set(section, key, "");
  }
  settings.set("Settings", "TBSort", "1");
  settings.set("Settings", "ShLed", "1");
  settings.setCompanyName("Sample & Associates");
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (fs::temp_directory_path() / "quillet-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

PracticeTest::PracticeTest()
    : practice(shared().practice),
      dialogs(shared().dialogs),
      frontEnd(shared().frontEnd),
      clock(shared().clock) {
  emptyTables(practice.database());
  resetSettings(practice.settings());
  dialogs.clear();
  dialogs.answering = {};
  clock = {};
  clock.set({2009, 6, 15});
  practice.restartModule();
  host().statements().record(true);
  fs::remove(practice.folder().program() / "TalLog.log");
}

void PracticeTest::TearDown() {
  EXPECT_EQ(dialogs.takeFailure().value_or(""), "");
  EXPECT_EQ(dialogs.left(), 0U) << "answers were queued that nobody asked for";
}

void PracticeTest::type(TextBox& box, const std::string& text) {
  if (!box.form().focus(box)) throw std::runtime_error("the focus does not reach " + box.name());
  box.selectAll();
  if (text.empty()) box.form().press(keys::Delete);
  press(box.form(), text);
}

void PracticeTest::press(Form& form, const std::string& keys) {
  for (const char32_t c : charactersOf(keys)) form.press(c);
}

PracticeTest::Rows PracticeTest::shown(const Grid& grid) {
  Rows all;
  for (int r = 1; r <= grid.rows(); ++r) {
    if (grid.rowHidden(r)) continue;
    auto& cells = all.emplace_back();
    for (int c = 0; c < grid.cols(); ++c) {
      if (!grid.columns()[static_cast<std::size_t>(c)].hidden) cells.push_back(grid.cell(r, c));
    }
  }
  return all;
}

void PracticeTest::exec(const std::string& sql) {
  host().executedElsewhere(sql);
  practice.database().execute(sql);
}

PracticeTest::Rows PracticeTest::rows(const std::string& sql) {
  std::vector<std::vector<std::string>> all;
  const RecordsetPtr found = practice.database().query(sql);
  for (; !found->EOF_(); found->MoveNext()) {
    std::vector<std::string>& row = all.emplace_back();
    for (int c = 0; c < found->fieldCount(); ++c)
      row.emplace_back(found->field(c).value_or("NULL"));
  }
  return all;
}

std::string PracticeTest::value(const std::string& sql) {
  const auto found = rows(sql);
  return found.empty() ? std::string() : found.front().front();
}

long PracticeTest::rowsRead() {
  return std::stol(
      value("select cast(sum(variable_value) as unsigned) from "
            "information_schema.session_status where variable_name like 'Handler_read%'"));
}

PracticeTest::Rows PracticeTest::books() {
  Texts tables = {"master", "Mast_Part", "Mast_AllGrp", "AllGrp_Map", "SuiteMisc", "RmSchSetup"};
  for (long n = 1; n <= tableNumbers; ++n) {
    for (const char* prefix : {"TAB_", "JRNL_", "TRADE_", "RMGRP_"}) {
      tables.push_back(prefix + suite::tableSuffix(n));
    }
  }
  Rows all;
  for (const std::string& table : tables) {
    for (Texts& row : rows("select * from " + table)) all.push_back(std::move(row));
  }
  return all;
}

void PracticeTest::addClient(const std::string& code, const std::string& name) {
  suite::Client client;
  client.code = code;
  client.name = name;
  suite::addClient(practice.database(), client);
}

long PracticeTest::group(const std::string& name, long gid, bool predefined) {
  const std::string text = quoted(practice.database(), name);
  const std::string found = value("select ALLID from Mast_AllGrp where ALLGRP=" + text);
  if (!found.empty()) return std::stol(found);
  const long id = std::stol(value("select ifnull(max(ALLID),0)+1 from Mast_AllGrp"));
  exec("insert into Mast_AllGrp values(" + std::to_string(id) + ',' + std::to_string(gid) + ',' +
       text + (predefined ? ",'N')" : ",'Y')"));
  return id;
}

long PracticeTest::ledger(const std::string& name) { return host().GetMax_MastPartId(name); }

std::string PracticeTest::addYear(const std::string& client, int firstYear,
                                  const std::vector<Line>& lines) {
  const std::string code = quoted(practice.database(), client);
  const long number =
      std::stol(value("select ifnull(max(count),0)+1 from master where code_no=" + code));
  std::string table = "TAB_" + suite::tableSuffix(number);
  const std::string first = std::to_string(firstYear);
  const std::string second = std::to_string(firstYear + 1);
  exec("insert into master(code_no,f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr) values(" + code +
       ",'01/04/" + first + "','31/03/" + second + "','" + table + "'," + std::to_string(number) +
       ",'0104" + first + "','3103" + second + "')");
  long srno = 0;
  for (const Line& line : lines) {
    exec("insert into " + table + " values(" + std::to_string(++srno) + ',' + code + ',' +
         std::to_string(ledger(line.ledger)) + ',' + std::to_string(group(line.group)) + ',' +
         sqlNumber(std::abs(line.amount)).text() + (line.amount < 0 ? ",2)" : ",1)"));
  }
  return table;
}

void PracticeTest::select(const std::string& client, int firstYear) {
  const std::string code = quoted(practice.database(), client);
  const std::string first = "0104" + std::to_string(firstYear);
  practice.forms().VClCode(client);
  practice.forms().VFATbl(
      value("select tbl_nm from master where code_no=" + code + " and f_yr='" + first + '\''));
  practice.forms().VFDate(first);
  practice.forms().VSDate("3103" + std::to_string(firstYear + 1));
}

std::vector<std::string> PracticeTest::log() {
  std::ifstream file(practice.folder().program() / "TalLog.log");
  std::vector<std::string> lines;
  std::size_t number = 0;
  for (std::string line; std::getline(file, line);) {
    if (number++ >= logSeen_) lines.push_back(line);
  }
  logSeen_ = number;
  return lines;
}

std::vector<std::string> PracticeTest::trapped() {
  std::vector<std::string> places = log();
  for (std::string& line : places) {
    const std::size_t form = line.rfind('\t', line.rfind('\t') - 1);
    line.erase(0, form + 1);
  }
  return places;
}

PracticeTest::Rows PracticeTest::asked() {
  Rows all;
  for (const auto& [message, answer] : dialogs.takeMessages()) {
    const std::string_view cells[] = {message.text, suite::nameOf(message.buttons),
                                      suite::nameOf(message.icon),
                                      suite::nameOf(message.defaultAnswer)};
    all.emplace_back(std::begin(cells), std::end(cells));
  }
  return all;
}

PracticeTest::Rows PracticeTest::printed(bool withHeadings) {
  Rows all;
  if (!practice.environment().lastReport()) return all;
  for (const suite::DocumentRow& row : document().rows()) {
    if (row.heading && !withHeadings) continue;
    auto& cells = all.emplace_back();
    for (const suite::ReportCell& cell : row.cells) cells.push_back(cell.text);
  }
  return all;
}

std::vector<std::string> PracticeTest::messages() {
  std::vector<std::string> texts;
  for (const suite::QueuedDialogs::Asked& asked : dialogs.takeMessages()) {
    texts.push_back(asked.message.text);
  }
  return texts;
}

}  // namespace quillet::support
