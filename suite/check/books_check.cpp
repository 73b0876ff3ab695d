#include "suite/check/books_check.h"

#include <algorithm>
#include <exception>
#include <tuple>

#include "data/transaction.h"
#include "suite/check/act_log_rules.h"
#include "suite/check/amounts.h"
#include "suite/check/master_rules.h"
#include "suite/check/masters.h"
#include "suite/check/registered_years.h"
#include "suite/check/year_tables.h"

namespace quillet::suite::check {
namespace {

std::size_t mendableIn(const std::vector<Finding>& findings) {
  return static_cast<std::size_t>(std::ranges::count_if(findings, &Finding::mendable));
}

// What a failure left unposted, which only the running program knows.
void examineUnposted(Practice& practice, const Masters& masters, const RegisteredYears& years,
                     Examined& examined) {
  const UnpostedChanges& unposted = practice.context().unposted;
  for (const ClientTable& books : unposted.books()) {
    for (const LedgerGroup pair : unposted.pairs(books)) {
      examined.add(years.placeIn(books.table, books.client), "unposted",
                   masters.ledger(pair.partId) + " under " + masters.group(pair.allId) + " lacks " +
                       shownBalance(unposted.of(books, pair)) +
                       " of a voucher that a failure left half posted.",
                   "Open the journal of the year, which posts it before anything else.");
    }
  }
}

// Mends what `examine` finds. `figures` are the same afterwards, or nothing is changed.
template <class Examine, class Figures>
void mend(StandaloneEnvironment& environment, const std::string& what, Examine examine,
          Figures figures, Mending& mending) {
  try {
    UnitOfWork& unit = environment.unit();
    Transaction transaction(unit);
    Examined examined;
    examine(examined);
    if (examined.changes.empty()) return;
    const std::string before = figures();
    environment.actLog().note({.command = "Mend the Books"});
    for (const std::string& change : examined.changes) unit.execute(change);
    if (figures() != before) throw std::runtime_error("its sums would not stay as they are");
    transaction.commit();
    mending.mended += mendableIn(examined.findings);
  } catch (const std::exception& error) {
    const std::string why = error.what();
    mending.failed.push_back(what + " stays as it was: " + why + (why.ends_with('.') ? "" : "."));
  }
}

}  // namespace

std::size_t Examination::mendable() const { return mendableIn(findings); }

Examination examineBooks(Practice& practice, const Steps& steps) {
  Database& database = practice.database();
  const Masters masters(database, practice.service());
  const RegisteredYears years(database, practice.service());
  const std::vector<std::string> tables = years.trialBalances();
  const long total = static_cast<long>(tables.size());

  Examined examined;
  examineMasters(database, masters, examined);
  years.examine(examined);
  examineActLog(database, examined);
  examineUnposted(practice, masters, years, examined);
  Examination examination{.findings = {}, .clients = years.clients(), .years = years.years()};
  for (long done = 0; done < total && examination.complete; ++done) {
    YearTables(database, years, masters, tables[static_cast<std::size_t>(done)], false)
        .examine(examined);
    examination.complete = !steps || steps(done + 1, total);
  }
  examination.findings = std::move(examined.findings);
  std::ranges::stable_sort(examination.findings, {}, [](const Finding& finding) {
    return std::tuple(finding.place.client, finding.place.year.second);
  });
  return examination;
}

Mending mendBooks(Practice& practice, const std::function<std::string()>& backup,
                  const Steps& steps) {
  if (!backup) throw std::logic_error("books are not mended without a backup");
  if (practice.context().openForms.acts.running()) {
    throw std::logic_error("books are not mended in the middle of an act");
  }
  Mending mending{.backup = backup(), .mended = 0, .complete = true, .failed = {}};
  Database& database = practice.database();
  StandaloneEnvironment& environment = practice.environment();
  mend(
      environment, "The registry of years",
      [&](Examined& examined) { RegisteredYears(database, practice.service()).examine(examined); },
      [] { return std::string(); }, mending);
  mend(
      environment, "The masters",
      [&](Examined& examined) {
        examineMasters(database, Masters(database, practice.service()), examined);
      },
      [] { return std::string(); }, mending);
  practice.service().executedElsewhere("Mast_Part");

  const Masters masters(database, practice.service());
  const RegisteredYears years(database, practice.service());
  const std::vector<std::string> tables = years.trialBalances();
  long done = 0;
  for (const std::string& table : tables) {
    YearTables books(database, years, masters, table, true);
    mend(
        environment, "The table " + table, [&](Examined& examined) { books.examine(examined); },
        [&] { return books.figures(); }, mending);
    if (steps && !steps(++done, static_cast<long>(tables.size()))) {
      mending.complete = false;
      break;
    }
  }
  return mending;
}

}  // namespace quillet::suite::check
