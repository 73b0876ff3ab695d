// Exporting a year to a workbook: the whole way through LibreOffice, its start included. There is
// no floor to compare with; what counts is the time for a line.
#include <chrono>
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
  if (!suite::TemplateMaker(calc, program).finish()) {
    state.SkipWithError("LibreOffice made no templates");
    return;
  }
  practice().environment().useCalc(calc);
  auto& dialogs = dynamic_cast<suite::QueuedDialogs&>(practice().frontEnd().dialogs());
  closeEditor();
  frmcrtb& editor = openEditor(year);
  const fs::path target = program / "exported.xls";
  const auto start = std::chrono::steady_clock::now();
  for (auto _ : state) {
    fs::remove(target);
    dialogs.queueFile(target.string());
    editor.click(editor.cmdexport);
  }
  for (const auto& asked : dialogs.takeMessages()) {
    if (!asked.message.text.starts_with("Data Successfully")) {
      state.SkipWithError(asked.message.text.c_str());
    }
  }
  const std::chrono::duration<double, std::micro> spent = std::chrono::steady_clock::now() - start;
  state.counters["us_per_line"] =
      spent.count() / (static_cast<double>(state.iterations()) * static_cast<double>(year.lines));
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
