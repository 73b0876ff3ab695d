// What the benchmarks share: a practice of their own, and the comparison of an operation with its
// floor.
//
// The floor of an operation is the bare client sending the very statements that the operation sent,
// one by one in one transaction, and reading every cell of what comes back. Operation and floor
// take turns on the same tables, so that other load on the machine affects both.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

#include "suite/standalone_environment.h"

namespace quillet::bench {

// A practice in a temporary folder, started at the first call and removed at the end.
suite::Practice& practice();
// Ends it; called once by main().
void closePractice();

// The client whose only year, 2008-09, has so many lines; made at the first call. All of them share
// one table.
struct BenchYear {
  std::string code;
  std::string table;
  int lines;
};
const BenchYear& yearOf(int lines);

struct Operation {
  std::function<void()> prepare = {};  // not timed, its statements do not count
  std::function<void()> run;           // through the form, as a person does it
  std::function<void()> restore = {};  // not timed: puts back what was changed
};

// Runs the operation and its floor by turns and reports, as medians over the turns, the counters
// form_ms, floor_ms, ratio and cpu_ratio (the same of processor time). Fails when the operation
// does not send the same statements each time, or when it wrote to the error log.
void compare(benchmark::State& state, const Operation& operation);

// For BENCHMARK(...)->Apply(): years of 200, 2,000 and 20,000 lines, each measured once, since
// compare() takes as many turns as it needs by itself.
void yearSizes(benchmark::internal::Benchmark* benchmark);

}  // namespace quillet::bench
