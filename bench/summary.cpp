// Opening the summary figures of a year.
#include "bench/editor.h"
#include "bench/support.h"

namespace quillet::bench {
namespace {

void summary(benchmark::State& state) {
  const BenchYear& year = yearOf(static_cast<int>(state.range(0)));
  closeEditor();
  frmcrtb& editor = openEditor(year);
  const auto show = [&] { editor.click(editor.mnushsumm); };
  // The turns of the bare client do not change what the editor shows.
  const auto hide = [&] {
    if (editor.famSummary.visible()) editor.click(editor.mnushsumm);
  };
  compare(state, {.run = show, .restore = hide});
  closeEditor();
}

BENCHMARK(summary)->Apply(yearSizes);

}  // namespace
}  // namespace quillet::bench
