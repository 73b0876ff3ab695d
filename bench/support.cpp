#include "bench/support.h"

#include <filesystem>
#include <map>
#include <memory>
#include <random>
#include <vector>

#include "suite/bulk_insert.h"
#include "suite/client_register.h"
#include "suite/clocks.h"
#include "suite/headless_front_end.h"
#include "suite/queued_dialogs.h"
#include "suite/sample/clients.h"
#include "suite/schema.h"
#include "suite/starter_data.h"

namespace quillet::bench {
namespace {

namespace fs = std::filesystem;
using suite::BulkInsert;

fs::path temporaryFolder() {
  return fs::temp_directory_path() / ("quillet-bench-" + std::to_string(std::random_device()()));
}

class Bench {
 public:
  Bench() : folder_(temporaryFolder()) {
    practice_ =
        std::make_unique<suite::Practice>(suite::DataFolder::create(folder_), frontEnd_, clock_);
    suite::installStarterData(practice_->database());
  }
  ~Bench() {
    practice_.reset();
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;

  suite::Practice& practice() { return *practice_; }
  const BenchYear& year(int lines);

 private:
  void fill(const BenchYear& year);

  fs::path folder_;
  suite::QueuedDialogs dialogs_;
  suite::HeadlessFrontEnd frontEnd_{dialogs_};
  suite::SystemClock clock_;
  std::unique_ptr<suite::Practice> practice_;
  std::map<int, BenchYear> years_;
};

std::unique_ptr<Bench>& bench() {
  static std::unique_ptr<Bench> instance = std::make_unique<Bench>();
  return instance;
}

const BenchYear& Bench::year(int lines) {
  const auto [found, isNew] = years_.try_emplace(lines);
  if (isNew) {
    found->second = {"L" + std::to_string(lines), "TAB_" + suite::tableSuffix(1), lines};
    fill(found->second);
  }
  return found->second;
}

// Each line has a ledger of its own; the lines are spread over all groups. All years begin with the
// same ledgers.
void Bench::fill(const BenchYear& year) {
  suite::Database& database = practice_->database();
  suite::Client client;
  client.code = year.code;
  client.name = "Client with " + std::to_string(year.lines) + " Lines";
  suite::addClient(database, client);
  database.execute(
      "insert into master(code_no,f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr) values('" +
      year.code + "','01/04/2008','31/03/2009','" + year.table + "',1,'01042008','31032009')");

  const auto known = database.query("select coalesce(max(PartId),0) from Mast_Part");
  BulkInsert ledgers(database, "Mast_Part(PartId,Particular)");
  for (long id = known->integer(0) + 1; id <= year.lines; ++id)
    ledgers.row(id, suite::sample::customerName("hardware", id % 3'000) + " " + std::to_string(id));
  ledgers.send();

  BulkInsert lines(database, year.table + "(srno,code_no,partid,allid,amt,nid)");
  const auto groups = database.query("select distinct ALLID from Mast_AllGrp order by ALLID");
  std::vector<long> ids;
  for (; !groups->EOF_(); groups->MoveNext()) ids.push_back(groups->integer(0));
  for (int srno = 1; srno <= year.lines; ++srno) {
    const int paise = srno * 7919 % 10'000'000 + 100;
    const bool debit = srno % 2 == 1;
    lines.row(srno, year.code, srno, ids[static_cast<std::size_t>(srno) * 31 % ids.size()],
              BulkInsert::Number{std::to_string(paise / 100) + "." +
                                 std::to_string(paise % 100 / 10) + std::to_string(paise % 10)},
              debit ? 1 : 2);
  }
  lines.send();
  // The server would do this by itself some time after a table has grown.
  database.query("analyze table Mast_Part," + year.table);
}

}  // namespace

suite::Practice& practice() { return bench()->practice(); }

void closePractice() { bench().reset(); }

const BenchYear& yearOf(int lines) { return bench()->year(lines); }

}  // namespace quillet::bench
