// The history of a year's books: what acts changed, and the trial balance as it stood.
#include "suite/history/changes.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

#include "books/group_merge.h"
#include "books/ledger_master.h"
#include "books/voucher_book.h"
#include "books/year_deletion.h"
#include "forms/editor_fixture.h"
#include "suite/history/change_texts.h"
#include "suite/history/trial_balance_as_of.h"

namespace quillet::support {
namespace {

using namespace suite;

class ChangesTest : public EntryTest {
 protected:
  ChangesTest() {
    practice.environment().actLog().alone("The history begins", [] {});
    begin_ = lastAct();
  }

  UnitOfWork& unit() { return practice.environment().unit(); }
  Instant lastAct() { return instantFrom(value("select max(At) from SuiteAct")); }
  Instant act(const std::function<void()>& steps) {
    const unsigned long before = std::stoul(value("select count(*) from SuiteAct"));
    {
      const Act running(context().openForms.acts, [] { return ActName{"Test", "Step"}; });
      steps();
    }
    EXPECT_EQ(value("select count(*) from SuiteAct"), std::to_string(before + 1));
    return lastAct();
  }
  // The editor's own acts.
  Instant edit(const std::function<void()>& steps) {
    steps();
    return lastAct();
  }

  // What was changed, of what, ledger, group, old and new.
  Rows told(Changes changes) {
    Rows all;
    for (const Change& change : changes.list) {
      const ChangeTexts texts = textsOf(host(), changes, change);
      all.push_back(
          {texts.what, texts.of, texts.ledger, texts.groups(), texts.before, texts.after});
    }
    return all;
  }
  Rows changed(Instant from, Instant till, long ledgerId = 0) {
    return told(changesOfYear(unit(), year, {from, till}, ledgerId));
  }
  Rows changed(Instant at) { return changed(at, at + 1); }

  // Then and now, and what differs.
  Rows stood(Instant then) {
    const TrialBalanceAsOf books = trialBalanceAsOf(unit(), year, then);
    EXPECT_EQ(books.refused, "");
    Rows all;
    for (const LineAsOf& line : books.lines) {
      const auto text = [&](const std::optional<BookRow>& row) {
        return row ? balanceText(host(), row->balance) : "";
      };
      all.push_back({line.ledger, line.group, text(line.rows.before), text(line.rows.after),
                     line.difference()});
    }
    return all;
  }

  const ClientYear year{"C1", "31032009"};
  Instant begin_ = 0;
};

TEST_F(ChangesTest, LinesAreToldAsAPersonChangedThem) {
  const Instant entered = edit([&] { enter(form, "Cash", "BANKS", "100", "DR"); });
  EXPECT_EQ(changed(entered), (Rows{{"Added", "Line", "Cash", "BANKS", "", "100.00 DR"}}));
  const Instant more = edit([&] { enter(form, "Asha", "CAPITAL", "100", "CR"); });
  const Instant altered = edit([&] { alter(form, "Cash", "150.5"); });
  EXPECT_EQ(changed(altered),
            (Rows{{"Changed", "Line", "Cash", "BANKS", "100.00 DR", "150.50 DR"}}));
  const Instant moved = edit([&] {
    pick(form, "Cash");
    form.click(form.mnualter);
    fill(form, "Cash", "RENT", "150.5", "CR");
    form.press(keys::Enter);
  });
  EXPECT_EQ(changed(moved),
            (Rows{{"Changed", "Line", "Cash", "RENT (was BANKS)", "150.50 DR", "150.50 CR"}}));
  // Saved as it was.
  EXPECT_EQ(changed(edit([&] { alter(form, "Cash", "150.5"); })), Rows());
  const Instant removed = edit([&] { remove(form, "Asha"); });
  EXPECT_EQ(changed(removed), (Rows{{"Deleted", "Line", "Asha", "CAPITAL", "100.00 CR", ""}}));

  // The period and the ledger.
  EXPECT_EQ(changed(entered, removed).size(), 4U);
  EXPECT_EQ(changed(more, removed + 1,
                    std::stol(value("select PartId from Mast_Part where "
                                    "Particular='Asha'"))),
            (Rows{{"Deleted", "Line", "Asha", "CAPITAL", "100.00 CR", ""},
                  {"Added", "Line", "Asha", "CAPITAL", "", "100.00 CR"}}));
  const ClientYear other{"C2", year.secondDate};
  EXPECT_TRUE(changesOfYear(unit(), other, {0, removed + 1}).list.empty());

  const Changes all = changesOfYear(unit(), year, {0, removed + 1});
  EXPECT_EQ(all.actCount, 5U);
  EXPECT_EQ(all.acts.of(altered).command, "Enter in Dr/Cr");
  EXPECT_EQ(all.acts.of(altered).form, form.caption());
  EXPECT_NE(all.acts.of(altered).person, "");
  EXPECT_EQ(lastChange(unit(), year), removed);

  EXPECT_EQ(stood(more), (Rows{{"Cash", "BANKS", "100.00 DR", "150.50 CR", "Changed"},
                               {"Asha", "CAPITAL", "100.00 CR", "", "Deleted since"}}));
  const TrialBalanceAsOf before = trialBalanceAsOf(unit(), year, altered);
  EXPECT_EQ(before.then.debit, 150.5);
  EXPECT_EQ(before.then.credit, 100);
  EXPECT_EQ(before.now.debit, 0);
  EXPECT_EQ(before.now.credit, 150.5);
  EXPECT_EQ(stood(begin_), (Rows{{"Cash", "RENT", "", "150.50 CR", "Added since"}}));
  EXPECT_EQ(trialBalanceAsOf(unit(), year, begin_ - 1).refused,
            "There is no history before " + localTime(begin_));
  EXPECT_TRUE(trialBalanceAsOf(unit(), year, begin_ - 1).lines.empty());
}

TEST_F(ChangesTest, VouchersAreToldWithWhatTheyPost) {
  const long cash = ledger("Cash"), rent = ledger("Rent");
  const long banks = group("BANKS"), rents = group("RENT");
  VoucherBook book(host(), context().unposted, {table, "C1"});
  Voucher voucher{
      "15/06/2008",
      "June's rent",
      {{{rent, rents}, true, Money::rounded(40)}, {{cash, banks}, false, Money::rounded(40)}}};
  const auto store = [&] {
    return act([&] {
      if (book.id() != 0) book.remove(book.id());
      book.store(voucher);
      book.post(book.id());
    });
  };
  book.begin();
  const Instant posted = store();
  EXPECT_EQ(changed(posted),
            (Rows{{"Added", "Line", "Rent", "RENT", "", "40.00 DR"},
                  {"Added", "Line", "Cash", "BANKS", "", "40.00 CR"},
                  {"Added", "Voucher 1 of 15/06/2008", "Rent", "RENT", "", "40.00 DR"},
                  {"Added", "Voucher 1 of 15/06/2008", "Cash", "BANKS", "", "40.00 CR"}}));
  // The narration alone.
  book.resume(1);
  voucher.narration = "Rent of June";
  Changes renamed = changesOfYear(unit(), year, {store(), endOfTime});
  ASSERT_EQ(renamed.list.size(), 2U);
  EXPECT_EQ(textsOf(host(), renamed, renamed.list[0]).remark,
            "Rent of June; Narration was \"June's rent\"");
  const Instant deleted = act([&] { book.remove(1); });
  EXPECT_EQ(changed(deleted),
            (Rows{{"Deleted", "Line", "Rent", "RENT", "40.00 DR", ""},
                  {"Deleted", "Line", "Cash", "BANKS", "40.00 CR", ""},
                  {"Deleted", "Voucher 1 of 15/06/2008", "Rent", "RENT", "40.00 DR", ""},
                  {"Deleted", "Voucher 1 of 15/06/2008", "Cash", "BANKS", "40.00 CR", ""}}));
}

// What changes the books of many years belongs to each of them; names are those of the time.
TEST_F(ChangesTest, MastersChangeBooksAndNames) {
  edit([&] { enter(form, "Fares", "RENT", "10", "DR"); });
  const Instant entered = lastAct();
  const long fares = ledger("Fares"), rents = group("RENT"), banks = group("BANKS");
  const Instant renamed = act([&] { LedgerMaster(host()).rename(fares, "Travel"); });
  EXPECT_EQ(changed(renamed), Rows());
  EXPECT_EQ(told(changesOfMasters(unit(), {renamed, renamed + 1})),
            (Rows{{"Changed", "Ledger", "Travel", "", "Fares", "Travel"}}));
  const Instant merged = act([&] {
    TableNames missing;
    mergeGroups(host(), context().unposted, {rents}, banks, missing);
  });
  EXPECT_EQ(changed(merged),
            (Rows{{"Changed", "Line", "Travel", "BANKS (was RENT)", "10.00 DR", "10.00 DR"}}));
  EXPECT_EQ(value("select Client from SuiteAct order by At desc limit 1"), "");
  exec("update SuiteAct set Client='',Yr='' where Client='C1'");
  EXPECT_EQ(changed(entered, merged + 1).size(), 2U) << "of whatever client the act tells";
  EXPECT_EQ(told(changesOfMasters(unit(), {merged, merged + 1})),
            (Rows{{"Deleted", "Group", "", "RENT", "RENT (under Expenses)", ""}}));
  EXPECT_EQ(changed(entered), (Rows{{"Added", "Line", "Fares", "RENT", "", "10.00 DR"}}));
  const Instant bound = act([&] {
    host().ConQuery("insert into RawMatGrpM values(1,'Cotton',1)");
    host().ConQuery("insert into RMGRP_1 values('C1',1,1," + sqlNumber(banks) + ",0,0,0,1)");
    host().ConQuery("insert into AllGrp_Map values('#?#COMMON#?#'," + sqlNumber(banks) +
                    ",1,'Cash',2,'Bank')");
  });
  EXPECT_EQ(changed(bound),
            (Rows{{"Added", "Binding", "", "", "", "Cotton; opening stock BANKS"}}));
  EXPECT_EQ(told(changesOfMasters(unit(), {bound, bound + 1})),
            (Rows{{"Added", "Mapping", "", "BANKS", "", "Schedule VI: Cash; income tax: Bank"},
                  {"Added", "Binding head", "", "", "", "Cotton"}}));
  EXPECT_EQ(stood(entered), (Rows{{"Fares", "RENT", "10.00 DR", "10.00 DR", "Changed"}}));
}

TEST_F(ChangesTest, ADeletedYearCanBeLookedAt) {
  const Instant entered = edit([&] { enter(form, "Cash", "BANKS", "7", "DR"); });
  const Instant deleted = act([&] {
    YearDeletion deletion(host(), context().fileRemover, context().unposted);
    deletion.open(*Registry(host()).yearIn(table, "C1"));
    deletion.deleteTrialBalance();
    deletion.deleteRegistryRow();
  });
  EXPECT_EQ(changed(deleted), (Rows{{"Deleted", "Year", "", "", "31/03/2009", ""},
                                    {"Deleted", "Line", "Cash", "BANKS", "7.00 DR", ""}}));
  EXPECT_EQ(stood(entered), (Rows{{"Cash", "BANKS", "7.00 DR", "", "Deleted since"}}));
  // Another year takes the table; the lines are not those of the one before.
  act([&] {
    host().ConQuery(
        "insert into master(code_no,tbl_nm,count,f_yr,s_yr) values('C1','TAB_1',1,"
        "'01042009','31032010')");
  });
  act([&] { host().ConQuery("insert into TAB_1 values(1,'C1',1,1,5,1)"); });
  EXPECT_EQ(changed(deleted + 1, endOfTime), Rows());
  const ClientYear next{"C1", "31032010"};
  EXPECT_EQ(changesOfYear(unit(), next, {0, endOfTime}).list.size(), 2U);
  EXPECT_FALSE(trialBalanceAsOf(unit(), year, lastAct()).isThere);
  EXPECT_TRUE(trialBalanceAsOf(unit(), next, lastAct()).wasThere);
  EXPECT_FALSE(trialBalanceAsOf(unit(), next, entered).wasThere);
}

// As of each act, and by what each act is told to have changed, the books are what they were.
TEST_F(ChangesTest, AnyActCanBeLookedBackAt) {
  using Books = std::map<std::pair<long, long>, Money>;
  std::mt19937 dice(7);
  const auto below = [&](unsigned limit) { return static_cast<long>(dice() % limit); };
  Books books;
  std::vector<std::pair<Instant, Books>> stood{{begin_, books}};
  for (int i = 0; i < 150; ++i) {
    const Instant at = edit([&] {
      const Act running(context().openForms.acts);
      for (long lines = below(4); lines >= 0; --lines) {
        const std::pair pair{1 + below(6), below(2) == 0 ? group("BANKS") : group("RENT")};
        const Sql where = " where code_no='C1' and partid=" + sqlNumber(pair.first) +
                          " and allid=" + sqlNumber(pair.second);
        host().ConQuery("delete from TAB_1" + where);
        books.erase(pair);
        if (below(4) == 0) continue;
        const Money amount = Money::ofPaise(1 + below(9'999));
        const long side = 1 + below(2);
        host().ConQuery("insert into TAB_1 values(" + sqlNumber(below(50)) + ",'C1'," +
                        sqlNumber(pair.first) + "," + sqlNumber(pair.second) + "," +
                        sqlNumber(amount.rupees()) + "," + sqlNumber(side) + ")");
        books[pair] = side == 2 ? -amount : amount;
      }
    });
    stood.emplace_back(at, books);
  }
  const Changes changes = changesOfYear(unit(), year, {0, endOfTime});
  auto change = changes.list.rbegin();
  Books replayed;
  for (const auto& [at, expected] : stood) {
    Books then;
    for (const LineAsOf& line : trialBalanceAsOf(unit(), year, at).lines) {
      const auto& row = line.rows.before;
      if (row) then[{row->partId, row->allId}] = row->balance;
    }
    ASSERT_EQ(then, expected);
    for (const int step : {0, 1}) {
      for (auto each = change; each != changes.list.rend() && each->at == at; ++each) {
        const auto& row = step == 0 ? each->rows.before : each->rows.after;
        if (row && step == 0) replayed.erase({row->partId, row->allId});
        if (row && step == 1) replayed[{row->partId, row->allId}] = row->balance;
      }
    }
    while (change != changes.list.rend() && change->at == at) ++change;
    ASSERT_EQ(replayed, expected);
  }
  EXPECT_EQ(change, changes.list.rend());
}

TEST_F(ChangesTest, TakenBackActsAreMarked) {
  const Instant first = edit([&] { enter(form, "Cash", "BANKS", "7", "DR"); });
  const auto takeBack = [&](Instant taken) {
    const Instant act = edit([&] { enter(form, "Cash", "BANKS", "1", "DR"); });
    exec("update SuiteAct set TakesBack='" + instantText(taken) + "' where At='" +
         instantText(act) + '\'');
    return act;
  };
  const Instant back = takeBack(first);
  Changes changes = changesOfYear(unit(), year, {0, endOfTime});
  ASSERT_EQ(changes.list.size(), 2U);
  EXPECT_EQ(textsOf(host(), changes, changes.list[1]).remark, "Taken back on " + localTime(back));
  EXPECT_EQ(textsOf(host(), changes, changes.list[0]).remark,
            "Takes back the act of " + localTime(first));
  const Instant again = takeBack(back);
  changes = changesOfYear(unit(), year, {0, endOfTime});
  EXPECT_EQ(changes.acts.of(first).takenBackBy, 0) << "it stands again";
  EXPECT_EQ(changes.acts.of(back).takenBackBy, again);
}

}  // namespace
}  // namespace quillet::support
