#include "ports/practice.h"

#include <cstdio>
#include <fstream>

#include "data/errors.h"
#include "data/paths.h"
#include "data/text.h"
#include "fakes/recordset.h"
#include "windows/host/late_reporter.h"
#include "windows/host/late_spreadsheet.h"
#include "windows/host/late_stock.h"

namespace quillet::fakes {
namespace {

namespace fs = std::filesystem;

struct Table {
  const char* words;  // of a statement, in capital letters; the first that fits counts
  std::vector<std::string> names;
  std::vector<Row> rows;
};

const std::vector<Table>& tables() {
  static const std::vector<Table> all{
      {"SHOW TABLES", {"Tables_in_suite"}, {{"tab_1"}, {"master"}}},
      {"SUM(", {"sum"}, {}},
      {"'01042008'",
       {"code_no", "f_year_dt", "s_year_dt", "f_yr", "s_yr", "tbl_nm", "d_of_s", "Count"},
       {{"C1", "01/04/2008", "31/03/2009", "01042008", "31032009", "TAB_1", Variant::null(), 1}}},
      {"FROM MASTER",
       {"code_no", "f_year_dt", "s_year_dt", "f_yr", "s_yr", "tbl_nm", "d_of_s", "Count"},
       {}},
      {"MAIN_INFO1", {"nm"}, {{"Asha Traders"}}},
      {"OWNER1", {"f_nm", "m_nm", "l_nm"}, {}},
      {"PARTICULAR FROM MAST_PART", {"Particular"}, {{"007"}, {"1/2"}, {"=1+1"}}},
      {"MAST_ALLGRP", {"ALLID", "GID", "ALLGRP", "UserGrp"}, {{5, 8, "CASH AND BANK", "N"}}},
      {"FROM TAB_1",
       {"srno", "code_no", "partid", "allid", "amt", "nid"},
       {{1, "C1", 1, 5, 1000.5, 1}, {2, "C1", 2, 5, 900.0, 2}, {3, "C1", 3, 5, 100.5, 2}}},
      {"FROM TEMPCLTBL",
       {"CodeNo", "Name", "Status", "Father", "Born", "Address", "GroupCode", "GroupName",
        "Company"},
       {{"C1", "Asha Traders", "Firm", Variant::null(), "", "Pune", "", "", ""},
        {"C2", "Birla & Co", "Firm", "", "", 411001, "", "", ""}}},
  };
  return all;
}

std::string amountText(double amount) {
  char text[40];
  std::snprintf(text, sizeof text, "%.2f", amount);
  return text;
}

}  // namespace

std::optional<std::string> WrittenDialogs::saveFile(const std::string&, const std::string&) {
  return target.empty() ? std::nullopt : std::optional(textOf(target));
}

Practice::Practice() : folder(fs::temp_directory_path() / u8"h\u00f6st") {
  fs::remove_all(folder);
  fs::create_directories(folder / "Databases");
  std::ofstream(folder / "Databases" / "ORVO_TB.xls") << "template";
  boxes.target = folder / u8"\u091f\u0940.xls";
  answerOperations();
  serve("PrjOrvoReporter.ClsMain", reporter_.get());
}

Practice::~Practice() {
  forms_.reset();
  serve("PrjOrvoReporter.ClsMain", nullptr);
  fs::remove_all(folder);
}

void Practice::answerOperations() {
  Recorder& host = *suite.host;
  for (const char* silent : {"ConQuery", "resize_for_resolution", "progress", "SaveSettingINI"}) {
    host.answers(silent, {});
  }
  host.answers("CheckDllsVersion", true);
  host.answers("CheckPass", true);
  host.answers("DbObj", holding("State", 1));
  host.answers("ExePath", textOf(folder));
  host.answers("DocPath", textOf(folder));
  host.answers("vLstSelClCode", "");
  host.add("GetSettingINI", [](const Call& call) { return Variant(call.text(2)); });
  host.add("TruncVarSQL", [](const Call& call) { return Variant(call.text(0)); });
  host.add("formatgen",
           [](const Call& call) { return Variant(amountText(windows::asNumber(call[0]))); });
  host.add("GetPart_MastPartId", [](const Call& call) {
    const char* const names[] = {"", "007", "1/2", "=1+1"};
    return Variant(names[call.integer(0)]);
  });
  const auto progress = Pointer<Recorder>::attach(new Recorder);
  progress->answers("Text1", {});
  progress->answers("update_pg", {});
  host.answers("objProgress", progress.get());
  host.add("RecordsetQuery", [this](const Call& call) { return rows(call.text(0)); });
}

Variant Practice::rows(const std::string& sql) const {
  if (!failing.empty() && sql.find(failing) != std::string::npos) {
    throw RunTimeError(1064, "You have an error\r\nin your SQL syntax", "Driver");
  }
  for (const Table& table : tables()) {
    if (upperCase(sql).find(table.words) == std::string::npos) continue;
    std::vector<Row> found = table.rows;
    if (table.names.front() == "CodeNo") found.resize(clients);
    return recordset(table.names, found).get();
  }
  return recordset({"nothing"}, {}).get();
}

Forms& Practice::forms() {
  if (!forms_) forms_ = std::make_unique<Forms>(*this);
  return *forms_;
}

Form& Practice::editor() {
  forms().VClCode("C1");
  forms().VFATbl("TAB_1");
  forms().VFDate("01042008");
  forms().VSDate("31032009");
  return *forms().ObjCreate();
}

std::vector<std::string> Practice::logged() const {
  std::ifstream log(folder / "TalLog.log");
  std::vector<std::string> lines;
  for (std::string line; std::getline(log, line);) lines.push_back(line);
  return lines;
}

std::unique_ptr<Reporter> Practice::createReporter() {
  return std::make_unique<windows::LateReporter>();
}

std::unique_ptr<StockForms> Practice::createStockForms(OpenForms&) {
  return std::make_unique<windows::LateStock>([](const auto& show) { show(); });
}

std::unique_ptr<Spreadsheet> Practice::createSpreadsheet() {
  return std::make_unique<windows::LateSpreadsheet>();
}

}  // namespace quillet::fakes
