// The export: messages and order with a helper that only takes notes.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "printing/export_fixture.h"

namespace quillet::support {
namespace {

using namespace std::chrono_literals;

class NotedExportTest : public ExportTest {
 protected:
  // A helper made of shell commands that are run for each line, `$line`. Every line is noted.
  void useHelper(const std::string& perLine, std::chrono::milliseconds limit = 20s) {
    const fs::path program = folder_.path() / "helper";
    write(program, "#!/bin/sh\nwhile IFS= read -r line; do printf '%s\\n' \"$line\" >> '" +
                       notes().string() + "'\ncase \"$line\" in " + perLine + " esac\ndone\n");
    chmod(program.c_str(), 0700);
    practice.environment().useCalc({program, limit});
  }
  static std::string opened(const std::string& sheets) {
    return "open*) printf 'ok\\t" + sheets + "\\n';;";
  }
  void useSheets(const std::string& names) {
    useHelper(opened(names) + " save|close) echo ok;; quit) echo ok; exit 0;;");
  }
  fs::path notes() const { return folder_.path() / "notes"; }
  // The lines that it got since the last call.
  Texts noted() const {
    Texts lines;
    std::istringstream text(contentOf(notes()));
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    fs::remove(notes());
    return lines;
  }
};

TEST_F(NotedExportTest, SendsTheRowsAndReplacesTheTarget) {
  useSheets("Notes\\ttb");
  frmcrtb& form = open("C1", 2008);
  EXPECT_EQ(run(form, target_), (Texts{exportedTo(target_)}));
  EXPECT_EQ(dialogs.takePrompts(), (Texts{template_.string()})) << "the proposed target";
  Texts lines = noted();
  const std::string temporary = "open\t" + folder_.path().string() + "/.";
  EXPECT_TRUE(lines.at(0).starts_with(temporary));
  lines.erase(lines.begin());
  EXPECT_EQ(lines,
            (Texts{"number\t1\t2\t1\t1", "text\t1\t2\t2\t=1+1", "text\t1\t2\t3\tBANKS",
                   "number\t1\t2\t4\t12345.6", "number\t1\t3\t1\t2", "text\t1\t3\t2\t@x",
                   "text\t1\t3\t3\tSALES", "number\t1\t3\t5\t0.05", "save", "close", "quit"}));
  EXPECT_EQ(contentOf(target_), "the template");
  expectClean();
  EXPECT_EQ(frontEnd.progress, "Exporting to " + target_.string() + "....");

  // A path from where the program runs.
  const fs::path before = fs::current_path();
  fs::current_path(folder_.path());
  EXPECT_EQ(run(form, "here.xls"), (Texts{exportedTo("here.xls")}));
  fs::current_path(before);
  EXPECT_EQ(contentOf(folder_.path() / "here.xls"), "the template");
  EXPECT_TRUE(noted().at(0).starts_with(temporary));

  // A name with another ending, or none, gets the one of the filter.
  for (const std::string name : {"second", "TB 31.03.2009", "books.xlsx", "A\\B \"q\" 'x' 😀 "}) {
    const fs::path file = folder_.path() / (name + ".xls");
    EXPECT_EQ(run(form, folder_.path() / name), (Texts{exportedTo(file)}));
    EXPECT_EQ(contentOf(file), "the template");
  }
  EXPECT_EQ(run(form, folder_.path() / "BIG.XLS").size(), 1U);
  EXPECT_TRUE(fs::exists(folder_.path() / "BIG.XLS"));
}

// Before the helper is there, and as long as it makes us wait.
TEST_F(NotedExportTest, SaysAtOnceThatItExports) {
  useHelper(
      "open*) sleep 0.3; printf 'ok\\tTB\\n';; save|close) echo ok;; quit) echo ok; exit 0;;");
  frmcrtb& form = open("C1", 2008);
  frontEnd.waits = 0;
  EXPECT_EQ(run(form, target_), (Texts{exportedTo(target_)}));
  EXPECT_GT(frontEnd.waits, 4);
  practice.environment().useCalc({folder_.path() / "nothing", 20s});
  frontEnd.waits = 0;
  expectRefused(form);
  EXPECT_EQ(frontEnd.waits, 1);
}

TEST_F(NotedExportTest, ARowWithoutASideHasNoAmount) {
  useSheets("TB");
  frmcrtb& form = open("C1", 2008);
  form.click(form.mnuyrs[2]);
  run(form, target_);
  const Texts lines = noted();
  ASSERT_EQ(lines.size(), 15U);
  EXPECT_EQ(Texts(lines.end() - 6, lines.end()),
            (Texts{"number\t0\t4\t1\t3", "text\t0\t4\t2\tOld", "text\t0\t4\t3\tCAPITAL", "save",
                   "close", "quit"}));
}

TEST_F(NotedExportTest, RefusalsLeaveEverythingAsItWas) {
  useSheets("TB");
  frmcrtb& form = open("C1", 2008);
  EXPECT_EQ(run(form, {}), Texts{}) << "cancelled";
  dialogs.takePrompts();
  // A file that cannot be taken is told, and the dialog opens again with a name of its own.
  fs::create_symlink(template_, folder_.path() / "linked.xls");
  fs::create_symlink("itself.xls", folder_.path() / "itself.xls");
  fs::create_directory(folder_.path() / "folder.xls");
  const std::string isTemplate =
      "This file is the template of the export. Please choose another file.";
  const std::string tooLong = "The name of the file is too long. Please choose a shorter one.";
  const std::string noFile = " is no file that can be written. Please choose another name.";
  const std::string folder = folder_.path().string() + '/';
  const auto own = [&](const char* year) {
    return (practice.folder().documents() / ("C1 " + std::string(year) + ".xls")).string();
  };
  for (const auto& [name, message] : std::vector<std::pair<fs::path, std::string>>{
           {template_, isTemplate},
           {folder + "linked.xls", isTemplate},
           {folder + std::string(252, 'x'), tooLong},
           {folder + std::string(5'000, 'x'), tooLong},
           {folder, folder + ".xls" + noFile},
           {folder + "folder", folder + "folder.xls" + noFile},
           {folder + "no/such/books.xls",
            "There is no folder " + folder + "no/such. Please choose another one."},
           {folder + "itself", folder + "itself.xls: Too many levels of symbolic links. "
                                        "Please choose another file."}}) {
    EXPECT_EQ(run(form, name, fs::path()), Texts{message});
    EXPECT_EQ(dialogs.takePrompts(), (Texts{template_.string(), own("2008-09")}));
  }
  form.click(form.mnuyrs[1]);
  run(form, template_, fs::path());
  EXPECT_EQ(dialogs.takePrompts().back(), own("2007-08"));
  form.click(form.mnuyrs[0]);
  // There already.
  const std::string question = "File already exists. Do you want to overwrite it";
  write(target_, "mine");
  dialogs.queueAnswer(Answer::No);
  EXPECT_EQ(run(form, target_), (Texts{question}));
  EXPECT_EQ(contentOf(target_), "mine");
  EXPECT_TRUE(noted().empty()) << "the helper was not started";
  yes();
  EXPECT_EQ(run(form, target_), (Texts{question, exportedTo(target_)}));
  EXPECT_EQ(contentOf(target_), "the template");
  // No template.
  fs::remove(template_);
  EXPECT_TRUE(form.click(form.mnuexport));
  EXPECT_EQ(messages(), (Texts{"Missing Source File."}));
  EXPECT_TRUE(log().empty());
}

TEST_F(NotedExportTest, WhateverFailsIsToldAndTheTargetStays) {
  const std::string open = opened("TB"), ended = "The spreadsheet program ended unexpectedly\r\n";
  const struct {
    const char* what;
    std::string helper, message;
  } cases[] = {
      {"LibreOffice says no", "open*) printf 'error\\tGeneral I/O\\\\tfailure\\n';;",
       " : General I/O\tfailure\r\n"},
      {"saving fails", open + "save) printf 'error\\tDisk full\\n';;", " : Disk full\r\n"},
      {"it dies at once", "*) exit 1;;", ended},
      {"it dies while saving", open + "save) kill -9 $$;;", ended},
      {"it hangs, and what it started too", open + "save) sleep 1000;;",
       "The spreadsheet program did not answer within 1 seconds\r\n"},
  };
  frmcrtb& form = this->open("C1", 2008);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    useHelper(c.helper, 700ms);
    expectRefused(form, c.message);
  }
  useSheets("Sheet1\\tTBX");
  yes();
  EXPECT_EQ(run(form, target_).back(), "Trial Balance cannot be saved. Worksheet not found!");
  EXPECT_EQ(contentOf(target_), "mine");
  expectClean();
  practice.environment().useCalc({folder_.path() / "not-there", 1s});
  expectRefused(form);
  // A folder where nobody can write, not even root.
  const std::string nowhere = run(form, "/proc/books.xls").back();
  EXPECT_TRUE(nowhere.starts_with("Error Occured : ")) << nowhere;
  EXPECT_TRUE(nowhere.ends_with(": /proc/books.xls\r\n")) << nowhere;
  EXPECT_TRUE(log().empty()) << "what the person was told need not be logged";
}

}  // namespace
}  // namespace quillet::support
