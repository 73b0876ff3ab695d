// The ledger master on a large practice: 50,000 ledgers, 10,000 of them in use, 400 sets of
// per-year tables that 2,000 client years share.
#include <memory>
#include <stdexcept>

#include "bench/support.h"
#include "masters/frmtbledmas.h"
#include "suite/bulk_insert.h"
#include "suite/queued_dialogs.h"
#include "suite/schema.h"

namespace quillet::bench {
namespace {

using suite::BulkInsert;

constexpr int ledgers = 50'000;
constexpr int ledgersInUse = 10'000;
constexpr int tableSets = 400;
constexpr int clientYears = 2'000;
constexpr int linesOfAYear = 25;
constexpr int linked = 100;
// The serial number of the lines with the linked ledgers, one in each of the first tables.
constexpr int linkedSerial = 1'000'000;

suite::Database& database() { return practice().database(); }

std::string clientOf(int number) { return "LM" + std::to_string(number); }
std::string table(const char* prefix, int number) { return prefix + suite::tableSuffix(number); }

// Created for these measurements and removed after them, so that other benchmarks are not affected.
class LargePractice {
 public:
  LargePractice() : first_(database().query("select max(PartId) from Mast_Part")->integer(0) + 1) {
    makeTables();
    fillMasters();
    for (int number = 1; number <= tableSets; ++number) fillTables(number);
  }
  ~LargePractice() {
    database().execute("delete from master where code_no like 'LM%'");
    database().execute("delete from TempClTbl where CodeNo like 'LM%'");
    database().execute("delete from Mast_Part where PartId>=" + std::to_string(first_));
    for (int number = 1; number <= tableSets; ++number) {
      for (const char* prefix : prefixes) {
        database().execute((number > kept_ ? "drop table " : "delete from ") +
                           table(prefix, number) +
                           (number > kept_ ? "" : " where code_no like 'LM%'"));
      }
    }
  }
  LargePractice(const LargePractice&) = delete;
  LargePractice& operator=(const LargePractice&) = delete;

  // The id of the n-th ledger, from 0; the first is used by every client year, the last hundred
  // once each.
  long ledger(int n) const { return first_ + n; }
  long linkedLedger(int n) const { return ledger(ledgers - linked + n); }

  void restoreLinked() {
    BulkInsert names(database(), "Mast_Part(PartId,Particular)");
    for (int n = 0; n < linked; ++n) {
      names.row(first_ + ledgers - linked + n, "Linked Ledger " + std::to_string(n));
      database().execute("update " + table("TAB_", n + 1) +
                         " set partid=" + std::to_string(linkedLedger(n)) +
                         " where srno=" + std::to_string(linkedSerial));
    }
    names.send();
  }

 private:
  static constexpr const char* prefixes[] = {"TAB_", "JRNL_", "TRADE_"};

  void makeTables() {
    for (int number = static_cast<int>(kept_) + 1; number <= tableSets; ++number) {
      for (const char* prefix : prefixes) {
        database().execute("create table " + table(prefix, number) + " like " + table(prefix, 1));
      }
    }
  }

  void fillMasters() {
    BulkInsert names(database(), "Mast_Part(PartId,Particular)");
    for (int n = 0; n < ledgers; ++n) {
      names.row(first_ + n, "Ledger of the Large Practice " + std::to_string(n * 7919 % ledgers));
    }
    names.send();
    BulkInsert years(database(), "master(code_no,tbl_nm,count,f_yr,s_yr)");
    BulkInsert clients(database(), "TempClTbl(CodeNo,Name)");
    for (int n = 0; n < clientYears; ++n) {
      const int number = n % tableSets + 1;
      years.row(clientOf(n), table("TAB_", number), number, "01042008", "31032009");
      clients.row(clientOf(n), "Client of the Large Practice " + std::to_string(n));
    }
    years.send();
    clients.send();
  }

  void fillTables(int number) {
    BulkInsert lines(database(), table("TAB_", number) + "(srno,code_no,partid,allid,amt,nid)");
    BulkInsert vouchers(database(), table("JRNL_", number) + "(code_no,VID,PartId,AllId,Amount)");
    BulkInsert stock(database(), table("TRADE_", number) + "(code_no,partid,allid,amt)");
    for (int n = number - 1; n < clientYears; n += tableSets) {
      for (int line = 0; line < linesOfAYear; ++line) {
        const int used = line == 0 ? 0 : (n * linesOfAYear + line) * 31 % ledgersInUse;
        lines.row(line + 1, clientOf(n), first_ + used, 27, 100, 1);
      }
      vouchers.row(clientOf(n), 1, first_ + n, 27, 5);
      vouchers.row(clientOf(n), 1, first_ + n + 1, 27, -5);
      stock.row(clientOf(n), first_ + n * 3, 27, 50);
    }
    if (number <= linked) {
      lines.row(linkedSerial, clientOf(number - 1), first_ + ledgers - linked + number - 1, 27, 1,
                1);
    }
    lines.send();
    vouchers.send();
    stock.send();
  }

  long first_;
  long kept_ = practice().service().GetTbCount();
};

std::unique_ptr<LargePractice> large;

void setUp(const benchmark::State& /*state*/) { large = std::make_unique<LargePractice>(); }
void tearDown(const benchmark::State& /*state*/) { large.reset(); }

// --- the operations -----------------------------------------------------------------------------

void ledgerMasterOpen(benchmark::State& state) {
  frmtbledmas form(practice().context());
  compare(state, {.run =
                      [&] {
                        form.show();
                        if (form.vsf.rows() < ledgers) throw std::runtime_error("ledgers missing");
                      },
                  .restore = [&] { form.close(); }});
}

void ledgerMasterMark(benchmark::State& state) {
  frmtbledmas form(practice().context());
  form.LOADGRID(0);
  compare(state, {.run = [&] { form.FILLINUSE(0); }});
}

void ledgerMasterListOfUse(benchmark::State& state) {
  frmtbledmas form(practice().context());
  compare(state, {.run = [&] {
            form.VIEWLISTOFUSE({large->ledger(0)}, false);
            if (form.vsfC.rows() < clientYears) throw std::runtime_error("client years missing");
          }});
}

void tickLinked(frmtbledmas& form) {
  form.LOADGRID(0);
  form.vsf.setCurrent(form.vsf.findId(large->ledger(0)));
  form.CMDLINK_CLICK();
  for (int n = 0; n < linked; ++n) form.vsf.tick(form.vsf.findId(large->linkedLedger(n)), true);
  dynamic_cast<suite::QueuedDialogs&>(practice().context().dialogs).queueAnswer(Answer::Yes);
}

void ledgerMasterLink(benchmark::State& state) {
  frmtbledmas form(practice().context());
  form.show();
  compare(state, {.prepare = [&] { tickLinked(form); },
                  .run = [&] { form.LINKPARTICULARS(); },
                  .restore = [&] { large->restoreLinked(); }});
  form.close();
}

void once(benchmark::internal::Benchmark* benchmark) {
  benchmark->Setup(setUp)->Teardown(tearDown);
  benchmark->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(ledgerMasterOpen)->Apply(once);
BENCHMARK(ledgerMasterMark)->Apply(once);
BENCHMARK(ledgerMasterListOfUse)->Apply(once);
BENCHMARK(ledgerMasterLink)->Apply(once);

}  // namespace
}  // namespace quillet::bench
