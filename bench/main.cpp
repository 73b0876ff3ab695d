#include <benchmark/benchmark.h>

#include "bench/support.h"

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  benchmark::RunSpecifiedBenchmarks();
  quillet::bench::closePractice();
  return 0;
}
