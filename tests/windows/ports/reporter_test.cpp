// The ten arguments of WriteToReport, and the closing stock's form.
#include <gtest/gtest.h>

#include "data/errors.h"
#include "ports/recorder.h"
#include "ports/suite.h"
#include "windows/com/array.h"
#include "windows/com/text.h"
#include "windows/host/late_reporter.h"
#include "windows/host/late_stock.h"

namespace quillet::fakes {
namespace {

using Texts = std::vector<std::string>;

// An object served for as long as a test runs.
class Served {
 public:
  Served(std::string progId, IDispatch* object) : progId_(std::move(progId)) {
    serve(progId_, object);
  }
  ~Served() { serve(progId_, nullptr); }
  Served(const Served&) = delete;
  Served& operator=(const Served&) = delete;

 private:
  std::string progId_;
};

struct ReportArguments {
  Texts values{"1",
               "B\xC3\xA4"
               "cker"};
  std::vector<Align> alignments{Align::right, Align::center};
  std::vector<long> widths{0, 40'000};
  Texts before{"",
               "\x1B"
               "E"};
  Texts after{"",
              "\x1B"
              "F"};
  bool heading = true;
  std::string rules = "11";
  std::string emphasis = "00";
  std::string last = "01";
  std::string printed = "10";

  void write(Reporter& reporter) {
    reporter.WriteToReport(values, alignments, widths, before, after, heading, rules, emphasis,
                           last, printed);
  }
};

// Writes into all ten: other elements, another array, another text.
Variant writeInto(const Call& call) {
  const windows::ArrayView<VARIANT> values(*call[0].pparray);
  VariantClear(&values[0]);
  Variant(2.5).moveTo(&values[0]);
  windows::ArrayView<SHORT>(*call[1].pparray)[0] = 0;
  windows::ArrayView<LONG>(*call[2].pparray)[1] = -1;
  windows::Array shorter(VT_BSTR, {{1, 7}});
  windows::fill(shorter, {"new"});
  Variant given = shorter.release();
  SafeArrayDestroy(std::exchange(*call[3].pparray, given.parray));
  given.vt = VT_EMPTY;
  *call[5].pboolVal = VARIANT_FALSE;
  for (std::size_t i = 6; i < 10; ++i) {
    SysFreeString(std::exchange(*call[i].pbstrVal, windows::newBstr("m" + std::to_string(i))));
  }
  return {};
}

TEST(Report, PassesTenArgumentsByReferenceAndTakesThemBack) {
  const auto reporter = Pointer<Recorder>::attach(new Recorder);
  reporter->addValue("WinModeReport", Variant());
  for (const char* member : {"NewReport", "printtext", "CreateTable", "ShowReport"}) {
    reporter->answers(member, {});
  }
  reporter->add("WriteToReport", writeInto);
  const Served served("PrjOrvoReporter.ClsMain", reporter.get());
  windows::LateReporter late;
  late.WinModeReport(true);
  late.NewReport();
  late.printtext("Trial Balance");
  late.CreateTable(1, 5);
  ReportArguments row;
  row.write(late);
  late.ShowReport();
  const Texts expected{
      "WinModeReport = Boolean 1",
      "NewReport()",
      "printtext(String 'Trial Balance')",
      "CreateTable(Long 1, Long 5)",
      "WriteToReport(ref Array of Variant from 1 [ '1', 'B\xC3\xA4"
      "cker' ], ref Array of Integer from 1 [ 1, 2 ], ref Array of Long from 1 [ 0, 40000 ], "
      "ref Array of String from 1 [ '', '\x1B"
      "E' ], ref Array of String from 1 [ '', '\x1B"
      "F' ], ref Boolean 1, ref String '11', ref String '00', ref String '01', ref String '10')",
      "ShowReport()"};
  EXPECT_EQ(reporter->calls, expected);
  EXPECT_EQ(row.values.front(), "2.5");
  EXPECT_EQ(row.alignments.front(), Align::left);
  EXPECT_EQ(row.widths.back(), -1);
  EXPECT_EQ(row.before, Texts{"new"});
  EXPECT_EQ(row.after.size(), 2U);
  EXPECT_FALSE(row.heading);
  EXPECT_EQ((Texts{row.rules, row.emphasis, row.last, row.printed}),
            (Texts{"m6", "m7", "m8", "m9"}));
}

TEST(Stock, ShowsTheFormOfTheHostUntilItIsClosed) {
  Suite suite;
  const auto form = Pointer<Recorder>::attach(new Recorder);
  bool loaded = false;
  form->add("LoadData", [&](const Call& call) {
    loaded = call[0].pdispVal == suite.service().host().get().get();
    return Variant();
  });
  form->answers("Show", {});
  const Served served("PrjMoxRep.Forms", holding("ObjTrade", form.get()).get());

  bool disabled = false;
  windows::LateStock stock([&](const std::function<void()>& show) {
    disabled = true;
    show();
    disabled = false;
  });
  int closed = 0;
  form->add("Show", [&](const Call&) {
    EXPECT_TRUE(disabled);
    EXPECT_EQ(closed, 0) << "it is open yet";
    return Variant();
  });
  StockForm& shown = stock.ObjTrade();
  shown.LoadData(suite.service(), "C1", "TRADE_1");
  shown.Show(1, [&] { ++closed; });
  EXPECT_TRUE(loaded);
  EXPECT_EQ(closed, 1);
  EXPECT_EQ(form->calls,
            (Texts{"LoadData(Object, String 'C1', String 'TRADE_1')", "Show(Long 1)"}));

  form->add("Show", [&](const Call&) -> Variant { throw RunTimeError(400, "Shown", "Forms"); });
  EXPECT_THROW(shown.Show(1, [&] { ++closed; }), RunTimeError);
  EXPECT_EQ(closed, 1) << "it was never open";
}

}  // namespace
}  // namespace quillet::fakes
