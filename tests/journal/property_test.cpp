// Whatever vouchers are passed, changed and removed, and wherever that fails, the trial balance is
// what the originals and the journal add up to.
#include <cmath>
#include <map>
#include <random>

#include "journal_fixture.h"

namespace quillet::support {
namespace {

using Pair = std::pair<std::string, std::string>;  // PartId, AllId
using Paise = std::map<Pair, long>;

constexpr const char* ledgerNames[] = {"Cash", "Rent", "Sales", "Loan", "Stock"};
constexpr const char* groupNames[] = {"BANKS", "CAPITAL", "RENT", "SALES"};

class JournalProperty : public JournalTest {
 protected:
  JournalProperty() {
    addYear("C1", 2008,
            {{"Cash", "BANKS", 500.25}, {"Rent", "RENT", 0.1}, {"Loan", "CAPITAL", -9}});
    addYear("C2", 2008, {{"Rent", "RENT", -30.3}, {"Cash", "BANKS", 70}});
    for (const char* name : ledgerNames) ledger(name);
  }

  Paise sums(const std::string& sql) {
    Paise all;
    for (const auto& row : rows(sql)) all[{row[0], row[1]}] += std::stol(row[2]);
    std::erase_if(all, [](const auto& entry) { return entry.second == 0; });
    return all;
  }
  Paise balances(const std::string& client) {
    Paise all =
        sums("select partid,allid,round(if(nid=1,amt,-amt)*100) from TAB_1 where code_no='" +
             client + "'");
    // What a failure left to be posted is known to the paisa.
    const ClientTable books{"TAB_1", client};
    for (const LedgerGroup pair : context().unposted.pairs(books)) {
      all[{std::to_string(pair.partId), std::to_string(pair.allId)}] +=
          std::lround(context().unposted.of(books, pair) * 100);
    }
    std::erase_if(all, [](const auto& entry) { return entry.second == 0; });
    return all;
  }
  Paise explained(const Paise& originals, const std::string& client) {
    Paise all = sums("select PartId,AllId,round(sum(Amount)*100) from JRNL_1 where code_no='" +
                     client + "' group by PartId,AllId");
    for (const auto& [pair, amount] : originals) all[pair] += amount;
    std::erase_if(all, [](const auto& entry) { return entry.second == 0; });
    return all;
  }

  static std::string amountOf(long paise) {
    const std::string fraction = std::to_string(paise % 100);
    return std::to_string(paise / 100) + (fraction.size() == 1 ? ".0" : ".") + fraction;
  }
  // One to four debits against one credit, all on pairs drawn at random.
  std::vector<Entered> drawLines() {
    std::vector<Entered> lines;
    long total = 0;
    for (int i = draw(1, 4); i > 0; --i) {
      // Often the same few amounts, so that balances meet zero.
      const long amount = draw(0, 1) ? draw(1, 3) * 10 : draw(1, 99'999);
      lines.push_back({ledgerNames[draw(0, 4)], groupNames[draw(0, 3)], amountOf(amount)});
      total += amount;
    }
    lines.push_back({ledgerNames[draw(0, 4)], groupNames[draw(0, 3)], amountOf(total), false});
    if (draw(0, 1)) {
      for (Entered& line : lines) line.debit = !line.debit;
    }
    return lines;
  }
  int draw(int least, int most) { return std::uniform_int_distribution<>(least, most)(random_); }

  // Every other deed fails somewhere, and is left as it stands then.
  void drawDeed() {
    const bool fails = draw(0, 1);
    if (fails) host().statements().failNext("", draw(0, 40));
    carryOutDeed();
    host().statements().failNext("no such statement");
    EXPECT_LE(log().size(), fails ? 1U : 0U);
    if (!journal().Frame2.visible()) return;
    dialogs.queueAnswer(Answer::Yes);
    journal().press(keys::Escape);
  }
  void carryOutDeed() {
    frmjrnl& form = journal();
    const int rows = form.vsf.rows();
    const int deed = rows == 0 ? 0 : draw(0, 3);
    if (deed <= 1) {
      form.click(form.cmdadd);
      fillVoucher("02062008", drawLines());
      form.click(form.cmdupdate);
      return;
    }
    pick(draw(1, rows));
    if (deed == 2) {
      dialogs.queueAnswer(Answer::Yes);
      form.press(keys::Delete);
      return;
    }
    form.press(keys::Enter);
    if (!form.Frame2.visible()) return;
    const std::vector<Entered> lines = drawLines();
    while (form.GETROWS() > static_cast<int>(lines.size())) form.click(form.cmdremove);
    while (form.GETROWS() < static_cast<int>(lines.size())) form.LOADCONTROLS();
    for (std::size_t i = 0; i < lines.size(); ++i) fillLine(static_cast<int>(i), lines[i]);
    form.click(form.cmdupdate);
  }

  std::mt19937 random_;
};

TEST_F(JournalProperty, TheJournalExplainsTheTrialBalance) {
  const std::string clients[] = {"C1", "C2"};
  const Paise originals[] = {balances("C1"), balances("C2")};
  for (unsigned seed = 1; seed <= 100 && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    random_.seed(seed);
    const int client = draw(0, 1);
    open(clients[client], 2008);
    for (int deeds = draw(1, 4); deeds > 0; --deeds) {
      drawDeed();
      for (const int each : {0, 1}) {
        EXPECT_EQ(balances(clients[each]), explained(originals[each], clients[each]));
      }
    }
    close();
    for (const char* each : {"C1", "C2"}) EXPECT_FALSE(context().unposted.any({"TAB_1", each}));
    EXPECT_EQ(log(), std::vector<std::string>{});
    EXPECT_EQ(value("select count(*) from TAB_1 where amt<0.005 or nid not in (1,2)"), "0");
    EXPECT_EQ(rows("select code_no,srno from TAB_1 group by code_no,srno having count(*)>1"),
              Rows{});
    EXPECT_EQ(rows("select code_no,partid,allid from TAB_1 group by code_no,partid,allid having "
                   "count(*)>1"),
              Rows{});
    EXPECT_EQ(rows("select VID from JRNL_1 group by VID having count(distinct code_no)>1 or "
                   "max(LSrNo)<>count(*)"),
              Rows{});
  }
  for (const int each : {0, 1}) {
    open(clients[each], 2008);
    while (journal().vsf.rows() > 0) {
      pick(1);
      dialogs.queueAnswer(Answer::Yes);
      journal().press(keys::Delete);
    }
  }
  EXPECT_EQ(value("select count(*) from JRNL_1"), "0");
  for (const int each : {0, 1}) EXPECT_EQ(balances(clients[each]), originals[each]);
}

// What is shown while typing is what the tables hold once the voucher is saved.
TEST_F(JournalProperty, TheBalancesShownComeTrue) {
  random_.seed(7);
  open("C1", 2008);
  for (int turn = 0; turn < 20; ++turn) {
    frmjrnl& form = journal();
    if (turn % 3 == 2) {
      pick(draw(1, form.vsf.rows()));
      form.press(keys::Enter);
      form.press(keys::Enter);  // from the date into the first line
      form.cboside[0].choose(form.cboside[0].chosen() == 1 ? 2 : 1);
      dialogs.queueAnswer(Answer::Yes);
      form.press(keys::Escape);
    }
    form.click(form.cmdadd);
    fillVoucher("02062008", drawLines());
    std::map<Pair, std::string> promised;
    for (int line = 0; line < form.GETROWS(); ++line) {
      promised[{form.txtledger[line].text(), form.txtgroup[line].text()}] =
          form.txtcurbal[line].text();
    }
    form.click(form.cmdupdate);
    for (const auto& [pair, shownBalance] : promised) {
      // A pair that has not been seen before shows nothing until it is saved.
      if (shownBalance == "0.00") continue;
      const auto stored = rows(
          "select amt,nid from TAB_1 t join Mast_Part p on p.partid=t.partid "
          "join Mast_AllGrp g on g.allid=t.allid where code_no='C1' and "
          "particular='" +
          pair.first + "' and allgrp='" + pair.second + "'");
      ASSERT_EQ(stored.size(), 1U) << pair.first << " " << pair.second;
      EXPECT_EQ(shownBalance, host().formatgen(std::stod(stored[0][0]), "#,##0.00") +
                                  (stored[0][1] == "1" ? "Dr" : "Cr"));
    }
    messages();
  }
}

}  // namespace
}  // namespace quillet::support
