// Reports as raw printer text and as a table for the clipboard.
#include "suite/dot_matrix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <utility>

#include "suite/text_report.h"

namespace quillet::suite {
namespace {

Document document(int rows, const std::string& name) {
  Document report;
  report.addHeading("\x1B\x45Trial Balance\x1B\x46");
  report.beginTable();
  const auto add = [&](std::vector<std::string> cells, bool heading, const char* rules) {
    report.addRow({std::move(cells),
                   {Align::right, Align::left, Align::right},
                   {},
                   {},
                   {},
                   heading,
                   {rules, heading ? "111" : "000", "001", "111"}});
  };
  add({"SN", "Ledger", "Amount"}, true, "111");
  for (int i = 1; i <= rows; ++i) add({std::to_string(i), name, "12,34,567.89"}, false, "000");
  add({"", "Total", "99,99,999.99"}, false, "011");
  return report;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// Without codes, as many characters as the paper takes.
std::string plain(const std::string& line) {
  std::string text;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '\x1B') {
      ++i;
    } else if (static_cast<unsigned char>(line[i]) >= 32) {
      text += line[i];
    }
  }
  return text;
}

TEST(DotMatrix, FitsThePaperAndKeepsAmountsWhole) {
  const std::string longName(150, 'x');
  for (const PaperWidth width : {PaperWidth::columns80, PaperWidth::columns132}) {
    const auto columns = static_cast<std::size_t>(width);
    Document report = document(3, longName);
    report.setSubject("Subsidiary Trial Balance of " + std::string(60, 'y') + " to 31/03/2009");
    const std::string text = dotMatrixOf(report, width);
    EXPECT_NE(text.find(" to 31/03/2009"), std::string::npos) << "a long heading is not cut";
    EXPECT_EQ(text.substr(0, 2), "\x1B\x40");
    EXPECT_EQ(text.find('\x0F') != std::string::npos, width == PaperWidth::columns132);
    for (const std::string& line : linesOf(text)) EXPECT_LE(plain(line).size(), columns) << line;
    const std::string row = plain(linesOf(text).at(width == PaperWidth::columns80 ? 7 : 6));
    EXPECT_EQ(row.size(), columns);
    EXPECT_TRUE(row.ends_with("12,34,567.89")) << row;
  }
}

TEST(DotMatrix, EmphasisRulesAndStrangeCharacters) {
  const std::string text = dotMatrixOf(document(1, "Müller ₹ 5"), PaperWidth::columns80);
  EXPECT_NE(text.find("\x1B\x45"), std::string::npos);
  EXPECT_NE(text.find("Trial Balance"), std::string::npos);
  EXPECT_NE(text.find("M?ller Rs 5"), std::string::npos);
  const auto lines = linesOf(text);
  EXPECT_EQ(lines[lines.size() - 3], "    -----------  ------------\r") << "the total is ruled off";
}

TEST(DotMatrix, EveryPageBeginsWithTheColumnHeadings) {
  const std::string text = dotMatrixOf(document(200, "Name"), PaperWidth::columns80);
  std::istringstream pages(text);
  std::size_t count = 0;
  for (std::string page; std::getline(pages, page, '\f'); ++count) {
    EXPECT_NE(plain(page).find("Ledger"), std::string::npos) << "page " << count;
    EXPECT_LE(std::count(page.begin(), page.end(), '\n'), 60);
  }
  EXPECT_EQ(count, 4U);
  EXPECT_EQ(text.back(), '\f');
}

TEST(Clipboard, TheTableIsPartedByTabs) {
  EXPECT_EQ(tabbedTextOf(document(1, "a\nb")),
            "SN\tLedger\tAmount\n1\ta b\t12,34,567.89\n\tTotal\t99,99,999.99\n");
}

}  // namespace
}  // namespace quillet::suite
