// Rows of the host's recordsets, whatever they offer and whatever stands in them.
#include "fakes/recordset.h"

#include <gtest/gtest.h>

#include "data/errors.h"
#include "ports/recorder.h"
#include "ports/values.h"
#include "windows/host/late_recordset.h"

namespace quillet::fakes {
namespace {

using windows::Late;
using windows::LateRecordset;

Late late(const Pointer<IDispatch>& object) { return {object, "TalBase.ClsMain.RecordsetQuery"}; }

std::string all(Recordset& rows) {
  std::string text;
  for (; !rows.EOF_(); rows.MoveNext()) {
    for (int c = 0; c < rows.fieldCount(); ++c) {
      text += rows.field(c) ? std::string(*rows.field(c)) + "," : "null,";
    }
    text += ";";
  }
  return text;
}

// Passes calls on and counts them.
class CallCounter : public NamedObject {
 public:
  explicit CallCounter(Pointer<IDispatch> object) : object_(std::move(object)) {}
  int calls = 0;
  int names = 0;

  STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* asked, UINT count, LCID locale,
                             DISPID* ids) override {
    ++names;
    return object_->GetIDsOfNames(id, asked, count, locale, ids);
  }
  STDMETHODIMP Invoke(DISPID id, REFIID interfaceId, LCID locale, WORD kind, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* exception, UINT* wrong) override {
    ++calls;
    return object_->Invoke(id, interfaceId, locale, kind, parameters, result, exception, wrong);
  }

 protected:
  std::string spelling(const std::string&) const override { return {}; }
  Variant called(const Call&) override { return {}; }

 private:
  Pointer<IDispatch> object_;
};

const std::vector<Row> threeRows{{1, "CASH", 10.5}, {2, Variant::null(), 20.0}, {3, "", Variant()}};

TEST(Recordsets, GiveTheSameRowsHoweverTheHostHandsThemOut) {
  for (const Offers& offers :
       {Offers{.rowsAtOnce = 0}, Offers{.rowsAtOnce = 1}, Offers{.rowsAtOnce = 2},
        Offers{.rowsAtOnce = 100}, Offers{.rowsAtOnce = 100, .counts = false}}) {
    SCOPED_TRACE(offers.rowsAtOnce);
    const Pointer<IDispatch> given = recordset({"PartId", "Particular", "amt"}, threeRows, offers);
    LateRecordset rows(late(given));
    EXPECT_EQ(rows.RecordCount(), 3);
    EXPECT_FALSE(rows.BOF_());
    EXPECT_EQ(rows.column("PARTICULAR"), 1);
    EXPECT_EQ(all(rows), "1,CASH,10.5,;2,null,20,;3,,null,;");
    EXPECT_THROW(rows.text(0), RunTimeError) << "beyond the last row";
    EXPECT_THROW(late(given).call("EOF"), RunTimeError) << "it is closed";
  }
}

TEST(Recordsets, WithoutRowsAreAtBothEnds) {
  for (const Offers& offers : {Offers{.rowsAtOnce = 0}, Offers{.rowsAtOnce = 100}}) {
    const LateRecordset rows(late(recordset({"max(srno)"}, {}, offers)));
    EXPECT_TRUE(rows.EOF_() && rows.BOF_());
    EXPECT_EQ(rows.fieldCount(), 1);
  }
}

TEST(Recordsets, ReadWhatEveryTypeHolds) {
  for (const auto& [value, text, number, what] : values()) {
    SCOPED_TRACE(what);
    LateRecordset rows(late(recordset({"f"}, {{value}})));
    EXPECT_EQ(rows.text("f"), text);
    EXPECT_EQ(rows.field(0).has_value(), !windows::isNull(value));
  }
  // The value of a field that nobody asks for does no harm.
  LateRecordset rows(late(recordset({"id", "blob"}, {{7, holding("Name", "x").get()}})));
  EXPECT_EQ(rows.integer("id"), 7);
  EXPECT_THROW(rows.text("blob"), RunTimeError);
}

// The calls are what takes time: each crosses into the host.
TEST(Recordsets, OfManyRowsTakeFewCalls) {
  std::vector<Row> many;
  for (int i = 0; i < 20'000; ++i) many.push_back({i, "LEDGER " + std::to_string(i), 100.25});
  const Pointer<IDispatch> given =
      recordset({"srno", "Particular", "amt"}, many, {.rowsAtOnce = 0});
  const auto counter = Pointer<CallCounter>::attach(new CallCounter(given));
  LateRecordset byCell(late(counter.get()));
  EXPECT_LE(counter->calls, 2 * 20'000 + 10) << "EOF and MoveNext, and a few more";
  EXPECT_LE(counter->names, 6) << "a name is asked for once";

  const auto atOnce = Pointer<CallCounter>::attach(
      new CallCounter(recordset({"srno", "Particular", "amt"}, many, {.rowsAtOnce = 100'000})));
  LateRecordset byBlock(late(atOnce.get()));
  EXPECT_LE(atOnce->calls, 10);
  EXPECT_EQ(all(byBlock), all(byCell));
}

TEST(Recordsets, KeepTheErrorOfAReadingThatFails) {
  for (const Offers& offers :
       {Offers{.rowsAtOnce = 0, .failsAt = 1}, Offers{.rowsAtOnce = 1, .failsAt = 1}}) {
    const Pointer<IDispatch> given = recordset({"a", "b", "c"}, threeRows, offers);
    try {
      LateRecordset rows(late(given));
      ADD_FAILURE() << "the second row cannot be read";
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.number(), 2013);
      EXPECT_STREQ(error.what(), "Lost connection during query");
      EXPECT_EQ(error.source(), "Driver");
    }
    EXPECT_THROW(late(given).call("EOF"), RunTimeError) << "it is closed";
  }
}

TEST(Recordsets, AreMissedByName) {
  try {
    const LateRecordset rows(late({}));
    ADD_FAILURE();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), 91);
    EXPECT_EQ(error.source(), "TalBase.ClsMain.RecordsetQuery");
  }
}

}  // namespace
}  // namespace quillet::fakes
