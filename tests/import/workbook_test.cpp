// Workbooks of odd shapes, put together by hand.
#include <gtest/gtest.h>

#include <random>

#include "import/number_format.h"
#include "import/sheet_text.h"
#include "import/zip_bytes.h"
#include "suite/sheets/workbook_file.h"
#include "support/growth.h"

namespace quillet::support {
namespace {

SourceBook read(const std::string& bytes) {
  return suite::workbookIn(bytes, [](int) { return true; });
}

// The cells of the first sheet, each shown by what is particular of it.
std::string cellsOf(const std::string& bytes) {
  const SourceBook book = read(bytes);
  std::string text;
  for (const SourceRow& row : book.sheets.at(0).rows) {
    text += std::to_string(row.number) + (row.hidden ? " hidden" : "");
    for (const SourceCell& cell : row.cells) text += " [" + cellText(cell) + "]";
    text += '\n';
  }
  return text;
}

std::string reasonOf(const std::string& bytes) {
  try {
    read(bytes);
  } catch (const SourceError& error) {
    return error.what();
  }
  return "none";
}

const std::string styles = R"(<numFmts count="4">
<numFmt numFmtId="164" formatCode="0.00&quot; Dr&quot;;0.00&quot; Cr&quot;"/>
<numFmt numFmtId="165" formatCode="[$-409]d\-mmm\-yy;@"/>
<numFmt numFmtId="166" formatCode="0.00&quot; Dr&quot;"/>
<numFmt numFmtId="167" formatCode="[h]:mm"/></numFmts>
<fonts><font><sz val="11"/></font><font><b/></font><font><b val="0"/></font></fonts>
<cellStyleXfs><xf numFmtId="14" fontId="1"/></cellStyleXfs>
<cellXfs><xf/><xf fontId="1"/><xf fontId="2"><alignment indent="3"/></xf><xf numFmtId="164"/>
<xf numFmtId="165"/><xf numFmtId="14"/><xf numFmtId="166"/><xf numFmtId="167"/>
<xf numFmtId="10"/></cellXfs>
<dxfs><dxf><font><b/></font></dxf></dxfs>)";

struct WorkbookCase {
  const char* name;
  WorkbookXml xml;
  const char* cells;
};

const WorkbookCase workbookCases[] = {
    {"texts",
     {.rows = R"(<row r="1"><c r="A1" t="s"><v>0</v></c><c r="B1" t="s"><v>1</v></c>
              <c r="C1" t="inlineStr"><is><r><rPr><b/></rPr><t>in</t></r><r><t>line</t></r></is></c>
              <c r="D1" t="str"><f>A1&amp;"x"</f><v>a_x000D_b _x00zz_</v></c></row>)",
      .strings = R"(<si><t xml:space="preserve"> 007 </t></si><si><r><rPr><b/></rPr><t>A &amp; </t>
                 </r><r><rPr><b/></rPr><t>B</t></r><rPh sb="0" eb="1"><t>no</t></rPh></si>)"},
     "1 [t  007 ] [t A & B bold] [t inline] [t a\rb _x00zz_]\n"},
    {"numbers",
     {.rows = R"(<row><c><v>0.30000000000000004</v></c><c><v>1234.4999999999998</v></c>
              <c><v>1.5E+15</v></c><c><v>-1E-7</v></c><c><v>12x</v></c><c><v>1E999</v></c>
              <c t="b"><v>1</v></c><c t="e"><v>#REF!</v></c><c><v>-0</v></c></row>)"},
     "1 [n 0.3] [n 1234.5] [n 1500000000000000] [n -0.0000001] [e 12x] [e 1E999] [b TRUE] "
     "[e #REF!] [n 0]\n"},
    {"formulas",
     {.rows = R"(<row><c><f>SUM(B1)</f><v>5</v></c><c><f>NOW()</f></c><c t="str"><f>""</f><v/></c>
              <c><f>1</f><v></v></c></row>)"},
     "1 [n 5] [e (not calculated)] [-] [e (not calculated)]\n"},
    {"never calculated",
     {.rows = R"(<row><c><v>0</v></c><c><f>SUM(A1)</f><v>0</v></c></row>)",
      .properties = R"(<calcPr fullCalcOnLoad="1"/>)"},
     "1 [n 0] [e (not calculated)]\n"},
    {"formats",
     {.rows = R"(<row><c s="3"><v>500</v></c><c s="3"><v>-500</v></c><c s="6"><v>-500</v></c>
              <c s="4"><v>46112</v></c><c s="5"><v>59</v></c><c s="7"><v>0.5</v></c>
              <c s="5"><v>-1</v></c><c t="d"><v>2026-03-31T10:00:00</v></c>
              <c s="1"><v>1</v></c><c s="2"><v>2</v></c><c s="99"><v>3</v></c>
              <c s="8"><v>0.125</v></c></row>)",
      .styles = styles},
     "1 [n 500 side D] [n 500 side C] [n -500 side D] [d 2026-03-31] [d 1900-02-28] [t 12:00:00] "
     "[e #####] [d 2026-03-31] [n 1 bold] [n 2 indent 3] [n 3] "
     "[t 12.5%]\n"},
    {"days from 1904",
     {.rows = R"(<row><c s="5"><v>44650</v></c></row>)",
      .styles = styles,
      .properties = R"(<workbookPr date1904="1"/>)"},
     "1 [d 2026-03-31]\n"},
    {"places",
     {.rows = R"(<row r="2" hidden="1"><c r="C2"><v>1</v></c><c><v>2</v></c></row>
              <row><c><v>3</v></c><c r="ZZ3" s="1"/></row><row r="5" ht="0"><c><v>4</v></c></row>
              <row r="90"/>)",
      .afterRows = R"(<mergeCells><mergeCell ref="C2:E3"/><mergeCell ref="X9:Y9"/></mergeCells>)"},
     "1\n2 hidden [-] [-] [n 1 columns 3 rows 2] [n 2]\n3 [n 3]\n4\n5 hidden [n 4]\n"},
    {"strict",
     {.rows = "<row><c><v>1</v></c></row>",
      .space = "http://purl.oclc.org/ooxml/spreadsheetml/main",
      .relations = "http://purl.oclc.org/ooxml/officeDocument/relationships"},
     "1 [n 1]\n"},
    {"foreign elements",
     {.rows = R"(<row><c><v>1</v><x:v xmlns:x="urn:x">2</x:v></c></row>)"},
     "1 [n 1]\n"},
};

TEST(Workbooks, AreReadAsTheyWereStored) {
  for (const WorkbookCase& book : workbookCases) {
    SCOPED_TRACE(book.name);
    EXPECT_EQ(cellsOf(workbookOf(book.xml)), book.cells);
  }
}

TEST(Workbooks, PrefixesAndSheetsAndColumns) {
  Parts parts = workbookParts(
      {.rows = "",
       .sheets =
           R"(<sheet name="Chart" r:id="r4"/><sheet name="B &amp; Co" r:id="r1" state="hidden"/>
                 <sheet name="Last" r:id="r1" state="veryHidden"/>)"});
  parts[1].second =
      R"(<x:worksheet xmlns:x="http://schemas.openxmlformats.org/spreadsheetml/2006/main"><x:cols>
      <x:col min="2" max="3" hidden="1"/><x:col min="5" max="5" width="0"/></x:cols><x:sheetData>
      <x:row><x:c><x:v>1</x:v></x:c></x:row></x:sheetData></x:worksheet>)";
  const SourceBook book = read(zipOf(parts));
  ASSERT_EQ(book.sheets.size(), 2U);
  EXPECT_EQ(book.sheets[0].name, "B & Co");
  EXPECT_TRUE(book.sheets[0].hidden && book.sheets[1].hidden);
  EXPECT_EQ(book.sheets[1].hiddenColumns, (std::vector{1, 2, 4}));
  EXPECT_EQ(sheetText(book.sheets[1]), "1\n");
}

TEST(Workbooks, TheSideStandsInTheSectionOfTheNumber) {
  const struct {
    const char* code;
    double number;
    char side;
    bool hidesSign;
  } formats[] = {
      {R"(#,##0.00" Dr";#,##0.00" Cr";"")", 0, 0, false},
      {R"(#,##0.00\ \D\r;-#,##0.00\ \C\r)", -1, 'C', false},
      {R"([>=0]0.00" Dr.";[<0]0.00" Cr.")", -1, 'C', true},
      {R"([>=10000000]##\,##\,##\,##0.00" Dr";[>=100000]##\,##\,##0.00" Dr";##,##0.00" Dr")", 1,
       'D', false},
      {R"([>=100000]##\,##\,##0.00" Dr";[<=-100000]##\,##\,##0.00" Cr";##,##0.00)", -2e5, 'C',
       true},
      {R"("Debit "0.00;"Credit "0.00)", 5, 'D', false},
      {R"([$Dr] 0.00;[Red][$Cr-4009] 0.00)", -5, 'C', true},
      {R"(0.00 Dr;(0.00 Cr))", -5, 'C', false},
      {R"(0.00" Drawn")", 5, 0, false},
      {"", -5, 0, false},
      {R"("unclosed)", -5, 0, false},
  };
  for (const auto& format : formats) {
    SCOPED_TRACE(format.code);
    const NumberFormat read(format.code);
    EXPECT_EQ(read.side(format.number), format.side);
    EXPECT_EQ(read.hidesSign(format.number), format.hidesSign);
    EXPECT_EQ(read.shows(format.number), NumberFormat::Shows::number);
  }
}

TEST(Workbooks, WhatCannotBeReadIsRefusedWithAReason) {
  const std::string cell = "<row><c><v>1</v></c></row>";
  const std::string whole = workbookOf({.rows = cell});
  const auto changed = [&](std::size_t part, const std::string& content) {
    Parts parts = workbookParts({.rows = cell});
    parts[part].second = content;
    return zipOf(parts);
  };
  const std::string entity = "<!DOCTYPE x [<!ENTITY e SYSTEM \"file:///etc/passwd\">]>";
  std::string damaged = whole;
  damaged[damaged.find("worksheets/sheet1.xml") + 70] ^= 0x55;
  std::string many;
  for (int i = 0; i < 200; ++i) many += "<c><v>1</v></c>";
  const struct {
    const char* name;
    std::string bytes;
    const char* reason;
  } books[] = {
      {"cut", whole.substr(0, whole.size() / 2), "cut off"},
      {"a wrong byte", damaged, "damaged"},
      {"no workbook", zipOf({{"word/document.xml", "<x/>"}}), "no workbook"},
      {"another root", changed(2, "<document/>"), "no workbook"},
      {"cut XML", changed(1, "<worksheet><sheetData><row>"), "damaged"},
      {"entities", changed(1, entity + "<worksheet>&e;</worksheet>"), "damaged"},
      {"no such text", workbookOf({.rows = R"(<row><c t="s"><v>7</v></c></row>)"}), "damaged"},
      {"too low", workbookOf({.rows = R"(<row r="1048577"><c><v>7</v></c></row>)"}), "damaged"},
      {"too far", workbookOf({.rows = R"(<row><c r="XFE1"><v>7</v></c></row>)"}), "damaged"},
      {"200 columns", workbookOf({.rows = "<row>" + many + "</row>"}), "\"TB\" has 200 columns"},
      {"a bomb", changed(5, std::string(33U << 20U, ' ')), "far more than"},
      {"a missing part", workbookOf({.rows = cell, .sheets = ""}), "no sheet"},
  };
  for (const auto& book : books) {
    SCOPED_TRACE(book.name);
    EXPECT_NE(reasonOf(book.bytes).find(book.reason), std::string::npos) << reasonOf(book.bytes);
  }
}

// A sheet that is too wide does not keep the others from being imported.
TEST(Workbooks, AWideSheetIsRefusedAlone) {
  const SourceBook book = read(
      workbookOfTwo({.rows = "<row><c r=\"ZZ1\"><v>1</v></c></row>",
                     .sheets = R"(<sheet name="Wide" r:id="r1"/><sheet name="TB" r:id="r4"/>)"},
                    "<row><c><v>1</v></c></row>"));
  EXPECT_NE(book.sheets.at(0).refusal.find("has 702 columns"), std::string::npos);
  EXPECT_TRUE(book.sheets.at(0).rows.empty());
  EXPECT_EQ(sheetText(book.sheets.at(1)), "1\n");
}

TEST(Workbooks, ATrialBalanceOfManyRowsIsReadAtOnceAndCanBeEnded) {
  const auto workbookWith = [](int count) {
    std::string rows;
    std::string strings;
    for (int i = 0; i < count; ++i) {
      const std::string n = std::to_string(i);
      strings += "<si><t>Ledger " + n + "</t></si>";
      rows += "<row><c t=\"s\"><v>" + n + "</v></c><c><v>" + n + ".25</v></c><c><v>" + n +
              ".5</v></c><c t=\"s\"><v>1</v></c></row>";
    }
    return workbookOf({.rows = rows, .strings = strings});
  };
  const auto work = [&](int count) {
    const SourceBook book = read(workbookWith(count));
    ASSERT_EQ(book.sheets.at(0).rows.size(), static_cast<std::size_t>(count));
    EXPECT_EQ(book.sheets[0].rows.back().cells.at(1).text, std::to_string(count - 1) + ".25");
  };
  EXPECT_LT(growthTenfold(2'000, work), 30);
  int asked = 0;
  const auto twice = [&](int) { return ++asked < 3; };
  EXPECT_TRUE(suite::workbookIn(workbookWith(20'000), twice).sheets.empty());
  EXPECT_EQ(asked, 3);
}

// Whatever a file holds, it is read or refused.
TEST(Workbooks, BrokenOnesAreReadOrRefused) {
  std::mt19937 dice(7);
  const WorkbookCase& rich = workbookCases[4];
  const std::string whole = workbookOf(rich.xml);
  for (int i = 0; i < 300; ++i) {
    std::string bytes = whole;
    if (i % 3 == 0) bytes.resize(dice() % bytes.size());
    for (int flips = i % 5; flips >= 0 && !bytes.empty(); --flips) {
      bytes[dice() % bytes.size()] ^= static_cast<char>(1U << dice() % 8);
    }
    reasonOf(bytes);
    // The same inside a part, past the checksums.
    Parts parts = workbookParts(rich.xml);
    std::string& part = parts[dice() % parts.size()].second;
    part[dice() % part.size()] = static_cast<char>(dice() % 128);
    EXPECT_FALSE(reasonOf(zipOf(parts)).empty());
  }
}

}  // namespace
}  // namespace quillet::support
