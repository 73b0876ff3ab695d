// The statements by heads on paper and in a workbook.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "books/two_years.h"
#include "host/context.h"
#include "statements/statement_page.h"

namespace quillet {

// Which of the three, in the order of the form's choice.
enum class StatementKind : std::uint8_t { balanceSheet, profitAndLoss, incomeTax };

// "Balance Sheet as at 31/03/2009".
std::string statementTitle(StatementKind kind, const TwoYears& years);
// The heading of a year's amounts.
std::string amountHeading(const TwoYears& years, TwoYears::Year year);
// "1,234.50", "(1,234.50)", or "-" for nothing.
std::string statementAmount(const ServiceObject& host, Money amount);

// Text, note and the amounts of both years.
std::vector<std::string> statementCells(const ServiceObject& host, const StatementRow& row);

// Shows the statement with its schedules on screen, from where a person prints.
void printStatement(Context& context, StatementKind kind, const TwoYears& years,
                    const StatementPage& page);

// The pages in the order of StatementKind.
void exportStatements(Context& context, const TwoYears& years,
                      const std::array<StatementPage, 3>& pages);

}  // namespace quillet
