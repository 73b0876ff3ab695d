// Exporting a year to a workbook: the whole way through LibreOffice, its start included. There is
// no floor to compare with; what counts is the time for a line.
#include <filesystem>
#include <stdexcept>

#include "bench/editor.h"
#include "bench/support.h"
#include "suite/calc_spreadsheet.h"
#include "suite/queued_dialogs.h"

#ifdef QUILLET_CALC

namespace quillet::bench {
namespace {

namespace fs = std::filesystem;

void exportYear(benchmark::State& state) {
  const BenchYear& year = yearOf(static_cast<int>(state.range(0)));
  const suite::CalcOptions calc{QUILLET_CALC};
  const fs::path program = practice().folder().program();
  if (!suite::TemplateMaker(calc, program / suite::exportTemplate).finish()) {
    state.SkipWithError("LibreOffice made no template");
    return;
  }
  practice().surroundings().useCalc(calc);
  auto& dialogs = dynamic_cast<suite::QueuedDialogs&>(practice().frontEnd().dialogs());
  closeEditor();
  frmcrtb& editor = openEditor(year);
  const fs::path target = program / "exported.xls";
  for (auto _ : state) {
    fs::remove(target);
    dialogs.queueFile(target.string());
    editor.CMDEXPORT_CLICK();
  }
  for (const auto& asked : dialogs.takeMessages()) {
    if (!asked.message.text.starts_with("Data Successfully")) {
      state.SkipWithError(asked.message.text.c_str());
    }
  }
  state.counters["us_per_line"] = benchmark::Counter(
      static_cast<double>(year.lines) * 1e-6,
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  closeEditor();
}

BENCHMARK(exportYear)
    ->ArgName("lines")
    ->Arg(200)
    ->Arg(2'000)
    ->Arg(20'000)
    ->Iterations(3)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillet::bench

#endif
