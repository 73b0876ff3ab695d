#include <algorithm>
#include <chrono>
#include <ctime>
#include <fstream>
#include <stdexcept>
#include <vector>

#include "bench/support.h"
#include "data/text.h"
#include "suite/unit_of_work.h"

namespace quillet::bench {
namespace {

using Statements = std::vector<std::string>;

bool returnsRows(const std::string& sql) { return upperCase(sql.substr(0, 6)) == "SELECT"; }

void readEveryCell(Recordset& rows) {
  std::size_t characters = 0;
  for (; !rows.EOF_(); rows.MoveNext())
    for (int column = 0; column < rows.fieldCount(); ++column)
      if (const auto cell = rows.field(column)) characters += cell->size();
  benchmark::DoNotOptimize(characters);
}

// In one transaction, as the operation sends what it changes.
void sendAll(suite::Database& database, const Statements& statements) {
  suite::UnitOfWork unit(database);
  unit.follow([] { return true; });
  for (const std::string& sql : statements) {
    if (returnsRows(sql))
      readEveryCell(*unit.query(sql));
    else
      unit.execute(sql);
  }
  if (const auto takenBack = unit.end()) throw std::runtime_error(takenBack->reason);
}

// As one act, also where a procedure is called without a key or a click.
void run(const Operation& operation) {
  const Act act(practice().context().openForms.acts);
  operation.run();
}

void call(const std::function<void()>& step) {
  if (step) step();
}

Statements statementsOf(const Operation& operation) {
  suite::StatementInterceptor& gate = practice().service().statements();
  call(operation.prepare);
  gate.record(true);
  run(operation);
  Statements statements = gate.take();
  gate.record(false);
  call(operation.restore);
  return statements;
}

// Wall time is what a person waits. Processor time is the better measure on a machine that is busy
// with other things.
struct Sample {
  double wall = 0;
  double processor = 0;
};

template <class Work>
Sample timed(const Work& work) {
  const std::clock_t processor = std::clock();
  const auto wall = std::chrono::steady_clock::now();
  work();
  const std::chrono::duration<double> waited = std::chrono::steady_clock::now() - wall;
  return {waited.count(), static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC};
}

bool errorsLogged() {
  std::ifstream log(practice().folder().program() / "TalLog.log");
  return log.peek() != std::ifstream::traits_type::eof();
}

struct Turn {
  Sample form;
  Sample floor;
};

Turn takeTurn(const Operation& operation, const Statements& statements, bool formFirst) {
  Turn turn;
  for (const bool form : {formFirst, !formFirst}) {
    if (form) {
      call(operation.prepare);
      turn.form = timed([&] { run(operation); });
    } else {
      turn.floor = timed([&] { sendAll(practice().database(), statements); });
    }
    call(operation.restore);
  }
  return turn;
}

// At least fifteen turns and three seconds. A slow operation: at least three turns and half a
// minute.
bool enough(std::size_t turns, std::chrono::duration<double> spent) {
  using namespace std::chrono_literals;
  return (turns >= 15 && spent >= 3s) || (turns >= 3 && spent >= 30s);
}

std::vector<Turn> takeTurns(const Operation& operation, const Statements& statements) {
  std::vector<Turn> turns;
  const auto start = std::chrono::steady_clock::now();
  while (!enough(turns.size(), std::chrono::steady_clock::now() - start))
    turns.push_back(takeTurn(operation, statements, turns.size() % 2 == 0));
  return turns;
}

template <class Value>
double median(const std::vector<Turn>& turns, Value value) {
  std::vector<double> values;
  for (const Turn& turn : turns) values.push_back(value(turn));
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void report(benchmark::State& state, const std::vector<Turn>& turns) {
  const auto counter = [&](const char* name, auto value) {
    state.counters[name] = median(turns, value);
  };
  counter("form_ms", [](const Turn& turn) { return turn.form.wall * 1e3; });
  counter("floor_ms", [](const Turn& turn) { return turn.floor.wall * 1e3; });
  counter("ratio", [](const Turn& turn) { return turn.form.wall / turn.floor.wall; });
  counter("cpu_ratio", [](const Turn& turn) {
    return turn.form.processor / std::max(turn.floor.processor, 1e-6);
  });
  state.counters["turns"] = static_cast<double>(turns.size());
  state.SetIterationTime(state.counters["form_ms"] / 1e3);
}

}  // namespace

void compare(benchmark::State& state, const Operation& operation) {
  statementsOf(operation);  // fills the caches that are filled on a working day, too
  const Statements statements = statementsOf(operation);
  for (auto _ : state) report(state, takeTurns(operation, statements));
  state.counters["statements"] = static_cast<double>(statements.size());
  if (statements.empty()) state.SkipWithError("no statements were sent");
  if (statementsOf(operation) != statements) state.SkipWithError("statements differ between runs");
  if (errorsLogged()) state.SkipWithError("the error log has entries");
}

void yearSizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgName("lines")->Arg(200)->Arg(2'000)->Arg(20'000);
  benchmark->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
}

}  // namespace quillet::bench
