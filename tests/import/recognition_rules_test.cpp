// The rules of the recognition one by one: amounts, mappings, names, comparison, vouchers.
#include <gtest/gtest.h>

#include "import/columns.h"
#include "import/comparison.h"
#include "import/refusals.h"
#include "import/voucher_rows.h"
#include "support/growth.h"

namespace quillet {
namespace {

using Kind = SourceCell::Kind;

SourceCell cellOf(const std::string& content) {
  SourceCell cell;
  cell.kind = content.empty() ? Kind::empty : Kind::text;
  cell.text = content;
  // "~12.5" stands for a number, "#REF!" for an error.
  if (content.starts_with('~')) cell = {Kind::number, false, 0, 0, 1, 1, content.substr(1)};
  if (content.starts_with('#')) cell.kind = Kind::error;
  return cell;
}

using Texts = std::vector<std::vector<std::string>>;

SourceSheet sheetOf(const Texts& rows) {
  SourceSheet sheet;
  sheet.name = "TB";
  for (const auto& texts : rows) {
    SourceRow& row = sheet.rows.emplace_back();
    row.number = static_cast<int>(sheet.rows.size());
    for (const std::string& each : texts) row.cells.push_back(cellOf(each));
  }
  return sheet;
}

Mapping mappingOf(const SourceSheet& sheet) {
  return findColumns(sheet, [](const std::string&) { return std::string(); }).mapping;
}

// "500 DR", "-" for nothing, "?" for what is not read.
std::string shown(const Figure& figure) {
  if (figure.isUnread()) return "?";
  if (!figure.isAmount()) return "-";
  const std::string side = figure.side == 0 ? "" : std::string(1, figure.side);
  return std::to_string(figure.amount.paise()) + side;
}

TEST(Figures, AreReadAsTheyAreWritten) {
  const struct {
    const char* text;
    const char* shown;
    DecimalMark decimals = DecimalMark::open;
  } cases[] = {{"1,23,456.00", "12345600"},
               {"123,456.5", "12345650"},
               {"(500.00)", "-50000"},
               {"500-", "-50000"},
               {"\u2212500", "-50000"},
               {"-", "-"},
               {"", "-"},
               {"Nil", "-"},
               {"0.00", "0"},
               {"500 Dr", "50000D"},
               {"1,000.00Cr.", "100000C"},
               {"Cr. 500", "50000C"},
               {"500.00 (Cr)", "50000C"},
               {"DR.500.25", "50025D"},
               {"\u20B9 1,00,000.00", "10000000"},
               {"Rs.500/-", "50000"},
               {"\u00A01\u202F234,50\u00A0", "123450"},
               {"\u0967\u0968\u0969.\u096B\u0966", "12350"},
               {"1.234,50", "123450"},
               {"1.234", "?"},
               {"1,234", "?"},
               {"1.234", "123400", DecimalMark::comma},
               {"1,234", "123400", DecimalMark::point},
               {"1.234", "?", DecimalMark::point},
               {"12,50", "?", DecimalMark::point},
               {"-500 Dr", "?"},
               {"500 Dr Cr", "?"},
               {"5 %", "?"},
               {"01/04/2025", "?"},
               {"12.34.5", "?"},
               {"1,2,3", "?"},
               {"1E+05", "?"},
               {"see note", "?"},
               {"99999999999999", "?"},
               {"9999999999999.99", "999999999999999"},
               {"#DIV/0!", "?"},
               {"~1234.5600000000001", "123456"},
               {"~0.30000000000000004", "30"},
               {"~33.333333333333336", "?"},
               {"~12.345", "?"},
               {"000", "?"},
               {"012.50", "?"},
               {"~1000000000000000", "?"}};
  for (const auto& each : cases) {
    EXPECT_EQ(shown(readFigure(cellOf(each.text), {each.decimals, false})), each.shown)
        << each.text;
  }
  EXPECT_EQ(shown(readFigure(cellOf("~12.345"), {DecimalMark::point, true})), "1235");
  SourceCell sided = cellOf("~500");
  sided.side = 'C';
  EXPECT_EQ(shown(readFigure(sided, {})), "50000C");
}

TEST(Figures, AColumnSaysWhichMarkStandsBeforeThePaise) {
  const struct {
    std::vector<std::string> column;
    DecimalMark mark;
  } cases[] = {{{"1.234", "500,50"}, DecimalMark::comma},
               {{"1,234", "500.50"}, DecimalMark::point},
               {{"1,234", "12,345", "500"}, DecimalMark::point},
               {{"1.234", "12.345"}, DecimalMark::open},
               {{"1,234"}, DecimalMark::open},
               {{"1,50", "1,234.50", "2.25"}, DecimalMark::point}};
  for (const auto& each : cases) {
    std::vector<SourceCell> cells;
    for (const std::string& content : each.column) cells.push_back(cellOf(content));
    std::vector<const SourceCell*> column;
    for (const SourceCell& cell : cells) column.push_back(&cell);
    EXPECT_EQ(decimalMarkOf(column), each.mark) << each.column.front();
  }
}

TEST(Columns, AreNamedByTheirHeadings) {
  const struct {
    Texts rows;
    const char* roles;  // after the number of the first row below the headings
  } cases[] = {{{{"S. No.", "Particulars", "Group", "Amount (Dr)", "Amount (Cr)"}},
                "1|0|1|open|exact|Code,Particulars,Group,Debit,Credit,|TB"},
               {{{"Firm"}, {"Particulars", "Closing Balance"}, {"", "Debit", "Credit"}},
                "1|1|2|open|exact|Particulars,Debit,Credit,|TB"},
               {{{"Account", "Opening", "Debit", "Credit", "Closing"}},
                "1|0|1|open|exact|Particulars,Opening,Movement,Movement,Amount,|TB"},
               {{{"Ledger", "Opening Dr", "Opening Cr", "Closing Dr", "Closing Cr"}},
                "1|0|1|open|exact|Particulars,Opening,Opening,Debit,Credit,|TB"},
               {{{"Particulars", "Firm & Sons"}, {"", "2025-26"}, {"", "Debit", "Credit"}},
                "1|0|3|open|exact|Particulars,Debit,Credit,|TB"},
               {{{"Date", "No.", "Particulars", "Debit", "Credit", "Narration"}},
                "1|0|1|open|exact|Date,Voucher,Particulars,Debit,Credit,Narration,|TB"},
               {{{"~1", "Cash", "~500"}, {"~2", "Bank", "", "~300"}, {"~3", "Rent", "", "~200"}},
                "1|0|0|open|exact|Code,Particulars,Debit,Credit,|TB"},
               {{{"Cash", "500", "Dr"}, {"Bank", "300", "Cr"}, {"Rent", "200", "Cr"}},
                "1|0|0|open|exact|Particulars,Amount,Dr/Cr,|TB"}};
  for (const auto& each : cases) {
    const Mapping mapping = mappingOf(sheetOf(each.rows));
    EXPECT_EQ(textOf(mapping), each.roles);
    EXPECT_EQ(problemOf(mapping), "");
    EXPECT_EQ(textOf(quillet::mappingOf(textOf(mapping)).value()), each.roles);
  }
}

TEST(Columns, AreRememberedByTheirHeadings) {
  const SourceSheet sheet = sheetOf({{"Particulars", "Debit", "Credit"}, {"Cash", "5", ""}});
  Mapping corrected = mappingOf(sheet);
  corrected.setRole(1, ColumnRole::credits);
  corrected.setRole(2, ColumnRole::debits);
  const auto recalled = [&](const std::string& fingerprint) {
    return fingerprint == headingFingerprint(sheet) ? textOf(corrected) : std::string();
  };
  const SourceSheet later =
      sheetOf({{"A title"}, {"Particulars", "Debit", "Credit"}, {"Bank", "7", ""}});
  const Mapping found = findColumns(later, recalled).mapping;
  EXPECT_EQ(found.roles, corrected.roles);
  EXPECT_EQ(found.firstRow(), 2U);
  for (const char* broken : {"", "1", "1|x|1|open|exact|Debit,|TB", "2|0|1|open|exact|Debit,|TB",
                             "1|0|1|open|exact|Debit,Debit,|TB", "1|0|1|open|exact|Nonsense,|TB"}) {
    EXPECT_FALSE(quillet::mappingOf(broken)) << broken;
  }
  corrected.setRole(1, ColumnRole::none);
  EXPECT_NE(problemOf(corrected), "");
}

TEST(NearestNames, AreAlikeOrNear) {
  const NearestNames names({{1, "Amit & Co."}, {2, "Bank A/c 1234"}, {3, "Sharma Traders"}});
  using Distance = NearestNames::Distance;
  const struct {
    const char* name;
    Distance distance;
    long id;
  } cases[] = {{"AMIT  & CO.", Distance::same, 1},         {"Amit and Co", Distance::alike, 1},
               {"M/s Amit & Company", Distance::alike, 1}, {"Bank 1234", Distance::alike, 2},
               {"Bank A/c 1235", Distance::none, 0},       {"Sharma Trader", Distance::near, 3},
               {"Shamra Traders", Distance::near, 3},      {"Verma Traders", Distance::none, 0}};
  for (const auto& each : cases) {
    const auto found = names.find(each.name);
    EXPECT_EQ(found.distance, each.distance) << each.name;
    EXPECT_EQ(found.name.id, each.id) << each.name;
  }
}

KnownBooks someBooks() {
  KnownBooks books({{1, "Cash"}, {2, "=1+1"}, {3, "00123"}, {4, "Total"}, {5, "Amit & Co."}},
                   {{10, "CASH IN HAND"}, {11, "SALES"}, {12, "SUNDRY DEBTORS"}});
  books.current = {{1, 1, 10, 500, 1}, {2, 2, 11, 800, 2}, {3, 3, 12, 300, 1}, {4, 5, 12, 9, 1}};
  return books;
}

struct Reviewed {
  ImportRows rows;
  Proposals proposals;
  std::vector<Refusal> refusals;
};
Reviewed reviewed(const Texts& texts, const RowChoices& choices = {}) {
  const KnownBooks books = someBooks();
  const SourceSheet sheet = sheetOf(texts);
  const Mapping mapping = mappingOf(sheet);
  Reviewed result;
  result.rows = readRows(sheet, mapping, books.names(), kindsOf(choices));
  result.proposals = propose(result.rows, books, choices);
  result.refusals = refusalsOf(mapping, result.rows, result.proposals, false);
  return result;
}

// What the export writes, with names that look like something else, is the same again.
TEST(Proposals, TheExportComesBackWithoutADifference) {
  const Reviewed export_ =
      reviewed({{"S. No.", "Particulars", "Group", "Amount (Dr)", "Amount (Cr)"},
                {"~1", "Cash", "CASH IN HAND", "~500"},
                {"~2", "=1+1", "SALES", "", "~800"},
                {"~3", "00123", "SUNDRY DEBTORS", "~291"},
                {"~4", "Amit & Co.", "SUNDRY DEBTORS", "~9"},
                {"~5", "Total", "SALES"}});
  EXPECT_TRUE(export_.refusals.empty()) << export_.refusals.front().text;
  std::string kinds;
  for (const Difference& each : compareWithYear(export_.proposals, someBooks())) {
    kinds += std::string(nameOf(each.kind)) + ' ' + each.ledger + ' ' +
             std::to_string(each.after.paise()) + (each.taken ? " taken\n" : "\n");
  }
  EXPECT_EQ(kinds,
            "Same Cash 50000\nSame =1+1 -80000\nChanged 00123 29100 taken\nSame Amit & Co. 900\n");
}

TEST(Proposals, WhatIsOpenIsAskedAndAnswered) {
  const std::vector<std::string> headings{"Particulars", "Group", "Debit", "Credit"};
  RowChoice usesNearest;
  usesNearest.usesNearest = true;
  RowChoice confirmed;
  confirmed.confirmed = true;
  RowChoice grouped;
  grouped.group = 12;
  RowChoice left;
  left.taken = false;
  const struct {
    std::vector<std::string> row;
    const char* question;  // of row 3
    RowChoice answer;
  } cases[] = {{{"Amit and Co", "SALES", "", "500"}, "Is this ledger", usesNearest},
               {{"New one", "Trade things", "", "500"}, "Choose the group", grouped},
               {{"New one", "SALES", "100", "600"}, "Debit and credit are both filled", confirmed},
               {{"Cash", "CASH IN HAND", "", "500"}, "The ledger stands in row 2 too", confirmed},
               {{"New one", "SALES", "", "see note"}, "\"see note\" is not an amount", left},
               {{"New one", "SALES", "", "#REF!"}, "\"#REF!\" is an error", left},
               {{"New one", "SALES", "", "50%"}, "\"50%\" is a percentage", left},
               {{"New one", "SALES", "5", "000.00"}, "\"000.00\" begins with zeros", left},
               {{"New one", "SALES", "", "1", "23", "456.00"}, "There are more fields", left},
               {{"", "SALES", "", "500"}, "An amount without a name", left}};
  for (const auto& each : cases) {
    const Texts rows{headings, {"Cash", "CASH IN HAND", "500"}, each.row};
    const auto of3 = [](const Reviewed& of) {
      for (const Refusal& refusal : of.refusals) {
        if (refusal.row == 3) return refusal.text;
      }
      return std::string();
    };
    EXPECT_TRUE(of3(reviewed(rows)).starts_with(each.question)) << of3(reviewed(rows));
    EXPECT_EQ(of3(reviewed(rows, {{3, each.answer}})), "") << each.question;
  }
}

TEST(Vouchers, ThatDoNotHoldStayOutWithTheReason) {
  const SourceSheet sheet =
      sheetOf({{"Voucher No", "Date", "Particulars", "Debit", "Credit", "Narration"},
               {"1", "31/03/2026", "Cash", "500", "", "Being cash"},
               {"", "", "=1+1", "", "500"},
               {"2", "2026-03-31", "Cash", "500", "", "Short"},
               {"2", "", "00123", "", "400"},
               {"3", "01-04-26", "Cash", "1"},
               {"3", "01-04-26", "00123", "", "1"},
               {"4", "31/03/2026", "Stranger", "2"},
               {"4", "31/03/2026", "Cash", "", "2"},
               {"5", "31/03/2026", "Cash", "see note"},
               {"5", "31/03/2026", "00123", "", "3"},
               {"6", "soon", "Cash", "4"},
               {"6", "", "00123", "", "4"}});
  const KnownBooks books = someBooks();
  std::string told;
  for (const ImportedVoucher& voucher :
       readVouchers(sheet, mappingOf(sheet), books, {"01/04/2025", "31/03/2026"}, {})) {
    told += voucher.number + ' ' + voucher.date + ' ' + std::to_string(voucher.lines.size()) + ' ' +
            voucher.reason + '\n';
  }
  EXPECT_EQ(told,
            "1 31/03/2026 2 \n"
            "2 31/03/2026 2 Row 4: debit and credit of the voucher differ.\n"
            "3 01/04/2026 2 Row 6: 01/04/2026 lies outside of the year.\n"
            "4 31/03/2026 2 Row 8: choose the group of \"Stranger\".\n"
            "5 31/03/2026 2 Row 10: \"see note\" is not an amount.\n"
            "6  2 Row 12: \"soon\" is not a date.\n");
}

TEST(Proposals, OfALargeBookAreQuick) {
  const auto work = [](int rows) {
    std::vector<NamedId> ledgers;
    for (long id = 1; id <= rows * 5 / 2; ++id) {
      ledgers.push_back({id, "Customer " + std::string(1, static_cast<char>('A' + id % 26)) +
                                 " Enterprises " + std::to_string(id * 7919 % 100'003)});
    }
    Texts texts{{"Particulars", "Debit", "Credit"}};
    for (int i = 0; i < rows; ++i) {
      const std::string amount = std::to_string(i / 2 * 37 % 90'001 + 1) + ".50";
      texts.push_back({"Customer B Enterprise " + std::to_string(i), i % 2 == 0 ? amount : "",
                       i % 2 == 0 ? "" : amount});
    }
    const SourceSheet sheet = sheetOf(texts);
    const KnownBooks books(ledgers, {{1, "SALES"}});
    const ImportRows read = readRows(sheet, mappingOf(sheet), books.names(), {});
    const Proposals proposals = propose(read, books, {});
    EXPECT_EQ(proposals.lines.size(), static_cast<std::size_t>(rows));
    EXPECT_TRUE(proposals.balanced());
  };
  EXPECT_LT(support::growthTenfold(2'000, work), 30);
}

}  // namespace
}  // namespace quillet
