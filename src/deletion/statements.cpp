#include "deletion/statements.h"

#include <utility>

namespace quillet::deletion {
namespace {

// The server treats the spellings alike; each statement keeps the one it was written with.
constexpr SqlPattern lower = flushTables;
constexpr SqlPattern title = "Flush Tables";
constexpr SqlPattern upper = "FLUSH TABLES";

constexpr SqlPattern kChartSelects[] = {
    "SELECT * FROM FIXED_{S} WHERE CODE_NO='{c}'",
    "SELECT * FROM NewFATRo{S} WHERE CODE_NO='{c}'",
    "SELECT * FROM NewFATRa{S} WHERE CODE_NO='{c}'",
};

constexpr Statement kTrialBalance[] = {
    {"DELETE FROM TAB_{S} WHERE CODE_NO='{c}'", lower},
};

constexpr Statement kSchedulesBeforeChart[] = {
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

constexpr Statement kDepreciationChart[] = {
    {"DELETE FROM FDA_{S} WHERE CODE_NO='{c}'", upper},
    {"DELETE FROM FIXED_{S} WHERE CODE_NO='{c}'", upper},
    {"DELETE FROM NewFATRo{S} WHERE CODE_NO='{c}'", upper},
    {"DELETE FROM NewFATRa{S} WHERE CODE_NO='{c}'", upper},
    {"DELETE FROM NewFAMI WHERE Code_No='{c}' AND Yr={Y}", upper},
    {"DELETE FROM NewFAMD WHERE Code_No='{c}' AND Yr={Y}", upper},
};

constexpr Statement kSchedulesAfterChart[] = {
    {"DELETE FROM SchNotes WHERE CODE_NO='{c}' and Yr={Y}", lower},
    {"DELETE FROM SCHED_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM LIST_{S} WHERE CODE_NO='{c}'", lower},
    {"DELETE FROM SCHLISTS WHERE CODE_NO='{c}' and FYr={Y}", lower},
};

constexpr Statement kAnnexures[] = {
    {"DELETE FROM Anex3cd_Detail WHERE CODE_NO ='{c}' and FYr={Y}", title},
    {"DELETE FROM Anex3cd_Books WHERE CODE_NO ='{c}' and FYr={Y}", title},
    {"DELETE FROM Anex3cd_BfLoss WHERE CODE_NO ='{c}' and FYr={Y}", title},
    {"DELETE FROM Anex3cd_AnexI WHERE CODE_NO ='{c}' and FYr={Y}", title},
    {"DELETE FROM Anex3cd_Main WHERE CODE_NO ='{c}' and FYr={Y}", title},
};

constexpr Statement kAnnexureName[] = {
    {"UPDATE master SET annex='' WHERE COUNT={R} AND CODE_NO='{c}'", lower},
};

constexpr Statement kRegistry[] = {
    {"DELETE FROM MASTER WHERE COUNT={R} AND CODE_NO='{c}'", title},
};

}  // namespace

Sql filled(const SqlPattern& pattern, const Keys& keys) {
  const std::pair<char, Sql> values[] = {{'S', keys.suffix},
                                         {'c', keys.client},
                                         {'Y', sqlNumber(keys.year)},
                                         {'R', sqlNumber(keys.count)}};
  return quillet::filled(pattern, values);
}

std::span<const SqlPattern> chartSelects() { return kChartSelects; }
std::span<const Statement> trialBalance() { return kTrialBalance; }
std::span<const Statement> schedulesBeforeChart() { return kSchedulesBeforeChart; }
std::span<const Statement> depreciationChart() { return kDepreciationChart; }
std::span<const Statement> schedulesAfterChart() { return kSchedulesAfterChart; }
std::span<const Statement> annexures() { return kAnnexures; }
std::span<const Statement> annexureName() { return kAnnexureName; }
std::span<const Statement> registry() { return kRegistry; }

}  // namespace quillet::deletion
