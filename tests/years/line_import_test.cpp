// Entering many lines at once: all of them or none.
#include "books/line_import.h"

#include "controls/acts.h"
#include "data/errors.h"
#include "support/practice.h"

namespace quillet::support {
namespace {

class LineImportTest : public PracticeTest {
 protected:
  LineImportTest() {
    addClient("C1", "Asha Traders");
    addClient("C2", "Neighbour & Co");
    banks_ = group("BANKS");
    sales_ = group("SALES", 15);
    addYear("C2", 2008, {{"Cash", "BANKS", 7}});
    table_ = addYear("C1", 2008, {{"Cash", "BANKS", 100.10}, {"Sales", "SALES", -70}});
    // Two rows of one pair, as other programs leave them.
    exec("insert into " + table_ + " values(9,'C1'," + std::to_string(ledger("Cash")) + "," +
         std::to_string(banks_) + ",1,2)");
  }
  std::vector<quillet::Line> seen() { return TrialBalance(host(), {table_, "C1"}).lines(); }
  ImportEnd run(const std::vector<ImportedLine>& lines) { return run(lines, seen()); }
  ImportEnd run(const std::vector<ImportedLine>& lines, const std::vector<quillet::Line>& seen) {
    const Act act(context().openForms.acts);
    return LineImport(host(), {table_, "C1"}).run(lines, seen);
  }
  Rows year() {
    return rows("select particular,allgrp,amt,nid from " + table_ +
                " t join Mast_Part p on p.PartId=t.partid join Mast_AllGrp g on g.ALLID=t.allid "
                "where code_no='C1' order by srno");
  }
  std::vector<ImportedLine> book() {
    return {{ledger("Cash"), "", banks_, Money::ofPaise(5005)},
            {0, "Ravi \"O'Neil\" \\ \xF0\x9F\x98\x80", sales_, Money::ofPaise(-1)},
            {ledger("Sales"), "", sales_, Money()},
            {0, "New  Bank", banks_, Money::ofPaise(1)}};
  }

  long banks_ = 0;
  long sales_ = 0;
  std::string table_;
};

TEST_F(LineImportTest, ReplacesAddsAndTakesOut) {
  EXPECT_EQ(run(book()), ImportEnd::done);
  EXPECT_EQ(year(), (Rows{{"Cash", "BANKS", "50.05", "1"},
                          {"Ravi \"O'Neil\" \\ \xF0\x9F\x98\x80", "SALES", "0.01", "2"},
                          {"New Bank", "BANKS", "0.01", "1"}}));
  EXPECT_EQ(value("select sum(amt) from " + table_ + " where code_no='C2'"), "7");
}

TEST_F(LineImportTest, LeavesEverythingWhereItDoesNotEnd) {
  const Rows before = books();
  const auto lines = seen();
  const auto stands = [&](const char* what) {
    EXPECT_EQ(books(), before) << what;
    // A ledger that was made and taken back has no name any more.
    EXPECT_EQ(host().GetPart_MastPartId(ledger("Sales") + 1), "") << what;
  };
  host().stopWork(3);
  EXPECT_EQ(run(book()), ImportEnd::stopped);
  stands("stopped");

  host().statements().failNext("insert into " + table_, 2);
  EXPECT_THROW(run(book()), RunTimeError);
  stands("a statement that failed");
  host().statements().failNext("insert into " + table_, 1, 1021);
  EXPECT_THROW(run(book()), RunTimeError);
  stands("a full disk");

  auto twice = book();
  twice.push_back({0, "new bank", banks_, Money::ofPaise(2)});
  EXPECT_THROW(run(twice), std::runtime_error);
  stands("a pair twice");
  EXPECT_THROW(run({{0, std::string(300, 'x'), banks_, Money::ofPaise(2)}}), std::runtime_error);
  stands("a name that is no ledger's");

  EXPECT_EQ(run(book(), {}), ImportEnd::booksOther);
  stands("lines that changed since");
  exec("delete from master where code_no='C1'");
  EXPECT_EQ(run(book(), lines), ImportEnd::yearGone);
}

TEST_F(LineImportTest, ReadsAsLittleForTheLastOfThousandsAsForTheFirst) {
  std::vector<ImportedLine> lines;
  for (int i = 0; i < 2000; ++i) {
    lines.push_back({0, "Ledger " + std::to_string(i), banks_, Money::ofPaise(i + 1)});
  }
  const long before = rowsRead();
  EXPECT_EQ(run(lines), ImportEnd::done);
  EXPECT_LT(rowsRead() - before, 50 * 2000);
  EXPECT_EQ(value("select count(*) from " + table_ + " where code_no='C1'"), "2003");
}

}  // namespace
}  // namespace quillet::support
