// Entering a voucher on a real window: what an Enter costs that adds a line, with all that is
// painted. Needs a display, such as Xvfb's.
#include <QKeyEvent>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <numeric>
#include <vector>

#include "bench/support.h"
#include "desktop/application.h"
#include "desktop/form_window.h"
#include "journal/frmjrnl.h"

namespace quillet::bench {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

// Draws what is to be drawn, removes what is to go, and waits for the display.
void finish(desktop::Application& application) {
  application.pump();
  QGuiApplication::sync();
}

void pressEnter(desktop::Application& application, const Form& form) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, Qt::Key_Return, {}, QStringLiteral("\r"));
    QCoreApplication::sendEvent(application.windows().of(form)->focusWidget(), &event);
  }
  finish(application);
}

struct Names {
  std::string ledger, group;
};

struct Times {
  std::vector<double> shown;      // as a person waits
  std::vector<double> processor;  // what the program itself takes of it
};

// The times of the Enters that add the second line to the last.
Times enterLines(frmjrnl& form, const Names& names, desktop::Application& application, int lines) {
  Times times;
  application.windows().perform([&] {
    form.CMDADD_CLICK();
    form.txtdt.setText("15/06/2008");
  });
  for (int line = 0; line + 1 < lines; ++line) {
    application.windows().perform([&] {
      form.txtledger[line].setText(names.ledger);
      form.txtgroup[line].setText(names.group);
      TextBox& amount = (line % 2 == 0 ? form.txtcramt : form.txtdramt)[line];
      form.cboside[line].choose(line % 2 + 1);
      amount.setText("125.25");
      form.focus(amount);
    });
    finish(application);
    const auto start = std::chrono::steady_clock::now();
    const std::clock_t before = std::clock();
    pressEnter(application, form);
    times.processor.push_back(1000.0 * static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC);
    times.shown.push_back(Milliseconds(std::chrono::steady_clock::now() - start).count());
  }
  return times;
}

double median(std::vector<double> times) {
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}

void voucherEntry(benchmark::State& state) {
  if (!std::getenv("DISPLAY") && !std::getenv("QT_QPA_PLATFORM")) {
    return state.SkipWithError("there is no display");
  }
  const int lines = static_cast<int>(state.range(0));
  const BenchYear& year = yearOf(200);
  char name[] = "bench";
  char* arguments[] = {name, nullptr};
  int count = 1;
  desktop::Application application(count, arguments);
  application.follow(practice().context().openForms);
  Forms& forms = practice().forms();
  forms.VClCode(year.code);
  forms.VFATbl(year.table);
  forms.VFDate("01042008");
  forms.VSDate("31032009");
  frmjrnl form(practice().context());
  form.INITDATA(year.table, false);
  // Read before anything is typed: the lists follow what is.
  const Names names{form.VSF3.cell(1, 0), form.VSF4.cell(1, 0)};
  form.show();
  finish(application);
  Times all;
  for (auto _ : state) {
    const Times turn = enterLines(form, names, application, lines);
    all.shown.insert(all.shown.end(), turn.shown.begin(), turn.shown.end());
    all.processor.insert(all.processor.end(), turn.processor.begin(), turn.processor.end());
    state.SetIterationTime(std::accumulate(turn.shown.begin(), turn.shown.end(), 0.0) / 1000);
  }
  if (form.cboside.size() != lines) state.SkipWithError("lines are missing");
  state.counters["enter_ms"] = median(all.shown);
  state.counters["enter_cpu_ms"] = median(all.processor);
  application.leave();
}

BENCHMARK(voucherEntry)
    ->ArgName("lines")
    ->Arg(12)
    ->Arg(40)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillet::bench
