// Posting vouchers, and opening the journal on many of them.
#include <vector>

#include "bench/support.h"
#include "journal/frmjrnl.h"

namespace quillet::bench {
namespace {

constexpr const char* journalTable = "JRNL_";

// The journal of a year of that many trial-balance lines.
class OpenJournal {
 public:
  explicit OpenJournal(const BenchYear& year) : form_(practice().context()) {
    Forms& forms = practice().forms();
    forms.VClCode(year.code);
    forms.VFATbl(year.table);
    forms.VFDate("01042008");
    forms.VSDate("31032009");
    form_.INITDATA(year.table, false);
    form_.LOADGRID();
    // Read before anything is typed, because typing filters the lists.
    for (int row = 1; row <= 5; ++row) ledgers.push_back(form_.VSF3.cell(row, 0));
    group = form_.VSF4.cell(1, 0);
  }
  frmjrnl& form() { return form_; }

  std::vector<std::string> ledgers;
  std::string group;

 private:
  frmjrnl form_;
};

std::string journalOf(const BenchYear& year) {
  return journalTable + year.table.substr(year.table.find('_') + 1);
}

// Ten lines of the year's ledgers, five of each side.
void typeVoucher(OpenJournal& journal) {
  frmjrnl& form = journal.form();
  form.CMDADD_CLICK();
  form.txtdt.setText("15/06/2008");
  for (int line = 0; line < 10; ++line) {
    if (line > 0) form.LOADCONTROLS();
    form.cboside[line].choose(line % 2 + 1);
    form.txtledger[line].setText(journal.ledgers[line % 5]);
    form.txtledger[line].LostFocus();
    form.txtgroup[line].setText(journal.group);
    form.txtgroup[line].LostFocus();
    (line % 2 == 0 ? form.txtcramt : form.txtdramt)[line].setText("125.25");
  }
}

// The amounts of each pair cancel out, so that only the journal has to be restored.
void voucherPost(benchmark::State& state) {
  const BenchYear& year = yearOf(static_cast<int>(state.range(0)));
  suite::Database& database = practice().database();
  OpenJournal journal(year);
  const auto clear = [&] { database.execute("delete from " + journalOf(year)); };
  compare(state, {.prepare = [&] { typeVoucher(journal); },
                  .run = [&] { journal.form().CMDUPDATE_CLICK(); },
                  .restore = clear});
  clear();
}

BENCHMARK(voucherPost)->Apply(yearSizes);

// 10,000 vouchers of four lines with their narrations.
void voucherList(benchmark::State& state) {
  const BenchYear& year = yearOf(200);
  suite::Database& database = practice().database();
  const std::string table = journalOf(year);
  const int vouchers = static_cast<int>(state.range(0));
  for (int vid = 1; vid <= vouchers; vid += 500) {
    std::string sql = "insert into " + table + " values";
    for (int each = vid; each < vid + 500; ++each) {
      for (int line = 1; line <= 4; ++line) {
        sql += std::string(sql.back() == ')' ? "," : "") + "('" + year.code + "'," +
               std::to_string(each) + "," + std::to_string(line) +
               ",date_add('2008-04-01',interval " + std::to_string(each % 365) + " day)," +
               std::to_string(each % 150 + line) + ",1," + (line % 2 == 0 ? "-" : "") +
               "125.25,'Voucher " + std::to_string(each) + "')";
      }
    }
    database.execute(sql);
  }
  OpenJournal journal(year);
  if (journal.form().vsf.rows() != vouchers * 5) state.SkipWithError("vouchers are missing");
  compare(state, {.run = [&] { journal.form().LOADGRID(); }});
  database.execute("delete from " + table);
}

BENCHMARK(voucherList)
    ->ArgName("vouchers")
    ->Arg(1'000)
    ->Arg(10'000)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillet::bench
