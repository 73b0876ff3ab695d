// Creating a year from the year before, figures included.
#include <stdexcept>

#include "bench/support.h"
#include "home/third.h"
#include "suite/queued_dialogs.h"

namespace quillet::bench {
namespace {

third& home() {
  auto* form = dynamic_cast<third*>(practice().forms().ObjThird());
  if (form == nullptr) throw std::runtime_error("there is no home form");
  form->show();
  return *form;
}

void typeDates(third& form, const std::string& client) {
  form.click(form.mnucreate);
  for (int row = 1; row <= form.ClGrd1.rows(); ++row) {
    if (form.ClGrd1.TextMatrix(row, 0) == client) form.ClGrd1.setCurrent(row);
  }
  form.doubleClick(form.ClGrd1);
  for (const char digit : {'2', '0', '0', '9'}) form.press(static_cast<Key>(digit));
  form.press(keys::Enter);
  auto& dialogs = dynamic_cast<suite::QueuedDialogs&>(practice().frontEnd().dialogs());
  dialogs.clear();
  // The previous year's particulars, and their figures.
  dialogs.queueAnswer(Answer::Yes);
  dialogs.queueAnswer(Answer::Yes);
}

void yearCreate(benchmark::State& state) {
  const BenchYear& year = yearOf(static_cast<int>(state.range(0)));
  suite::Database& database = practice().database();
  const std::string table = "TAB_" + practice().service().GETTBNAME(2);
  const std::string ofClient = " where code_no='" + year.code + "'";
  // The client list is read when the form opens.
  home().close();
  third& form = home();
  compare(state, {.prepare = [&] { typeDates(form, year.code); },
                  .run = [&] { form.press(keys::Enter); },
                  .restore =
                      [&] {
                        database.execute("delete from master" + ofClient + " and count=2");
                        database.execute("delete from " + table + ofClient);
                      }});
  form.close();
}

BENCHMARK(yearCreate)->Apply(yearSizes);

}  // namespace
}  // namespace quillet::bench
