#include "suite/schema_tables.h"

#include "suite/schema.h"

namespace quillet::suite {
namespace {

constexpr const char* code = "varchar(20) not null default ''";
constexpr const char* nameText = "varchar(100)";
constexpr const char* longText = "varchar(250)";
constexpr const char* dateText = "varchar(20)";
constexpr const char* yearKey = "varchar(8)";
constexpr const char* wholeNumber = "int";
constexpr const char* amount = "double";
constexpr const char* date = "date";
constexpr const char* anyText = "text";

std::vector<TableDefinition> registryAndMasters() {
  return {
      {"master",
       {{"code_no", code},
        {"f_year_dt", dateText},
        {"s_year_dt", dateText},
        {"tbl_nm", "varchar(30)"},
        {"count", wholeNumber},
        {"f_yr", yearKey},
        {"s_yr", yearKey},
        {"d_of_s", dateText},
        {"annex", longText}},
       {"code_no,s_yr", "tbl_nm"}},
      // Old data holds several names for one id; the clean-up removes them.
      {"Mast_Part", {{"PartId", wholeNumber}, {"Particular", nameText}}, {"PartId", "Particular"}},
      {"Mast_AllGrp",
       {{"ALLID", wholeNumber},
        {"GID", wholeNumber},
        {"ALLGRP", nameText},
        {"UserGrp", "varchar(1)"}},
       {"ALLID", "GID", "ALLGRP"}},
      {"Mast_Gunder", {{"GId", wholeNumber}, {"Gunder", nameText}, {"ggid", wholeNumber}}, {"GId"}},
      {"AllGrp_Map",
       {{"Code_No", code},
        {"AllId", wholeNumber},
        {"SVIMapId", wholeNumber},
        {"SVIMapName", nameText},
        {"ITMapId", wholeNumber},
        {"ITMapName", nameText}},
       {"Code_No,AllId"}},
      {"RawMatGrpM",
       {{"GrpId", wholeNumber}, {"GrpHead", nameText}, {"GrpType", wholeNumber}},
       {"GrpId"}},
      {"RmSchSetup",
       {{"Code_No", code},
        {"FYr", wholeNumber},
        {"Head", longText},
        {"RmGroup", longText},
        {"OsGroup", longText},
        {"PurGroup", longText},
        {"SalGroup", longText},
        {"CsGroup", longText}},
       {"Code_No,FYr"}},
  };
}

std::vector<TableDefinition> clientRegister() {
  return {
      {"Main_Info1",
       {{"code_no", code},
        {"nm", nameText},
        {"status", nameText},
        {"father", nameText},
        {"born", date},
        {"address", longText},
        {"group_code", code},
        {"group_name", nameText},
        {"company", nameText}},
       {"code_no"}},
      {"owner1",
       {{"code", code}, {"f_nm", nameText}, {"m_nm", nameText}, {"l_nm", nameText}},
       {"code"}},
      {"TempClTbl",
       {{"CodeNo", code},
        {"Name", "varchar(302)"},
        {"Status", nameText},
        {"Father", nameText},
        {"Born", dateText},
        {"Address", longText},
        {"GroupCode", code},
        {"GroupName", nameText},
        {"Company", nameText}},
       {"CodeNo"},
       false},
  };
}

// Data of sibling components, kept by client and year.
std::vector<TableDefinition> tablesByYear() {
  std::vector<TableDefinition> tables;
  const auto add = [&](const char* table, const char* year) {
    tables.push_back({table,
                      {{"CODE_NO", code}, {year, wholeNumber}, {"details", anyText}},
                      {std::string("CODE_NO,") + year}});
  };
  for (const char* table : {"DeferTax_Liab", "DeferTax_Bal"}) add(table, "FYear");
  for (const char* table : {"Trade_Details", "NewFAMI", "NewFAMD", "SchNotes"}) add(table, "Yr");
  for (const char* table : {"SCHLISTS", "Anex3cd_Detail", "Anex3cd_Books", "Anex3cd_BfLoss",
                            "Anex3cd_AnexI", "Anex3cd_Main"}) {
    add(table, "FYr");
  }
  for (const char* table : {"PRFA", "PRFA_OTH"}) {
    tables.push_back({table,
                      {{"RCOUNT", wholeNumber}, {"CODE_NO", code}, {"details", anyText}},
                      {"CODE_NO,RCOUNT"}});
  }
  return tables;
}

std::vector<TableDefinition> suitesOwn() {
  std::vector<TableDefinition> tables = {
      {"SuitePassword",
       {{"Kind", "varchar(10)"}, {"Code", "varchar(50)"}, {"Hash", "varchar(128)"}},
       {"Kind,Code"}},
      {"SuiteMisc",
       {{"Section", nameText},
        {"Name", nameText},
        {"Value", anyText},
        {"Client", code},
        {"Yr", dateText}},
       {"Section,Name"}},
      // Files of deleted years: to be moved (''), "kept", to come "back", or "here" again. `At` is
      // when the act happened.
      {"SuiteRemoval",
       {{"File", anyText},
        {"Identity", nameText},
        {"At", "timestamp(6) not null default current_timestamp(6)"},
        {"State", "varchar(4) not null default ''"}},
       {"At"}},
      // The acts that changed versioned tables. `At` is when their rows begin and end. No act of
      // the log is ever changed: its own versions tell when somebody did.
      {"SuiteAct",
       {{"At", "timestamp(6) not null default current_timestamp(6)"},
        {"Station", anyText},
        {"Person", anyText},
        {"Form", anyText},
        {"Command", anyText},
        {"Client", code},
        {"Yr", yearKey},
        {"Reason", anyText},
        {"Tables", anyText},
        {"TakesBack", "timestamp(6) null default null"},
        {"Digest", "char(64)"},
        {"Hash", "char(64)"}},
       {"At", "Client,Yr,At"}},
      // Whose turn it is among the stations of a server, and which years they have open.
      {"SuiteTurn",
       {{"Id", wholeNumber}, {"Acts", wholeNumber}, {"Masters", wholeNumber}, {"Node", anyText}},
       {"Id"}},
      {"SuitePresence",
       {{"Code_No", code},
        {"Yr", yearKey},
        {"Station", nameText},
        {"Person", anyText},
        {"Since", "timestamp(6) not null default current_timestamp(6)"},
        {"Heard", "timestamp(6) not null default current_timestamp(6)"}},
       {"Code_No,Yr"}},
  };
  // What the forms keep there belongs to the books: where a merged group went, what was brought
  // forward.
  for (TableDefinition& table : tables) {
    table.versioned = table.name == "SuiteMisc" || table.name == "SuiteAct";
  }
  // Locking a year and unlocking it are acts themselves.
  tables.push_back({"SuiteYearLock",
                    {{"Code_No", code},
                     {"Yr", yearKey},
                     {"Reason", anyText},
                     {"Person", anyText},
                     {"Since", dateText}},
                    {"Code_No,Yr"}});
  return tables;
}

}  // namespace

std::vector<TableDefinition> sharedTables() {
  std::vector<TableDefinition> all = registryAndMasters();
  for (auto part : {clientRegister(), tablesByYear(), suitesOwn()}) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}

std::vector<TableDefinition> yearTables(const std::string& suffix) {
  std::vector<TableDefinition> all = {
      {"TAB_" + suffix,
       {{"srno", wholeNumber},
        {"code_no", code},
        {"partid", wholeNumber},
        {"allid", wholeNumber},
        {"amt", amount},
        {"nid", wholeNumber}},
       // The last one holds all that the summary figures read.
       {"code_no,srno", "code_no,partid,allid", "partid", "allid", "code_no,allid,nid,amt"}},
      {"JRNL_" + suffix,
       {{"code_no", code},
        {"VID", wholeNumber},
        {"LSrNo", wholeNumber},
        {"VDate", date},
        {"PartId", wholeNumber},
        {"AllId", wholeNumber},
        {"Amount", amount},
        {"VNar", anyText}},
       // The highest number of a voucher is asked for each new one.
       {"code_no,VDate", "row_till,VID", "PartId", "AllId"}},
      {"TRADE_" + suffix,
       {{"code_no", code}, {"partid", wholeNumber}, {"allid", wholeNumber}, {"amt", amount}},
       {"code_no,partid,allid", "partid", "allid"}},
      {"RMGRP_" + suffix,
       {{"Code_No", code},
        {"SrNo", wholeNumber},
        {"GrpSr", wholeNumber},
        {"OsGrpId", wholeNumber},
        {"PurGrpId", wholeNumber},
        {"SalGrpId", wholeNumber},
        {"CsGrpId", wholeNumber},
        {"GrpOrder", wholeNumber}},
       {"Code_No,SrNo", "GrpSr"}},
  };
  for (std::size_t linesOrVouchers : {0, 1}) all[linesOrVouchers].byEnd = true;
  // Schedules of sibling components: this one only asks whether rows are there, and deletes them.
  for (const char* prefix :
       {"PROFIT_", "SHARE_", "CAPITAL_", "RESV_", "LOAN_ADV_", "SECUR_", "INVEST_", "SUNDEB_",
        "BANK_", "MISCEXPASST_", "FDA_", "FIXED_", "SCHED_", "LIST_", "NewFATRo", "NewFATRa"}) {
    all.push_back({prefix + suffix, {{"CODE_NO", code}, {"details", anyText}}, {"CODE_NO"}});
  }
  return all;
}

}  // namespace quillet::suite
