// The export: messages and order with a helper that only takes notes, then the whole way through
// LibreOffice and back.
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

#include "books/amount.h"
#include "forms/editor_fixture.h"
#include "suite/bulk_insert.h"

namespace quillet::support {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using suite::CalcLine;
using suite::CalcOptions;

using Texts = std::vector<std::string>;

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

void write(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

const Texts awkwardNames = {"=1+1", "@x",          "+5",        "-3",          "'quoted",
                            "1e5",  "00012",       "1,234.50",  "TRUE",        "01/04/2008",
                            "100%", "#N/A",        "{=A1}",     "\"a\";\"b\"", "a\\tb\\n",
                            "\\",   "=a|'/C b'!A", "ü ₹ हिन्दी", "a|b\tc",      "$A$1"};

class ExportTest : public EditorTest {
 protected:
  ExportTest() {
    template_ = practice.folder().program() / "Databases" / "ORVO_TB.xls";
    write(template_, "the template");
    target_ = folder_.path() / "books.xls";
    addYear("C1", 2007, {{"Old", "CAPITAL", 3}});
    addYear("C1", 2008, {{"=1+1", "BANKS", 12'345.6}, {"@x", "SALES", -0.05}});
  }
  ~ExportTest() override {
    fs::remove(template_);
    practice.surroundings().useCalc(CalcOptions::standard());
  }

  // A helper made of shell commands that are run for each line, `$line`. Every line is noted.
  void useHelper(const std::string& perLine, std::chrono::milliseconds limit = 20s) {
    const fs::path program = folder_.path() / "helper";
    write(program, "#!/bin/sh\nwhile IFS= read -r line; do printf '%s\\n' \"$line\" >> '" +
                       notes().string() + "'\n" + perLine + "\ndone\n");
    chmod(program.c_str(), 0700);
    practice.surroundings().useCalc({program, limit});
  }
  static std::string sheets(const std::string& names) {
    return "case \"$line\" in open*) printf 'ok\\t" + names +
           "\\n';; save|close) echo ok;; quit) echo ok; exit 0;; esac";
  }
  fs::path notes() const { return folder_.path() / "notes"; }
  Texts noted() const {
    Texts lines;
    std::istringstream text(contentOf(notes()));
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
  }

  // The messages, each with its title. An empty path cancels the dialog.
  Texts run(frmcrtb& form, const fs::path& file, const std::optional<fs::path>& then = {}) {
    for (const fs::path& next : then ? std::vector{file, *then} : std::vector{file}) {
      dialogs.queueFile(next.empty() ? std::nullopt : std::optional(next.string()));
    }
    EXPECT_TRUE(form.click(form.cmdexport));
    Texts texts;
    for (const auto& asked : dialogs.takeMessages()) {
      EXPECT_EQ(asked.message.title, "Trial Balance");
      EXPECT_EQ(asked.message.icon,
                asked.message.buttons == Buttons::OK ? Icon::information : Icon::none);
      texts.push_back(asked.message.text);
    }
    return texts;
  }
  std::string exported() const {
    return "Data Successfully Exported to File : " + target_.string();
  }
  // Nothing of ours is left beside the target.
  void expectClean() const {
    for (const auto& entry : fs::directory_iterator(target_.parent_path())) {
      EXPECT_EQ(entry.path().filename().string().find(".quillet"), std::string::npos)
          << entry.path();
    }
  }

  TemporaryFolder folder_;
  fs::path template_, target_;
};

TEST_F(ExportTest, SendsTheRowsAndReplacesTheTarget) {
  useHelper(sheets("Notes\\ttb"));
  frmcrtb& form = open("C1", 2008);
  EXPECT_EQ(run(form, target_), (Texts{exported()}));
  EXPECT_EQ(dialogs.takePrompts(), (Texts{template_.string()})) << "the proposed target";
  const Texts lines = noted();
  ASSERT_EQ(lines.size(), 12U);
  EXPECT_TRUE(lines[0].starts_with("open\t" + folder_.path().string() + "/.quillet-export-"));
  EXPECT_EQ(Texts(lines.begin() + 1, lines.end()),
            (Texts{"number\t1\t2\t1\t1", "text\t1\t2\t2\t=1+1", "text\t1\t2\t3\tBANKS",
                   "number\t1\t2\t4\t12345.6", "number\t1\t3\t1\t2", "text\t1\t3\t2\t@x",
                   "text\t1\t3\t3\tSALES", "number\t1\t3\t5\t0.05", "save", "close", "quit"}));
  EXPECT_EQ(contentOf(target_), "the template");
  expectClean();
  EXPECT_EQ(frontEnd.progress, "Exporting to " + target_.string() + "....");
  EXPECT_FALSE(frontEnd.busy);

  // A path from where the program runs.
  const fs::path before = fs::current_path();
  fs::current_path(folder_.path());
  EXPECT_EQ(run(form, "here.xls"), (Texts{"Data Successfully Exported to File : here.xls"}));
  fs::current_path(before);
  EXPECT_EQ(contentOf(folder_.path() / "here.xls"), "the template");
  EXPECT_TRUE(noted().at(lines.size()).starts_with("open\t" + folder_.path().string() + "/."));

  // A name with another ending, or none, gets the one of the filter.
  for (const char* name : {"second", "TB 31.03.2009", "books.xlsx", "A\\B \"q\" 'x' 😀 "}) {
    const std::string file = (folder_.path() / name).string() + ".xls";
    EXPECT_EQ(run(form, folder_.path() / name),
              (Texts{"Data Successfully Exported to File : " + file}));
    EXPECT_EQ(contentOf(file), "the template");
  }
  EXPECT_EQ(run(form, folder_.path() / "BIG.XLS").size(), 1U);
  EXPECT_TRUE(fs::exists(folder_.path() / "BIG.XLS"));
}

TEST_F(ExportTest, ARowWithoutASideHasNoAmount) {
  useHelper(sheets("TB"));
  frmcrtb& form = open("C1", 2008);
  form.click(form.mnuyrs[2]);
  run(form, target_);
  for (const std::string& line : noted()) {
    if (line.find("\t4\t") != std::string::npos && line.starts_with("number")) {
      EXPECT_EQ(line.find("number\t0\t4\t4"), std::string::npos) << line;
    }
  }
  EXPECT_NE(contentOf(notes()).find("text\t0\t4\t2\tOld\n"), std::string::npos);
  EXPECT_EQ(contentOf(notes()).find("number\t0\t4\t5"), std::string::npos);
}

TEST_F(ExportTest, RefusalsLeaveEverythingAsItWas) {
  useHelper(sheets("TB"));
  frmcrtb& form = open("C1", 2008);
  // Cancelled.
  EXPECT_EQ(run(form, {}), Texts{});
  dialogs.takePrompts();
  // A file that cannot be taken is told, and the dialog opens again with a name of its own.
  const fs::path linked = folder_.path() / "linked.xls";
  fs::create_symlink(template_, linked);
  fs::create_symlink("itself.xls", folder_.path() / "itself.xls");
  fs::create_directory(folder_.path() / "folder.xls");
  const std::string isTemplate =
      "This file is the template of the export. Please choose another file.";
  const std::string tooLong = "The name of the file is too long. Please choose a shorter one.";
  const std::string folder = folder_.path().string();
  const std::string own = (practice.folder().documents() / "C1 2008-09.xls").string();
  for (const auto& [name, message] : std::vector<std::pair<fs::path, std::string>>{
           {template_, isTemplate},
           {linked, isTemplate},
           {folder_.path() / std::string(252, 'x'), tooLong},
           {folder_.path() / std::string(5'000, 'x'), tooLong},
           {folder_.path() / "",
            folder + "/.xls is no file that can be written. Please choose another name."},
           {folder_.path() / "folder",
            folder + "/folder.xls is no file that can be written. Please choose another name."},
           {folder_.path() / "no" / "such" / "books.xls",
            "There is no folder " + folder + "/no/such. Please choose another one."},
           {folder_.path() / "itself", folder + "/itself.xls: Too many levels of symbolic links. "
                                                "Please choose another file."}}) {
    EXPECT_EQ(run(form, name, fs::path()), Texts{message});
    EXPECT_EQ(dialogs.takePrompts(), (Texts{template_.string(), own}));
  }
  form.click(form.mnuyrs[1]);
  run(form, template_, fs::path());
  EXPECT_TRUE(dialogs.takePrompts().back().ends_with("/C1 2007-08.xls"));
  form.click(form.mnuyrs[0]);
  // There already.
  write(target_, "mine");
  dialogs.queueAnswer(Answer::No);
  EXPECT_EQ(run(form, target_), (Texts{"File already exists. Do you want to overwrite it"}));
  EXPECT_EQ(contentOf(target_), "mine");
  EXPECT_TRUE(noted().empty()) << "the helper was not started";
  dialogs.queueAnswer(Answer::Yes);
  EXPECT_EQ(run(form, target_),
            (Texts{"File already exists. Do you want to overwrite it", exported()}));
  EXPECT_EQ(contentOf(target_), "the template");
  // No template.
  fs::remove(template_);
  EXPECT_TRUE(form.click(form.mnuexport));
  EXPECT_EQ(messages(), (Texts{"Missing Source File."}));
  EXPECT_TRUE(log().empty());
}

TEST_F(ExportTest, WhateverFailsIsToldAndTheTargetStays) {
  const std::string line = "\r\n";
  const struct {
    const char* what;
    std::string helper;
    std::string message;
  } cases[] = {
      {"no such sheet", sheets("Sheet1\\tTBX"),
       "Trial Balance cannot be saved. Worksheet not found!"},
      {"LibreOffice says no",
       "case \"$line\" in open*) printf 'error\\tGeneral I/O\\\\tfailure\\n';; esac",
       "Error Occured : General I/O\tfailure\r\n"},
      {"saving fails",
       "case \"$line\" in open*) printf 'ok\\tTB\\n';; save) printf 'error\\tDisk full\\n';; esac",
       "Error Occured : Disk full\r\n"},
      {"it dies at once", "exit 1",
       "Error Occured : The spreadsheet program ended unexpectedly\r\n"},
      {"it dies while saving",
       "case \"$line\" in open*) printf 'ok\\tTB\\n';; save) kill -9 $$;; esac",
       "Error Occured : The spreadsheet program ended unexpectedly\r\n"},
      {"it hangs, and what it started too",
       "case \"$line\" in open*) printf 'ok\\tTB\\n';; save) sleep 1000;; esac",
       "Error Occured : The spreadsheet program did not answer within 1 seconds\r\n"},
  };
  frmcrtb& form = open("C1", 2008);
  write(target_, "mine");
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    useHelper(c.helper, 700ms);
    dialogs.queueAnswer(Answer::Yes);
    EXPECT_EQ(run(form, target_).back(), c.message);
    EXPECT_EQ(contentOf(target_), "mine");
    expectClean();
    EXPECT_FALSE(frontEnd.busy);
  }
  practice.surroundings().useCalc({folder_.path() / "not-there", 1s});
  dialogs.queueAnswer(Answer::Yes);
  EXPECT_TRUE(run(form, target_).back().starts_with("Error Occured : The program "));
  EXPECT_EQ(contentOf(target_), "mine");
  // A folder where nobody can write, not even root.
  const std::string nowhere = run(form, "/proc/books.xls").back();
  EXPECT_TRUE(nowhere.starts_with("Error Occured : ")) << nowhere;
  EXPECT_TRUE(nowhere.ends_with(": /proc/books.xls\r\n")) << nowhere;
  EXPECT_TRUE(log().empty()) << "what the person was told need not be logged";
}

// --- through LibreOffice -------------------------------------------------------------------------

#ifdef QUILLET_CALC

// A busy machine takes its time.
const CalcOptions calc{QUILLET_CALC, 180s};

const fs::path& realTemplate() {
  static TemporaryFolder folder;
  static const fs::path path = [] {
    fs::path made = folder.path() / "ORVO_TB.xls";
    if (!suite::TemplateMaker(calc, made).finish()) throw std::runtime_error("no template made");
    return made;
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

// Texts, numbers and errors of the only sheet, by row and column.
using Place = std::pair<int, int>;
struct Read {
  std::map<Place, std::string> texts, errors;
  std::map<Place, double> numbers;
};

Read readBack(const fs::path& path, const std::string& sheet = "TB") {
  Read read;
  const std::string command =
      std::string(QUILLET_CALC) + " --read '" + path.string() + "' 2>/dev/null";
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return read;
  std::string all;
  char buffer[4096];
  while (const std::size_t got = fread(buffer, 1, sizeof buffer, pipe)) all.append(buffer, got);
  EXPECT_EQ(pclose(pipe), 0);
  std::istringstream lines(all);
  for (std::string text; std::getline(lines, text);) {
    const CalcLine line = suite::calcLine(text);
    if (line[0] == "sheet") {
      EXPECT_EQ(line[1], sheet);
      continue;
    }
    const Place at{std::stoi(line[1]), std::stoi(line[2])};
    if (line[0] == "text") read.texts[at] = line[3];
    if (line[0] == "error") read.errors[at] = line[3];
    if (line[0] == "number") read.numbers[at] = shownAmount(line[3]).rupees();
  }
  return read;
}

class CalcTest : public ExportTest {
 protected:
  CalcTest() {
    fs::copy_file(realTemplate(), template_, fs::copy_options::overwrite_existing);
    practice.surroundings().useCalc(calc);
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
  // The workbook's first sheet as LibreOffice writes it into a text file; commas inside of a cell
  // are left out.
  Rows textOf(const fs::path& workbook) {
    std::istringstream text(contentOf(converted(workbook, "csv")));
    Rows rows;
    for (std::string line; std::getline(text, line);) {
      Texts& cells = rows.emplace_back(1);
      bool quoted = false;
      for (const char c : line) {
        if (c == '"') {
          quoted = !quoted;
        } else if (c != ',') {
          cells.back() += c;
        } else if (!quoted) {
          cells.emplace_back();
        }
      }
    }
    return rows;
  }
  // What the amounts below the heading add up to; the other cells of the column are empty.
  std::string sumOf(const Rows& rows, std::size_t column) {
    double sum = 0;
    for (std::size_t row = 1; row < rows.size(); ++row) {
      const std::string& cell = rows[row].at(column);
      EXPECT_EQ(cell.find_first_not_of("0123456789."), std::string::npos) << cell;
      sum += shownAmount(cell).rupees();
    }
    return host().formatgen(sum, "#,##0.00");
  }

  // Awkward names first, then as many as it takes.
  void fill(const std::string& table, int lines) {
    suite::BulkInsert ledgers(practice.database(), "Mast_Part(PartId,Particular)");
    suite::BulkInsert rows(practice.database(), table + "(srno,code_no,partid,allid,amt,nid)");
    const long banks = group("BANKS");
    for (int i = 1; i <= lines; ++i) {
      const auto index = static_cast<std::size_t>(i - 1);
      ledgers.row(50'000 + i, index < awkwardNames.size() ? awkwardNames[index]
                                                          : "Ledger " + std::to_string(i));
      rows.row(i, "C2", 50'000 + i, banks,
               suite::BulkInsert::Number{std::to_string(i * 7919 % 1'000'003) + "." +
                                         std::to_string(10 + i % 90)},
               i % 3 == 0 ? 2 : 1);
    }
    ledgers.send();
    rows.send();
    host().executedElsewhere("insert into Mast_Part");
  }
};

TEST_F(CalcTest, TwentyThousandLinesComeBackAsTheyWere) {
  constexpr int lines = 20'000;
  fill(addYear("C2", 2008), lines);
  frmcrtb& form = open("C2", 2008);
  ASSERT_EQ(form.vsfm.rows(), lines);
  frontEnd.updates = 0;
  EXPECT_EQ(run(form, target_), (Texts{exported()}));
  EXPECT_EQ(frontEnd.total, lines);
  EXPECT_EQ(frontEnd.done, lines);
  EXPECT_GT(frontEnd.updates, 2) << "the bar moved";
  expectClean();

  const Read read = readBack(target_);
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
  const Rows text = textOf(target_);
  EXPECT_EQ(text.size(), 1U + lines);
  EXPECT_EQ(sumOf(text, 3), form.txttotdeb[0].text());
  EXPECT_EQ(sumOf(text, 4), form.txttotcr[0].text());
  EXPECT_EQ(contentOf(template_), contentOf(realTemplate()));
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
  write(target_, "mine");
  const auto expectRefused = [&] {
    dialogs.queueAnswer(Answer::Yes);
    const std::string message = run(form, target_).back();
    EXPECT_TRUE(message.starts_with("Error Occured : ")) << message;
    EXPECT_EQ(contentOf(target_), "mine");
    expectClean();
  };
  expectRefused();
  // No room even for the copy of the template.
  write(disk / "padding", std::string(61UL * 1024, 'x'));
  expectRefused();
  umount(disk.c_str());
}

TEST_F(CalcTest, NeitherTheFolderNorTheLocaleMatters) {
  const fs::path folder = folder_.path() / "%41 #ä\\'\"😀\n?";
  fs::create_directory(folder);
  const Variable locale("LC_ALL", "C"), temporary("TMPDIR", folder.string());
  target_ = folder / "\"TB\" 31.03.xls";
  EXPECT_EQ(run(open("C1", 2008), target_), (Texts{exported()}));
  EXPECT_GT(fs::file_size(target_), 0U);
  expectClean();
}

// A sheet takes the name of the text file that it is made from, and is found in capitals and small
// letters. What a practice reckons beside the list goes on reckoning.
TEST_F(CalcTest, ATemplateOfOnesOwnKeepsItsSums) {
  frmcrtb& form = open("C1", 2008);
  for (const std::string sheet : {"tb", "accounts"}) {
    const fs::path own = folder_.path() / (sheet + ".csv");
    write(own, ",,,,,=SUM(D2:D99),=SUM(E2:E99),=1/0\n");
    fs::copy_file(converted(own, "xls"), template_, fs::copy_options::overwrite_existing);
    const bool known = sheet == "tb";
    EXPECT_EQ(run(form, target_),
              (Texts{known ? exported() : "Trial Balance cannot be saved. Worksheet not found!"}));
    EXPECT_EQ(fs::exists(target_), known);
    if (known) {
      EXPECT_EQ(textOf(target_), (Rows{{"", "", "", "", "", "12345.6", "0.05", "#DIV/0!"},
                                       {"1", "=1+1", "BANKS", "12345.6", "", "", "", ""},
                                       {"2", "@x", "SALES", "", "0.05", "", "", ""}}));
      const Read read = readBack(target_, sheet);
      EXPECT_EQ(read.texts.at({2, 2}), "=1+1");
      EXPECT_EQ(read.errors, (std::map<Place, std::string>{{{1, 8}, "#DIV/0!"}}));
    }
    fs::remove(target_);
  }
}

TEST_F(CalcTest, ATemplateThatIsNoWorkbookIsAnError) {
  write(template_, std::string("PK\x03\x04 nothing of the kind \x00\x01", 27));
  frmcrtb& form = open("C1", 2008);
  const std::string message = run(form, target_).back();
  EXPECT_TRUE(message.starts_with("Error Occured : ")) << message;
  EXPECT_FALSE(fs::exists(target_));
  expectClean();
}

#endif

}  // namespace
}  // namespace quillet::support
