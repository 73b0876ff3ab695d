// A statement as a person reads it: its rows in their order, and the schedules behind them. Screen,
// paper and workbook are drawn from the same rows.
#pragma once

#include <string>
#include <vector>

#include "books/statements_by_head.h"

namespace quillet {

struct StatementRow {
  std::string text;
  int level = 0;  // how far it is indented
  int note = 0;   // 0 for none
  bool hasAmounts = false;
  bool emphasised = false;  // a caption, a group, a total
  bool total = false;
  TwoAmounts amounts{};
  int schedule = 0;  // from 1; 0 for none
};

struct Schedule {
  std::string title;  // "Note 5: Long-term borrowings"
  std::vector<StatementRow> rows;
};

struct StatementPage {
  std::vector<StatementRow> rows;
  std::vector<Schedule> schedules;
};

// Groups without a head stand at the end of each, by name; the totals hold them.
StatementPage balanceSheet(const StatementsByHead& statements);
StatementPage profitAndLoss(const StatementsByHead& statements);
// Both, one under the other: the heads of the income-tax return.
StatementPage allHeads(const StatementsByHead& statements);

// By how much both sides of the balance sheet differ this year, or that they agree.
std::string agreementText(const ServiceObject& host, const StatementsByHead& statements);

}  // namespace quillet
