// The module's forms on a host that is reached by name: what fails there becomes a line of the log,
// and what is exported goes through the spreadsheet application.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "books/year_tables.h"
#include "controls/form.h"
#include "data/errors.h"
#include "data/paths.h"
#include "editor/frmcrtb.h"
#include "home/third.h"
#include "ports/practice.h"
#include "ports/spreadsheet.h"

namespace quillet::fakes {
namespace {

namespace fs = std::filesystem;

// Without the time at its head.
std::string afterTime(const std::string& line) {
  return line.size() > 20 && line[19] == '\t' ? line.substr(20) : "no time: " + line;
}

TEST(Module, LogsEachErrorOfTheHostOnALineInItsFolder) {
  Practice practice;
  practice.failing = "TempClTbl";
  practice.forms().ObjThird()->show();
  practice.failing = "TAB_1";
  practice.editor().show();
  const std::string error = "1064\tYou have an error  in your SQL syntax\tDriver\t";
  const auto lines = practice.logged();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(afterTime(lines[0]), error + "third\tFORM_LOAD");
  EXPECT_EQ(afterTime(lines[1]), error + "frmcrtb\tLOADTRIALBAL");
}

TEST(Module, LogsAHostThatGivesNoRecordset) {
  Practice practice;
  practice.suite.host->answers("RecordsetQuery", Variant::null());
  practice.forms().ObjThird()->show();
  const auto lines = practice.logged();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_TRUE(afterTime(lines[0]).starts_with(
      "91\tThe host gave no recordset\tTalBase.ClsMain.RecordsetQuery\tthird\t"))
      << lines[0];
}

// The host's own dialog is no form of ours: nothing of ours comes to the front when it closes.
TEST(Module, ReadsTheClientsAnewAfterADialogOfTheHost) {
  Practice practice;
  practice.suite.host->add("ShowClListSelection", [&](const Call&) {
    practice.clients = 2;
    return Variant();
  });
  auto& home = static_cast<third&>(*practice.forms().ObjThird());
  home.show();
  EXPECT_EQ(home.ClGrd1.rows(), 1);
  home.click(home.ClGrd1.cmdclients);
  EXPECT_EQ(home.ClGrd1.rows(), 2);
}

// The number of a missing table is whatever stands between the module and the database makes of it.
TEST(Module, PassesOverAMissingTableWhateverItsNumber) {
  Practice practice;
  TableNames missing;
  for (const char* table : {"TAB_1", "TAB_2"}) {
    try {
      onTable(practice.suite.service(), table, missing,
              [] { throw RunTimeError(static_cast<LONG>(0x80040E37), "No table", "Driver"); });
    } catch (const RunTimeError& error) {
      EXPECT_STREQ(table, "TAB_1") << "it is there";
      EXPECT_EQ(error.number(), static_cast<LONG>(0x80040E37));
    }
  }
  EXPECT_EQ(missing, TableNames{"TAB_2"});
}

std::string messageOf(const fs::path& target) {
  return "Data Successfully Exported to File : " + textOf(target);
}

TEST(Module, ExportsTheYearIntoACopyOfTheTemplate) {
  for (const bool blocks : {true, false}) {
    SCOPED_TRACE(blocks);
    Practice practice;
    FakeSpreadsheet excel;
    excel.blocks = blocks;
    excel.sheets = {"Notes", "tb"};
    if (!blocks) excel.fails = "DisplayAlerts";
    auto& editor = static_cast<frmcrtb&>(practice.editor());
    editor.show();
    editor.click(editor.cmdexport);
    ASSERT_EQ(practice.boxes.told, std::vector{messageOf(practice.boxes.target)});
    std::string template_;
    std::ifstream(practice.boxes.target) >> template_;
    EXPECT_EQ(template_, "template");
    const char* const rows[][5] = {
        {"number 1", "text 007", "text CASH AND BANK", "number 1000.5", ""},
        {"number 2", "text 1/2", "text CASH AND BANK", "", "number 900"},
        {"number 3", "text =1+1", "text CASH AND BANK", "", "number 100.5"}};
    for (int row = 0; row < 3; ++row) {
      for (int column = 0; column < 5; ++column) {
        EXPECT_EQ(excel.holds(row + 2, column + 1), rows[row][column]) << row << column;
      }
    }
    EXPECT_EQ(excel.calls.back(), "Quit");
    EXPECT_EQ(practice.logged().size(), 0U);
  }
}

TEST(Module, TellsWhatFailedInAnExportAndLeavesTheTarget) {
  const struct {
    const char* step;
    std::string message;
  } cases[] = {{"Open", "Error Occured : Open failed\r\n"},
               {"Worksheets", "Error Occured : Worksheets failed\r\n"},
               {"Value", "Error Occured : Value failed\r\n"},
               {"Save", "Error Occured : Save failed\r\n"},
               {"Close", "Error Occured : Close failed\r\n"},
               {"Quit", "Error Occured : Quit failed\r\n"},
               {"sheet", "Trial Balance cannot be saved. Worksheet not found!"},
               {"class",
                "Error Occured : The component cannot create the object: "
                "Excel.Application\r\n"}};
  for (const auto& [step, message] : cases) {
    SCOPED_TRACE(step);
    Practice practice;
    FakeSpreadsheet excel;
    excel.fails = step;
    if (excel.fails == "sheet") excel.sheets = {"Notes", "TB2"};
    if (excel.fails == "class") serve("Excel.Application", nullptr);
    std::ofstream(practice.boxes.target) << "mine";
    auto& editor = static_cast<frmcrtb&>(practice.editor());
    editor.show();
    editor.click(editor.cmdexport);
    EXPECT_EQ(practice.boxes.told.back(), message);
    EXPECT_EQ(std::count(excel.calls.begin(), excel.calls.end(), "Quit"),
              excel.fails == "class" ? 0 : 1);
    if (excel.fails == "Value" || excel.fails == "Save") {
      EXPECT_EQ(*(excel.calls.end() - 2), "Close Boolean 0") << "nothing is kept";
    }
    std::string there;
    std::ifstream(practice.boxes.target) >> there;
    EXPECT_EQ(there, "mine");
    const auto files = std::distance(fs::directory_iterator(practice.folder), {});
    EXPECT_EQ(files, 2) << "the target and the folder of the template";
  }
}

}  // namespace
}  // namespace quillet::fakes
