// Entering many vouchers at once: all of them or none, as the journal's own save would.
#include "books/voucher_import.h"

#include "controls/acts.h"
#include "data/errors.h"
#include "journal_fixture.h"

namespace quillet::support {
namespace {

const char* const oddName = "Ravi \"O'Neil\" \\ \xF0\x9F\x98\x80";

class VoucherImportTest : public JournalTest {
 protected:
  VoucherImportTest() {
    addYear("C2", 2008, {{"Cash", "BANKS", 7}});
    addYear("C1", 2008, {{"Cash", "BANKS", 100.10}, {"Rent", "RENT", -40}});
    put(1, 1, "Cash", "BANKS", 40, "Old");
    put(1, 2, "Rent", "RENT", -40, "Old");
    put(2, 1, "Cash", "BANKS", 7, "", "C2");
    put(2, 2, "Rent", "RENT", -7, "", "C2");
  }
  VoucherContents seen() { return readVoucherContents(host(), books_, from_, to_); }
  ImportEnd run(const std::vector<VoucherToEnter>& vouchers) { return run(vouchers, seen()); }
  ImportEnd run(const std::vector<VoucherToEnter>& vouchers, const VoucherContents& seen) {
    const Act act(context().openForms.acts);
    statements();
    return VoucherImport(host(), context().unposted, books_, from_, to_).run(vouchers, seen);
  }
  VoucherLine line(const std::string& of, const std::string& under, double amount) {
    return {{of.empty() ? 0 : ledger(of), group(under)}, amount > 0, abs(Money::rounded(amount))};
  }
  // Rent to nothing, a new ledger in two vouchers, quotes in the narration.
  std::vector<VoucherToEnter> vouchers() {
    return {
        {{"31/03/2009",
          "It's \\ \"it\"",
          {line("Rent", "RENT", 40), line("", "SALES", -39.99), line("", "BANKS", -0.01)}},
         {"", oddName, oddName}},
        {{"01/04/2008", "", {line("Cash", "BANKS", 0.1), line("", "SALES", -0.1)}}, {"", oddName}}};
  }
  Rows journalRows() {
    return rows(
        "select VID,LSrNo,VDate,Particular,Amount,VNar from JRNL_1 j join Mast_Part p on "
        "p.PartId=j.PartId where code_no='C1' order by VID,LSrNo");
  }

  ClientTable books_{"TAB_1", "C1"};
  std::string from_ = "01/04/2008";
  std::string to_ = "31/03/2009";
};

TEST_F(VoucherImportTest, StoresAndPostsAsTheJournalDoes) {
  EXPECT_EQ(run(vouchers()), ImportEnd::done);
  EXPECT_EQ(journalRows(), (Rows{{"1", "1", "2008-06-02", "Cash", "40", "Old"},
                                 {"1", "2", "2008-06-02", "Rent", "-40", "Old"},
                                 {"3", "1", "2009-03-31", "Rent", "40", "It's \\ \"it\""},
                                 {"3", "2", "2009-03-31", oddName, "-39.99", "It's \\ \"it\""},
                                 {"3", "3", "2009-03-31", oddName, "-0.01", "It's \\ \"it\""},
                                 {"4", "1", "2008-04-01", "Cash", "0.1", ""},
                                 {"4", "2", "2008-04-01", oddName, "-0.1", ""}}));
  EXPECT_EQ(trialBalance("TAB_1"), (Rows{{"3", oddName, "BANKS", "0.01", "2"},
                                         {"4", "Cash", "BANKS", "100.2", "1"},
                                         {"5", oddName, "SALES", "40.09", "2"}}));
  EXPECT_EQ(trialBalance("TAB_1", "C2"), (Rows{{"1", "Cash", "BANKS", "7", "1"}}));
  EXPECT_FALSE(context().unposted.any(books_));
}

TEST_F(VoucherImportTest, LeavesEverythingWhereItDoesNotEnd) {
  // A voucher that a failure left half posted stays so.
  context().unposted.add(books_, {ledger("Rent"), group("RENT")}, Money::ofPaise(-100));
  const Rows before = books();
  const auto stands = [&](const std::string& what) {
    EXPECT_EQ(books(), before) << what;
    EXPECT_EQ(context().unposted.of(books_, {ledger("Rent"), group("RENT")}), Money::ofPaise(-100))
        << what;
    EXPECT_EQ(context().unposted.pairs(books_).size(), 1U) << what;
  };
  const auto whole = vouchers();
  host().stopWork(1);
  EXPECT_EQ(run(whole), ImportEnd::stopped);
  stands("stopped");
  struct {
    const char* what;
    std::function<void(VoucherToEnter&)> spoil;
  } const refused[] = {
      {"unbalanced", [](auto& v) { v.voucher.lines[0].amount += Money::ofPaise(1); }},
      {"before the year", [](auto& v) { v.voucher.date = "31/03/2008"; }},
      {"no date", [](auto& v) { v.voucher.date = "__/__/____"; }},
      {"no group", [](auto& v) { v.voucher.lines[0].pair.allId = 0; }},
      {"no lines", [](auto& v) { v.voucher.lines.clear(); }},
      {"a name that is no ledger's", [](auto& v) { v.ledgers.back() = std::string(300, 'x'); }},
  };
  for (const auto& each : refused) {
    auto spoilt = vouchers();
    each.spoil(spoilt.back());
    EXPECT_THROW(run(spoilt), std::runtime_error) << each.what;
    stands(each.what);
  }
  EXPECT_EQ(run(whole, {}), ImportEnd::booksOther);
  stands("another journal");
  for (long at = 0;; ++at) {
    for (const long error : {1105, 1021}) {
      host().statements().failNext("", at, error);
      bool failed = false;
      try {
        run(whole);
      } catch (const RunTimeError&) {
        failed = true;
      }
      if (!failed) {
        // The statement after the last one.
        EXPECT_EQ(journalRows().size(), 7U);
        EXPECT_GT(at, 30);
        EXPECT_FALSE(context().unposted.any(books_));
        host().statements().failNext("never", 0, 1105);
        return;
      }
      stands("statement " + std::to_string(at + 1));
      if (HasFailure()) return;
    }
  }
}

TEST_F(VoucherImportTest, KnowsAYearThatIsGone) {
  const auto before = seen();
  exec("delete from master where code_no='C1'");
  EXPECT_EQ(run(vouchers(), before), ImportEnd::yearGone);
}

TEST_F(VoucherImportTest, ReadsAsLittleForTheLastOfThousandsAsForTheFirst) {
  std::vector<VoucherToEnter> many;
  for (int v = 0; v < 2000; ++v) {
    VoucherToEnter voucher{{"02/06/2008", "No. " + std::to_string(v), {}},
                           std::vector<std::string>(10)};
    for (int i = 0; i < 10; ++i) {
      const std::string name = "Ledger " + std::to_string((v + i * i) % 500);
      voucher.voucher.lines.push_back({{0, group("SALES")}, i % 2 == 0, Money::ofPaise(v + 1)});
      voucher.ledgers[static_cast<std::size_t>(i)] = name;
    }
    many.push_back(std::move(voucher));
  }
  const long before = rowsRead();
  EXPECT_EQ(run(many), ImportEnd::done);
  EXPECT_LT(rowsRead() - before, 50 * 20'000);
  EXPECT_LT(statements().size(), 9 * 20'000U);
  EXPECT_EQ(value("select count(*) from JRNL_1 where code_no='C1'"), "20002");
  EXPECT_EQ(value("select round(sum(Amount)*100) from JRNL_1"), "0");
}

}  // namespace
}  // namespace quillet::support
