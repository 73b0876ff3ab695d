// Files as they lie in folders, those of other programs among them.
#include "suite/sheets/source_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <fstream>

#include "data/text.h"
#include "import/sheet_text.h"
#include "import/zip_bytes.h"
#include "suite/sheets/zip_file.h"
#include "support/practice.h"

namespace quillet::support {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

std::string shown(const SourceBook& book) {
  std::string text;
  for (const SourceSheet& sheet : book.sheets) {
    text += sheet.name + (sheet.hidden ? " hidden:" : ":");
    for (const int column : sheet.hiddenColumns) text += " hidden column " + std::to_string(column);
    text += '\n';
    for (const SourceRow& row : sheet.rows) {
      text += std::to_string(row.number) + (row.hidden ? " hidden" : "");
      for (const SourceCell& cell : row.cells) text += " [" + cellText(cell) + "]";
      text += '\n';
    }
  }
  return text;
}

class SourceFilesTest : public ::testing::Test {
 protected:
  std::string write(const std::string& name, const std::string& bytes) {
    const fs::path path = folder_.path() / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path.string();
  }
  static SourceBook read(const std::string& path, const suite::CalcOptions& calc = {"/no/helper"}) {
    return suite::SourceFiles(calc).file(path, {}, [](int) { return true; });
  }
  static std::string reasonOf(const std::string& path,
                              const suite::CalcOptions& calc = {"/no/helper"}) {
    try {
      read(path, calc);
    } catch (const SourceError& error) {
      return error.what();
    }
    return "none";
  }

  static std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  TemporaryFolder folder_;
};

// The directory of a compound file with one stream.
std::string compoundFile(const std::string& stream) {
  std::string bytes(1024, '\0');
  bytes.replace(0, 8, "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
  bytes[30] = 9;
  for (std::size_t i = 0; i < stream.size(); ++i) bytes[512 + 2 * i] = stream[i];
  bytes[512 + 64] = static_cast<char>(2 * stream.size() + 2);
  return bytes;
}

TEST_F(SourceFilesTest, TheContentCountsNotTheName) {
  const std::string text = write("tb.xlsx", "Cash;1\nBank;2\n");
  const std::string same = write("other", "Cash;1\nBank;2\n");
  const std::string book = write("tb.csv", workbookOf({.rows = "<row><c><v>1</v></c></row>"}));
  EXPECT_EQ(sheetText(read(text).sheets.at(0)), "Cash|1\nBank|2\n");
  EXPECT_EQ(cellText(read(book).sheets.at(0).rows.at(0).cells.at(0)), "n 1");
  EXPECT_EQ(read(text).fingerprint, read(same).fingerprint);
  EXPECT_NE(read(text).fingerprint, read(book).fingerprint);
}

TEST_F(SourceFilesTest, AWebPageCalledWorkbookIsReadAsItIsShown) {
  const std::string page = write(
      "page.xls",
      "<html><head><title>no</title><style>td {}</style></head><body><h1>Mehta &amp; Co</h1>"
      "<!-- <td>no</td> --><TABLE border=1><tr><th>Name</th><th colspan=\"2\">Closing\n Balance"
      "<tr><td rowspan=2><b>007</b></td><td>&nbsp;&nbsp;1,000.00&#160;Dr<td>=1+1</td></tr>"
      "<tr style='display: none'><td>1E5<br>x</td></tr></TABLE>"
      "<p>after</p><table><tr><td>&#x20B9; 5 &unknown;</td></tr></table></body></html>");
  const SourceBook book = read(page);
  EXPECT_EQ(
      shown(book),
      ":\n1 [t Mehta & Co]\n2 [t Name bold] [t Closing Balance bold columns 2]\n"
      "3 [t 007 bold rows 2] [t   1,000.00 Dr] [t =1+1]\n4 hidden [-] [t 1E5 x]\n5 [t after]\n"
      "6 [t ₹ 5 &unknown;]\n");
  EXPECT_EQ(book.encoding, "UTF-8");
  // Wherever it is cut it is read or refused.
  const std::string bytes = contentOf(page);
  for (std::size_t size = 1; size < bytes.size(); ++size) {
    EXPECT_FALSE(reasonOf(write("part.xls", bytes.substr(0, size))).empty());
  }
  EXPECT_NE(reasonOf(write("cut.xls", "<table><tr><td>Cash</td></tr><tr><td>1")).find("cut off"),
            std::string::npos);
}

TEST_F(SourceFilesTest, WhatCannotBeReadIsRefusedWithItsNameAndAReason) {
  const std::string large = write("large.csv", "");
  fs::resize_file(large, 100U << 20U);
  const std::string pipe = (folder_.path() / "pipe").string();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::string document = "application/vnd.oasis.opendocument.";
  const struct {
    std::string path;
    const char* reason;
  } files[] = {
      {folder_.path().string(), "is a folder"},
      {folder_.path().string() + "/gone.csv", "is not there"},
      {pipe, "is no file but a device"},
      {large, "is larger than 64 MB"},
      {write("empty.csv", ""), "is empty"},
      {write("a.xlsx", "%PDF-1.7"), "a PDF document"},
      {write("b.xlsx", "\x89PNG\r\n"), "a picture"},
      {write("c.csv", "\x01\x02\x03\x00\x04\x05"s), "neither a workbook nor a text"},
      {write("d.xlsx", compoundFile("EncryptedPackage")), "is locked by a password"},
      {write("e.ods", zipOf({{"mimetype", document + "spreadsheet"},
                             {"META-INF/manifest.xml", "<m:encryption-data/>"}})),
       "is locked by a password"},
      {write("f.xls", compoundFile("WordDocument")), "another program"},
      {write("g.ods", zipOf({{"mimetype", document + "text"}})), "another document"},
      {write("h.xls", compoundFile("Workbook")), "/no/helper is missing. Install"},
      {write("i.xml", "<?xml version=\"1.0\"?><invoice/>"), "an XML file"},
  };
  for (const auto& file : files) {
    SCOPED_TRACE(file.path);
    const std::string reason = reasonOf(file.path);
    EXPECT_TRUE(reason.starts_with("The file " + file.path + " ")) << reason;
    EXPECT_NE(reason.find(file.reason), std::string::npos) << reason;
  }
}

#ifdef QUILLET_CALC

// A sheet with everything that an import looks at, and a hidden one.
const std::string flatDocument = R"(<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
 xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"
 xmlns:number="urn:oasis:names:tc:opendocument:xmlns:datastyle:1.0"
 xmlns:of="urn:oasis:names:tc:opendocument:xmlns:of:1.2" office:version="1.3"
 office:mimetype="application/vnd.oasis.opendocument.spreadsheet"><office:automatic-styles>
<number:number-style style:name="P" style:volatile="true"><number:number number:decimal-places="2"
 number:min-integer-digits="1"/><number:text> Dr</number:text></number:number-style>
<number:number-style style:name="N"><number:number number:decimal-places="2"
 number:min-integer-digits="1"/><number:text> Cr</number:text>
 <style:map style:condition="value()&gt;=0" style:apply-style-name="P"/></number:number-style>
<number:date-style style:name="D"><number:day/><number:text>/</number:text><number:month/>
 <number:text>/</number:text><number:year number:style="long"/></number:date-style>
<style:style style:name="side" style:family="table-cell" style:data-style-name="N"/>
<style:style style:name="day" style:family="table-cell" style:data-style-name="D"/>
<style:style style:name="bold" style:family="table-cell">
 <style:text-properties fo:font-weight="bold"/></style:style>
<style:style style:name="in" style:family="table-cell">
 <style:paragraph-properties fo:text-align="start" fo:margin-left="0.7055cm"/></style:style>
<style:style style:name="gone" style:family="table">
 <style:table-properties table:display="false"/></style:style></office:automatic-styles>
<office:body><office:spreadsheet><table:table table:name="TB &amp; more"><table:table-column/>
<table:table-column table:visibility="collapse"/><table:table-column/><table:table-row>
<table:table-cell table:style-name="bold" table:number-columns-spanned="2"
 office:value-type="string"><text:p>Head</text:p></table:table-cell><table:covered-table-cell/>
<table:table-cell table:style-name="in" office:value-type="string"><text:p>in</text:p>
</table:table-cell></table:table-row><table:table-row table:visibility="collapse">
<table:table-cell office:value-type="string"><text:p>=1+1</text:p></table:table-cell>
<table:table-cell office:value-type="string"><text:p>007</text:p></table:table-cell>
</table:table-row><table:table-row>
<table:table-cell table:style-name="side" office:value-type="float" office:value="1234567.5"/>
<table:table-cell table:style-name="side" office:value-type="float" office:value="-500"/>
<table:table-cell table:style-name="day" office:value-type="date" office:date-value="2026-03-31"/>
</table:table-row><table:table-row>
<table:table-cell table:formula="of:=[.A3]+[.B3]" office:value-type="float" office:value="1234067.5"/>
<table:table-cell table:formula="of:=1/0" office:value-type="float" office:value="0">
<text:p>#DIV/0!</text:p></table:table-cell>
<table:table-cell office:value-type="boolean" office:boolean-value="true"/>
<table:table-cell office:value-type="float" office:value="0.30000000000000004"/>
</table:table-row></table:table>
<table:table table:name="Old" table:style-name="gone"><table:table-row>
<table:table-cell office:value-type="string"><text:p>x</text:p></table:table-cell>
</table:table-row></table:table></office:spreadsheet></office:body></office:document>)";

const char* const sameCells =
    "TB & more: hidden column 1\n1 [t Head bold columns 2] [-] [t in indent 2]\n"
    "2 hidden [t =1+1] [t 007]\n3 [n 1234567.5 side D] [n 500 side C] [d 2026-03-31]\n"
    "4 [n 1234067.5] [e #DIV/0!] [b TRUE] [n 0.3]\nOld hidden:\n1 [t x]\n";

class OfficeFilesTest : public SourceFilesTest {
 protected:
  // Has LibreOffice itself write a file of another kind.
  std::string written(const std::string& from, const std::string& kind) {
    const std::string command = QUILLET_OFFICE_PROGRAM "/soffice -env:UserInstallation=file://" +
                                folder_.path().string() + "/profile --headless --convert-to " +
                                kind + " --outdir " + folder_.path().string() + "/out " + from +
                                " >/dev/null 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0);
    return (folder_.path() / "out" / fs::path(from).filename())
        .replace_extension(kind.substr(0, kind.find(':')))
        .string();
  }
  const suite::CalcOptions calc_{QUILLET_CALC, std::chrono::seconds(120)};
};

TEST_F(OfficeFilesTest, WorkbooksOfEveryKindSayTheSame) {
  const std::string flat = write("book.fods", flatDocument);
  const std::string document = written(flat, "ods");
  EXPECT_EQ(shown(read(written(flat, "xlsx"))), sameCells);
  EXPECT_EQ(shown(read(document, calc_)), sameCells);

  // A formula counts by its stored value, even a wrong one, and by an error of LibreOffice's own.
  const auto binary = [](double number) {
    return std::string(reinterpret_cast<const char*>(&number), sizeof number);
  };
  const auto changed = [](std::string_view bytes) {
    const std::string text = replacedAll(std::string(bytes), "\"1234067.5\"", "\"42\"");
    return replacedAll(replacedAll(text, ">1234067.5<", ">42<"), ">#DIV/0!<", ">Err:522<");
  };
  const std::string old = contentOf(written(flat, "xls"));
  const std::string changedOld = replacedAll(old, binary(1234067.5), binary(42));
  const std::string changedCells = replacedAll(sameCells, "1234067.5", "42");
  EXPECT_EQ(shown(read(write("changed.xls", changedOld), calc_)), changedCells);
  const std::string files[] = {
      write("changed.ods", suite::ZipFile(contentOf(document)).with("content.xml", changed)),
      write("changed.fods", changed(flatDocument))};
  for (const std::string& file : files) {
    EXPECT_EQ(shown(read(file, calc_)), replacedAll(changedCells, "#DIV/0!", "Err:522")) << file;
  }
  // It is written without formats.
  const std::string xml = changed(contentOf(written(flat, "xml:'MS Excel 2003 XML'")));
  const std::string cells = shown(read(write("changed.xml", xml), calc_));
  EXPECT_NE(cells.find("4 [n 42] [e Err:522]"), std::string::npos) << cells;
  EXPECT_NE(reasonOf(write("cut.xls", old.substr(0, old.size() - 1024))).find("cut off"),
            std::string::npos);
  // The second record of a locked one says so, with what the password is compared with.
  std::string locked = old;
  const auto second = old.find("\xE1\0\x02\0"s);
  ASSERT_NE(second, std::string::npos);
  locked.replace(second, 58, "\x2F\0\x36\0\1\0\1\0\1\0"s + std::string(48, 'x'));
  const std::string reason = reasonOf(write("locked.xls", locked), calc_);
  EXPECT_NE(reason.find("is locked by a password"), std::string::npos) << reason;
}

TEST_F(OfficeFilesTest, AnEndedConversionLeavesNothingBehind) {
  const std::string flat = write("book.fods", flatDocument);
  const fs::path temporary = folder_.path() / "temporary";
  fs::create_directory(temporary);
  const char* before = std::getenv("TMPDIR");
  const std::string kept = before == nullptr ? "" : before;
  setenv("TMPDIR", temporary.c_str(), 1);
  int asked = 0;
  const SourceBook book =
      suite::SourceFiles(calc_).file(flat, {}, [&](int) { return ++asked < 5; });
  before == nullptr ? unsetenv("TMPDIR") : setenv("TMPDIR", kept.c_str(), 1);
  EXPECT_TRUE(book.sheets.empty());
  EXPECT_EQ(asked, 5);
  EXPECT_TRUE(fs::is_empty(temporary));
}

#endif

}  // namespace
}  // namespace quillet::support
