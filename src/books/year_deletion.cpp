#include "books/year_deletion.h"

#include "books/forward_memory.h"
#include "books/year_files.h"
#include "data/table_names.h"
#include "data/year.h"

namespace quillet {

// In a pattern {S} stands for the suffix of the year's tables, {c} for the client code as it stands
// between quotes, {Y} for the year's number in the tables kept by year, {R} for its number in the
// registry.
struct DeletionStatement {
  SqlPattern pattern;
  SqlPattern flush;  // sent right after it
};

namespace {

// The server treats the spellings alike; each statement keeps the one it was written with.
constexpr SqlPattern lower = flushTables;
constexpr SqlPattern title = "Flush Tables";
constexpr SqlPattern upper = "FLUSH TABLES";

constexpr SqlPattern chartSelects[] = {
    "SELECT * FROM FIXED_{S} WHERE CODE_NO='{c}'",
    "SELECT * FROM NewFATRo{S} WHERE CODE_NO='{c}'",
    "SELECT * FROM NewFATRa{S} WHERE CODE_NO='{c}'",
};

constexpr DeletionStatement trialBalanceLines[] = {
    {"DELETE FROM TAB_{S} WHERE CODE_NO='{c}'", lower},
};

constexpr DeletionStatement schedulesBeforeChart[] = {
    {"DELETE FROM JRNL_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM DeferTax_Liab WHERE CODE_NO='{c}' and FYear={Y}", lower},
    {"DELETE FROM DeferTax_Bal WHERE CODE_NO='{c}' and FYear={Y}", lower},
    {"DELETE FROM Trade_Details WHERE CODE_NO='{c}' and Yr={Y}", lower},
    {"DELETE FROM TRADE_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM PROFIT_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM RMGRP_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM RMSCHSETUP WHERE CODE_NO='{c}' and FYr={Y}", lower},
    {"DELETE FROM SHARE_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM PRFA WHERE RCOUNT={R} AND CODE_NO='{c}'", lower},
    {"DELETE FROM PRFA_OTH WHERE RCOUNT={R} AND CODE_NO='{c}'", lower},
    {"DELETE FROM CAPITAL_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM RESV_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM LOAN_ADV_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM SECUR_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM INVEST_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM SUNDEB_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM BANK_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM MISCEXPASST_{S} WHERE CODE_NO='{c}'", lower},
};

constexpr DeletionStatement depreciationChart[] = {
    {"DELETE FROM FDA_{S} WHERE CODE_NO='{c}'", upper},
    {"DELETE FROM FIXED_{S} WHERE CODE_NO='{c}'", upper},
    {"DELETE FROM NewFATRo{S} WHERE CODE_NO='{c}'", upper},
    {"DELETE FROM NewFATRa{S} WHERE CODE_NO='{c}'", upper},
    {"DELETE FROM NewFAMI WHERE Code_No='{c}' AND Yr={Y}", upper},
    {"DELETE FROM NewFAMD WHERE Code_No='{c}' AND Yr={Y}", upper},
};

constexpr DeletionStatement schedulesAfterChart[] = {
    {"DELETE FROM SchNotes WHERE CODE_NO='{c}' and Yr={Y}", lower},
    {"DELETE FROM SCHED_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM LIST_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM SCHLISTS WHERE CODE_NO='{c}' and FYr={Y}", lower},
};

constexpr DeletionStatement annexures[] = {
    {"DELETE FROM Anex3cd_Detail WHERE CODE_NO ='{c}' and FYr={Y}", title},
    {"DELETE FROM Anex3cd_Books WHERE CODE_NO ='{c}' and FYr={Y}", title},
    {"DELETE FROM Anex3cd_BfLoss WHERE CODE_NO ='{c}' and FYr={Y}", title},
    {"DELETE FROM Anex3cd_AnexI WHERE CODE_NO ='{c}' and FYr={Y}", title},
    {"DELETE FROM Anex3cd_Main WHERE CODE_NO ='{c}' and FYr={Y}", title},
};

constexpr DeletionStatement annexureName[] = {
    {"UPDATE master SET annex='' WHERE COUNT={R} AND CODE_NO='{c}'", lower},
};

constexpr DeletionStatement registryRow[] = {
    {"DELETE FROM MASTER WHERE COUNT={R} AND CODE_NO='{c}'", title},
};

}  // namespace

void YearDeletion::open(const RegisteredYear& year) {
  year_ = year;
  values_ = {{{'S', sqlName(siblingTable(year.table, ""))},
              {'c', host_.escaped(year.client)},
              {'Y', sqlNumber(yearOf(year.keys.second))},
              {'R', sqlNumber(year.number)}}};
  touched_ = registryRowDeleted_ = hasChart_ = false;
  for (const SqlPattern& select : chartSelects) {
    if (!host_.query(filled(select, values_))->EOF_()) hasChart_ = true;
  }
}

void YearDeletion::send(std::span<const DeletionStatement> statements, bool& sent) {
  for (const DeletionStatement& statement : statements) {
    host_.ConQuery(filled(statement.pattern, values_));
    sent = true;
    // The trial balance goes first, and with it whatever was to be posted into it.
    unposted_.forget({year_.table, year_.client});
    host_.ConQuery(filled(statement.flush, values_));
  }
}

void YearDeletion::deleteTrialBalance() {
  send(trialBalanceLines, touched_);
  ForwardMemory(host_, year_.client, year_.keys).forget();
}

void YearDeletion::deleteSchedules(bool withChart) {
  send(schedulesBeforeChart, touched_);
  if (withChart) send(depreciationChart, touched_);
  send(schedulesAfterChart, touched_);
}

FilesLeft YearDeletion::deleteMiscellaneous() {
  if (!namesFiles(year_.client)) {
    send(annexures, touched_);
    send(annexureName, touched_);
    return {.codeNamesNone = true, .files = {}};
  }
  const int secondYear = yearOf(year_.keys.second);
  YearFiles files(remover_, host_.DocPath(), year_.client, secondYear - 1, secondYear);
  files.deleteAnnexureFolder();
  send(annexures, touched_);
  files.deleteAnnexures();
  send(annexureName, touched_);
  files.deleteReports();
  return {.files = files.failed()};
}

void YearDeletion::deleteRegistryRow() { send(registryRow, registryRowDeleted_); }

}  // namespace quillet
