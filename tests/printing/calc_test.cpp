// The export through LibreOffice and back.
#ifdef QUILLET_CALC

#include <gtest/gtest.h>
#include <sys/mount.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "books/amount.h"
#include "printing/export_fixture.h"
#include "review/frmimport.h"
#include "statements/frmstatements.h"
#include "suite/history/changes_form.h"

namespace quillet::support {
namespace {

using Texts = std::vector<std::string>;

const Texts awkwardNames = {"=1+1", "@x",          "+5",        "-3",          "'quoted",
                            "1e5",  "00012",       "1,234.50",  "TRUE",        "01/04/2008",
                            "100%", "#N/A",        "{=A1}",     "\"a\";\"b\"", "a\\tb\\n",
                            "\\",   "=a|'/C b'!A", "ü ₹ हिन्दी", "a|b\tc",      "$A$1"};

// A busy machine takes its time.
const CalcOptions calc{QUILLET_CALC, std::chrono::seconds(180)};

const fs::path& realTemplate() {
  static TemporaryFolder folder;
  static const fs::path path = [] {
    fs::create_directory(folder.path() / "Databases");
    if (!suite::TemplateMaker(calc, folder.path()).finish()) throw std::runtime_error("none made");
    return folder.path() / suite::exportTemplate;
  }();
  return path;
}

// Sets a variable of the environment for as long as it lives.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name) {
    if (const char* set = std::getenv(name)) before_ = set;
    setenv(name, value.c_str(), 1);
  }
  ~Variable() { before_ ? setenv(name_, before_->c_str(), 1) : unsetenv(name_); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> before_;
};

// Texts, numbers and errors of a sheet, by row and column.
using Place = std::pair<int, int>;
struct Read {
  std::map<Place, std::string> texts, errors;
  std::map<Place, double> numbers;
};

class CalcTest : public ExportTest {
 protected:
  CalcTest() {
    fs::copy_file(realTemplate(), template_, fs::copy_options::overwrite_existing);
    practice.environment().useCalc(calc);
  }

  Read readBack(const std::string& sheet = "TB") {
    const fs::path dump = folder_.path() / "read";
    const std::string command = std::string(QUILLET_CALC) + " --read '" + target_.string() +
                                "' 2>/dev/null >'" + dump.string() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0);
    Read read;
    std::istringstream lines(contentOf(dump));
    bool found = false, here = false;
    for (std::string text; std::getline(lines, text);) {
      const suite::CalcLine line = suite::calcLine(text);
      if (line[0] == "sheet") {
        here = line[1] == sheet;
        found = found || here;
        continue;
      }
      if (!here) continue;
      const Place at{std::stoi(line[1]), std::stoi(line[2])};
      if (line[0] == "text") read.texts[at] = line[3];
      if (line[0] == "error") read.errors[at] = line[3];
      if (line[0] == "number") read.numbers[at] = shownAmount(line[3]).rupees();
    }
    EXPECT_TRUE(found) << sheet;
    return read;
  }
  // What LibreOffice itself makes of the file: the new one stands in the tests' folder.
  fs::path converted(const fs::path& file, const std::string& ending) {
    const std::string command =
        QUILLET_OFFICE_PROGRAM "/soffice --headless -env:UserInstallation=file://" +
        (folder_.path() / "user").string() + " --convert-to " + ending + " --outdir '" +
        folder_.path().string() + "' '" + file.string() + "' >/dev/null 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0);
    return folder_.path() / file.stem() += '.' + ending;
  }
};

TEST_F(CalcTest, TwentyThousandLinesComeBackAsTheyWere) {
  constexpr int lines = 20'000;
  fill(addYear("C2", 2008), lines, awkwardNames);
  frmcrtb& form = open("C2", 2008);
  ASSERT_EQ(form.vsfm.rows(), lines);
  frontEnd.updates = 0;
  EXPECT_EQ(run(form, target_), (Texts{exportedTo(target_)}));
  EXPECT_EQ(frontEnd.total, lines);
  EXPECT_EQ(frontEnd.done, lines);
  EXPECT_GT(frontEnd.updates, 2) << "the bar moved";
  expectClean();

  const Read read = readBack();
  const Texts headings = {"S. No.", "Particulars", "Group", "Amount (Dr)", "Amount (Cr)"};
  for (int column = 1; column <= 5; ++column) {
    EXPECT_EQ(read.texts.at({1, column}), headings[static_cast<std::size_t>(column - 1)]);
  }
  EXPECT_EQ(read.texts.size(), 5U + 2U * lines);
  EXPECT_EQ(read.numbers.size(), 2U * lines);
  for (int i = 1; i <= lines; ++i) {
    ASSERT_EQ(read.numbers.at({i + 1, 1}), i);
    ASSERT_EQ(read.texts.at({i + 1, 2}), form.vsfm.cell(i, 0));
  }
  for (std::size_t i = 0; i < awkwardNames.size(); ++i) {
    EXPECT_EQ(read.texts.at({static_cast<int>(i) + 2, 2}), awkwardNames[i]);
  }
  EXPECT_TRUE(read.errors.empty()) << read.errors.begin()->second;
  double sums[] = {0, 0};
  for (const auto& [at, number] : read.numbers) {
    if (at.second >= 4) sums[at.second - 4] += number;
  }
  EXPECT_EQ(host().formatgen(sums[0], "#,##0.00"), form.txttotdeb[0].text());
  EXPECT_EQ(host().formatgen(sums[1], "#,##0.00"), form.txttotcr[0].text());
  EXPECT_EQ(contentOf(template_), contentOf(realTemplate()));
}

TEST_F(CalcTest, WhatWasExportedImportsWithoutADifference) {
  constexpr int lines = 300;
  const std::string table = addYear("C2", 2008);
  fill(table, lines, awkwardNames);
  const std::string select = "select particular,allid,amt,nid from " + table +
                             " t join Mast_Part p on p.PartId=t.partid" +
                             " where code_no='C2' order by particular,allid,amt";
  const Rows before = rows(select);
  frmcrtb& form = open("C2", 2008);
  run(form, target_);
  dialogs.answering = [](const Message&) { return Answer::Yes; };  // the lines need not agree
  const auto review = [&]() -> frmimport& {
    dialogs.queueFile(target_.string());
    form.click(form.mnuimport);
    return dynamic_cast<frmimport&>(*context().openForms.active());
  };
  frmimport& page = review();
  EXPECT_EQ(page.vsfi.rows(), lines + 1) << "the headings, and nothing is gone";
  const int state = page.vsfi.columnNamed("State");
  for (int row = 2; row <= page.vsfi.rows(); ++row) {
    EXPECT_EQ(page.vsfi.cell(row, state), "Same") << page.vsfi.cell(row, 3);
  }
  page.close();
  exec("delete from " + table + " where code_no='C2'");
  form.click(form.mnurefresh);
  frmimport& whole = review();
  whole.click(whole.cmdimport);
  EXPECT_EQ(rows(select), before);
  messages();
}

// The statement on its sheet is what the form shows, and the schedules stand on the sheet of notes.
TEST_F(CalcTest, StatementsComeBackAsTheyWere) {
  const fs::path own = practice.folder().program() / suite::statementsTemplate;
  fs::copy_file(realTemplate().parent_path() / own.filename(), own,
                fs::copy_options::overwrite_existing);
  group("=SUM(C1:C9)", 12);
  addYear(
      "C2", 2008,
      {{"=1+1", "=SUM(C1:C9)", -12'345.67}, {"@Shop", "RENT", 345.67}, {"Cash", "BANKS", 11'990}});
  frmcrtb& editor = open("C2", 2008);
  editor.click(editor.mnustatements);
  auto& form = dynamic_cast<frmstatements&>(*context().openForms.active());
  dialogs.queueFile(target_.string());
  form.click(form.cmdexport);
  EXPECT_EQ(messages(), (Texts{exportedTo(target_)}));
  EXPECT_EQ(dialogs.takePrompts(),
            (Texts{(practice.folder().documents() / "C2 2008-09 Statements.xls").string()}));
  const Read sheet = readBack("Balance Sheet");
  constexpr int above = 4;
  for (int row = 1; row <= form.vsfh.rows(); ++row) {
    EXPECT_EQ(sheet.texts.at({row + above, 1}), form.vsfh.cell(row, 0));
    const auto amount = sheet.numbers.find({row + above, 3});
    EXPECT_EQ(amount == sheet.numbers.end()
                  ? ""
                  : statementAmount(host(), Money::rounded(amount->second)),
              form.vsfh.cell(row, 2));
  }
  EXPECT_EQ(sheet.texts.at({1, 1}) + sheet.texts.at({1, 4}), "Particulars31/03/2008");
  const Read notes = readBack("Notes");
  const auto formula =
      std::ranges::find(notes.texts, "    =1+1", &std::pair<const Place, std::string>::second);
  ASSERT_NE(formula, notes.texts.end());
  EXPECT_EQ(notes.numbers.at({formula->first.first, 3}), 12'345.67);
  EXPECT_TRUE(notes.errors.empty());
  // By a program that is not ours; of several sheets it converts the first.
  const std::string text = contentOf(converted(target_, "csv"));
  EXPECT_NE(text.find("Total assets,,11990,0"), std::string::npos) << text;
  fs::remove(own);
}

TEST_F(CalcTest, ChangesComeBackAsTheyWere) {
  practice.environment().actLog().alone("The history begins", [] {});
  fill(addYear("C2", 2008), static_cast<int>(awkwardNames.size()), awkwardNames);
  practice.environment().history()->showChanges({"C2", "Neighbour & Co", "01042008", "31032009"});
  auto& form = dynamic_cast<suite::frmchanges&>(*context().openForms.active());
  dialogs.queueFile(target_.string());
  EXPECT_TRUE(form.click(form.cmdexport));
  EXPECT_EQ(messages(), (Texts{exportedTo(target_)}));
  const Read read = readBack();
  EXPECT_TRUE(read.errors.empty()) << read.errors.begin()->second;
  ASSERT_EQ(form.vsf.rows(), std::ssize(awkwardNames) + 1);
  for (int row = 1; row < form.vsf.rows(); ++row) {
    ASSERT_EQ(read.texts.at({row + 1, 2}), form.vsf.cell(row, 3));
    ASSERT_EQ(read.texts.at({row + 1, 9}), "Added");
    const std::string shown = read.texts.at({row + 1, 7});
    EXPECT_EQ(host().formatgen(read.numbers.at({row + 1, 5}), "###0.00") + ' ' + shown,
              form.vsf.cell(row, 6));
  }
  form.close();
}

TEST_F(CalcTest, AFullDiskLosesNothing) {
  const fs::path disk = folder_.path() / "disk";
  fs::create_directory(disk);
  if (mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=64k") != 0) {
    GTEST_SKIP() << "mounting a small disk is not permitted here";
  }
  fill(addYear("C2", 2008), 2'000);
  frmcrtb& form = open("C2", 2008);
  target_ = disk / "books.xls";
  expectRefused(form);
  // No room even for the copy of the template.
  write(disk / "padding", std::string(61UL * 1024, 'x'));
  expectRefused(form);
  umount(disk.c_str());
}

TEST_F(CalcTest, NeitherTheFolderNorTheLocaleMatters) {
  const fs::path folder = folder_.path() / "%41 #ä\\'\"😀\n?";
  fs::create_directory(folder);
  const Variable locale("LC_ALL", "C"), temporary("TMPDIR", folder.string());
  target_ = folder / "\"TB\" 31.03.xls";
  EXPECT_EQ(run(open("C1", 2008), target_), (Texts{exportedTo(target_)}));
  EXPECT_GT(fs::file_size(target_), 0U);
  expectClean();
}

// A sheet takes the name of the text file that it is made from, and is found in capitals and small
// letters. What a practice reckons beside the list goes on reckoning.
TEST_F(CalcTest, ATemplateOfOnesOwnKeepsItsSums) {
  frmcrtb& form = open("C1", 2008);
  const std::string missing = "Trial Balance cannot be saved. Worksheet not found!";
  for (const std::string sheet : {"accounts", "tb"}) {
    const fs::path own = folder_.path() / (sheet + ".csv");
    write(own, ",,,,,=SUM(D2:D99),=SUM(E2:E99),=1/0\n");
    fs::copy_file(converted(own, "xls"), template_, fs::copy_options::overwrite_existing);
    EXPECT_EQ(run(form, target_), (Texts{sheet == "tb" ? exportedTo(target_) : missing}));
    EXPECT_EQ(fs::exists(target_), sheet == "tb");
  }
  const Read read = readBack("tb");
  EXPECT_EQ(read.texts.at({2, 2}), "=1+1");
  EXPECT_EQ(read.numbers.at({1, 6}), 12'345.6);
  EXPECT_EQ(read.numbers.at({1, 7}), 0.05);
  EXPECT_EQ(read.errors, (std::map<Place, std::string>{{{1, 8}, "#DIV/0!"}}));
}

TEST_F(CalcTest, ATemplateThatIsNoWorkbookIsAnError) {
  write(template_, std::string("PK\x03\x04 nothing of the kind \x00\x01", 27));
  expectRefused(open("C1", 2008));
}

}  // namespace
}  // namespace quillet::support

#endif
