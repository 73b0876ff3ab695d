// Text files and pasted ranges: encodings, delimiters, quotes.
#include "import/delimited_text.h"

#include <gtest/gtest.h>

#include "import/sheet_text.h"

namespace quillet::support {
namespace {

using namespace std::string_literals;

bool toTheEnd(int) { return true; }

struct TextCase {
  const char* name;
  std::string bytes;
  std::string cells;  // "a|b" for each row, one a line
  std::string encoding = "UTF-8";
  char delimiter = ',';
  SourceOptions options = {};
};

// Two bytes for each byte, as UTF-16 writes them.
std::string wide(const std::string& text, bool little) {
  std::string bytes;
  for (const char c : text) {
    bytes += little ? c : '\0';
    bytes += little ? '\0' : c;
  }
  return bytes;
}

const TextCase textCases[] = {
    {"plain", "Particulars,Debit,Credit\nCash,100,\nCapital,,100\n",
     "Particulars|Debit|Credit\nCash|100\nCapital||100\n"},
    {"texts stay", "007,1E5,=1+1\n 1/4/2026,-,TRUE\n", "007|1E5|=1+1\n 1/4/2026|-|TRUE\n"},
    {"blank rows and blank cells", "a,b\n\n , \nc,d\n\n\n", "a|b\n\n\nc|d\n"},
    {"old and new line ends", "a,b\r\nc,d\re,f\n", "a|b\nc|d\ne|f\n"},
    {"quotes", "\"A, B\",\"say \"\"hi\"\"\"\n\"two\r\nlines\", \"x\"\n",
     "A, B|say \"hi\"\ntwo\r\nlines|x\n"},
    {"quotes inside", "12\" pipe,5\n\"Best\" Traders,6\n", "12\" pipe|5\n\"Best\" Traders|6\n"},
    {"a quote never closed", "\"Cash,1\nBank,2\n\"Loan\",3\n", "\"Cash|1\nBank|2\nLoan|3\n"},
    {"nothing swallowed at the end", "Bank,2\nCash,\"1\nLoan,3\n", "Bank|2\nCash|\"1\nLoan|3\n"},
    {"semicolons, amounts with commas", "A;1,00,000.00;0.00\nB;0.00;1,00,000.00\n",
     "A|1,00,000.00|0.00\nB|0.00|1,00,000.00\n", "UTF-8", ';'},
    {"tabs", "A\t1,000.00\nB\t2,000.00\n", "A|1,000.00\nB|2,000.00\n", "UTF-8", '\t'},
    {"bars", "A|1,000.00\nB|2,000.00\n", "A|1,000.00\nB|2,000.00\n", "UTF-8", '|'},
    {"titles above", "Mehta, Rao & Sons, Mumbai\nTrial Balance\nCash;1\nBank;2\nLoan;3\n",
     "Mehta, Rao & Sons, Mumbai\nTrial Balance\nCash|1\nBank|2\nLoan|3\n", "UTF-8", ';'},
    {"named delimiter", "sep=;\r\nA,x;1\n", "A,x|1\n", "UTF-8", ';'},
    {"mark",
     "\xEF\xBB\xBF"
     "हिन्दी,1\n",
     "हिन्दी|1\n"},
    {"western", "Caf\xE9 \x80,\x93x\x94\n", "Café €|“x”\n", "windows-1252"},
    {"wide, marked", "\xFF\xFE" + wide("a,b\n", true), "a|b\n", "UTF-16LE"},
    {"wide", wide("Cash,1\r\n", true), "Cash|1\n", "UTF-16LE"},
    {"wide, the other way", wide("Cash,1\r\n", false) + "\xD8\x3D\xDE\x00"s, "Cash|1\n😀\n",
     "UTF-16BE"},
    {"as chosen", "Caf\xC3\xA9;1,5\n", "CafÃ©;1|5\n", "windows-1252", ',', {"windows-1252", ','}},
    {"wrongly chosen", "Caf\xE9,1\n", "Caf\uFFFD|1\n", "UTF-8", ',', {"UTF-8", 0}},
    {"an old end of file", "a,b\n\x1A", "a|b\n"},
};

TEST(DelimitedText, IsReadAsItWasWritten) {
  for (const TextCase& file : textCases) {
    SCOPED_TRACE(file.name);
    const SourceBook book = delimitedBook(file.bytes, file.options, toTheEnd);
    ASSERT_EQ(book.sheets.size(), 1U);
    EXPECT_EQ(sheetText(book.sheets.front()), file.cells);
    EXPECT_EQ(book.encoding, file.encoding);
    EXPECT_EQ(book.delimiter, file.delimiter);
  }
}

TEST(DelimitedText, IsRefusedWithAReason) {
  const auto reason = [](const std::string& bytes, const SourceOptions& options = {}) {
    try {
      delimitedBook(bytes, options, toTheEnd);
    } catch (const SourceError& error) {
      return std::string(error.what());
    }
    return std::string();
  };
  EXPECT_NE(reason("\x01\x02\x03rubbish\x00\x07"s).find("neither a workbook nor a text"),
            std::string::npos);
  EXPECT_NE(reason(std::string(199, ',') + "x\n").find("has 200 columns"), std::string::npos);
  EXPECT_NE(reason("a,b\n", {"EBCDIC", 0}).find("EBCDIC"), std::string::npos);
}

TEST(DelimitedText, CanBeEnded) {
  int told = 0;
  const auto half = [&](int percent) { return (told = percent) < 50; };
  EXPECT_TRUE(delimitedBook("a,b\nc,d\ne,f\ng,h\n", {}, half).sheets.empty());
  EXPECT_EQ(told, 50);
  EXPECT_TRUE(pastedBook("a\tb\nc\td\n", half).sheets.empty());
}

TEST(DelimitedText, PastedRangesAreSeparatedByTabs) {
  const SourceBook book = pastedBook(
      "Rent, Rates\t1,000.00 Dr\r\n\"Two\nlines \"\"x\"\"\"\t\"5\r\n\tonly\r\n", toTheEnd);
  EXPECT_EQ(sheetText(book.sheets.at(0)), "Rent, Rates|1,000.00 Dr\nTwo\nlines \"x\"|\"5\n|only\n");
}

}  // namespace
}  // namespace quillet::support
