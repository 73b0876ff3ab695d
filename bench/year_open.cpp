// Opening a year in the editor.
#include "bench/editor.h"
#include "bench/support.h"

namespace quillet::bench {
namespace {

void yearOpen(benchmark::State& state) {
  const BenchYear& year = yearOf(static_cast<int>(state.range(0)));
  closeEditor();
  compare(state, {.run = [&] { openEditor(year); }, .restore = closeEditor});
}

BENCHMARK(yearOpen)->Apply(yearSizes);

}  // namespace
}  // namespace quillet::bench
