#include "small_host.h"

#include <cstdio>

namespace quillet::windows {
namespace {

using Row = std::vector<std::string>;

struct Table {
  const char* asked;  // in the statement
  Row columns;
  std::vector<Row> rows;
};

class CannedRows : public Recordset {
 public:
  explicit CannedRows(const Table& table) : table_(table) {}
  bool EOF_() const override { return at_ >= table_.rows.size(); }
  void MoveNext() override { ++at_; }
  long RecordCount() const override { return static_cast<long>(table_.rows.size()); }
  int fieldCount() const override { return static_cast<int>(table_.columns.size()); }
  std::string_view fieldName(int column) const override {
    return table_.columns[static_cast<std::size_t>(column)];
  }
  std::optional<std::string_view> field(int column) const override {
    return table_.rows[at_][static_cast<std::size_t>(column)];
  }

 private:
  Table table_;
  std::size_t at_ = 0;
};

const std::vector<std::string>& ledgers() {
  static const std::vector<std::string> names{"CASH IN HAND",
                                              "CAPITAL, HARISH NIVRUTKAR",
                                              "PROFESSIONAL FEES RECEIVED",
                                              "RENT",
                                              "SALES",
                                              "SALARIES AND BONUS",
                                              "PURCHASES",
                                              "SUNDRY DEBTORS",
                                              "TELEPHONE",
                                              "BANK CHARGES"};
  return names;
}

Table ledgerMaster() {
  Table table{"Mast_Part", {"PartId", "Particular", "cntr", "names", "name", "Part"}, {}};
  long id = 0;
  for (const std::string& name : ledgers()) {
    table.rows.push_back({std::to_string(++id), name, "1", "10", name, name});
  }
  return table;
}

Table lines() {
  Table table{"TAB_1", {"srno", "code_no", "PartId", "allid", "amt", "nid", "maxsr"}, {}};
  for (int line = 1; line <= 40; ++line) {
    table.rows.push_back({std::to_string(line), "DSK01", std::to_string(line % 10 + 1),
                          std::to_string(line % 3 + 1), std::to_string(line * 1234.5),
                          std::to_string(line % 2 + 1), "40"});
  }
  return table;
}

const std::vector<Table>& tables() {
  static const std::vector<Table> all{
      {"TempClTbl",
       {"CodeNo", "Name", "Status", "Father", "Born", "Address", "GroupCode", "GroupName",
        "Company"},
       {{"DSK01", "Deshvir and Kolhare", "Partnership Firm", "", "01/04/1999",
         "Shop 6, Loha Bazaar, Nevargarh", "DSK", "Deshvir", ""},
        {"GAV01", "Iqbal Hasan Gavandiwala", "Individual", "Hasan Ali Gavandiwala", "09/12/1972",
         "Opp. Old Bus Stand, Nevargarh", "", "", ""},
        {"PAL01", "Palvanti Agro Implements Ltd.", "Company", "", "26/01/1989",
         "Survey 118, Highway Naka, Othavadi", "", "", ""},
        {"BAE01",
         "B\xC3\xA4"
         "cker & Sons \xE2\x82\xB9 \xF0\x9F\x8D\x9E",
         "Company", "", "02/11/1994", "Plot 27, Industrial Estate, Birvanagar", "TAV", "Tavdekar",
         ""}}},
      {"from master",
       {"code_no", "f_year_dt", "s_year_dt", "f_yr", "s_yr", "tbl_nm", "d_of_s", "Count"},
       {{"DSK01", "01/04/2008", "31/03/2009", "01042008", "31032009", "TAB_1", "", "1"}}},
      lines(),
      {"JRNL_1", {"code_no", "VID", "VDate", "PartId", "AllId", "Amount", "VNar", "LSrNo"}, {}},
      {"ledger_temp", {"PartId", "Part", "AllGrp", "AllId", "Amt", "AmtDr", "AmtCr"}, {}},
      {"mast_allgrp",
       {"AllId", "ALLGRP", "GGID", "gunder", "gid"},
       {{"1", "CAPITAL ACCOUNT", "1", "CAPITAL", "1"},
        {"2", "RENT RECEIVED", "2", "INCOME", "2"},
        {"3", "SUNDRY DEBTORS", "3", "ASSETS", "3"}}},
      {"main_info1", {"nm"}, {{"Deshvir and Kolhare"}}},
      ledgerMaster(),
  };
  return all;
}

bool contains(std::string_view text, std::string_view part) {
  const auto same = [](char a, char b) { return std::tolower(a) == std::tolower(b); };
  return std::search(text.begin(), text.end(), part.begin(), part.end(), same) != text.end();
}

}  // namespace

RecordsetPtr SmallHost::RecordsetQuery(const Sql& sql, Connection&, CursorType, LockType, int) {
  for (const Table& table : tables()) {
    if (contains(sql.text(), table.asked)) return std::make_unique<CannedRows>(table);
  }
  return std::make_unique<CannedRows>(Table{"", {"nothing"}, {}});
}

std::string SmallHost::formatgen(double number, const std::string&) const {
  char text[64];
  std::snprintf(text, sizeof text, "%.2f", number);
  return text;
}

std::string SmallHost::GetPart_MastPartId(long partId) {
  return partId >= 1 && partId <= 10 ? ledgers()[static_cast<std::size_t>(partId - 1)] : "";
}

namespace {

class NoReporter : public Reporter {
  void WinModeReport(bool) override {}
  void NewReport() override {}
  void printtext(const std::string&) override {}
  void CreateTable(int, int) override {}
  void WriteToReport(std::vector<std::string>&, std::vector<Align>&, std::vector<long>&,
                     std::vector<std::string>&, std::vector<std::string>&, bool&, std::string&,
                     std::string&, std::string&, std::string&) override {}
  void ShowReport() override {}
};

}  // namespace

std::unique_ptr<Reporter> SmallEnvironment::createReporter() {
  return std::make_unique<NoReporter>();
}

}  // namespace quillet::windows
