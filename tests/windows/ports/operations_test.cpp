// Each operation of the service object by its name, its arguments with their types, and what its
// answer is here.
#include <gtest/gtest.h>

#include <functional>

#include "controls/basic_controls.h"
#include "controls/form.h"
#include "controls/open_forms.h"
#include "fakes/recordset.h"
#include "ports/busy.h"
#include "ports/recorder.h"
#include "ports/suite.h"
#include "windows/host/kept_settings.h"

namespace quillet::fakes {
namespace {

struct Operation {
  const char* call;
  std::function<std::string(ServiceObject&)> ask;
  Variant answer;
  const char* result;
};

std::string text(bool truth) { return truth ? "true" : "false"; }

struct PlainForm : Form {
  using Form::Form;
  LayoutItem layout() override { return {}; }
};

// The operation answers nothing.
template <class Body>
auto silent(Body body) {
  return [body](ServiceObject& host) {
    body(host);
    return std::string();
  };
}

std::string rowsText(const RecordsetPtr& rows) {
  std::string all;
  for (; !rows->EOF_(); rows->MoveNext()) all += rows->text("PartId") + rows->text("Particular");
  return all;
}

Variant someRows() {
  return recordset({"PartId", "Particular"}, {{Variant(7), Variant("RENT")}}).get();
}

std::vector<Operation> operations() {
  static OpenForms openForms;
  static PlainForm form(openForms, "frmtest");
  static Label control(form, "lbltest");
  using S = ServiceObject;
  return {
      {"CheckDllsVersion(Boolean 1)", [](S& s) { return text(s.CheckDllsVersion(true)); }, true,
       "true"},
      {"CheckDllsVersion(Boolean 1)", [](S& s) { return text(s.CheckDllsVersion(true)); }, false,
       "false"},
      {"ConQuery(String 'flush tables')", silent([](S& s) { s.ConQuery("flush tables"); }), {}, ""},
      {"RecordsetQuery(String 'select 1', Object, Long 3, Long 1, Long 1)",
       [](S& s) { return rowsText(s.query("select 1")); }, someRows(), "7RENT"},
      {"RecordsetQuery(String 'select 1', Object, Long 0, Long 3, Long 1, Long 16)",
       [](S& s) {
         return rowsText(s.RecordsetQuery("select 1", s.DbObj(), CursorType::forwardOnly,
                                          LockType::optimistic, 16));
       },
       someRows(), "7RENT"},
      {"TruncVarSQL(String 'O'Brien')", [](S& s) { return s.TruncVarSQL("O'Brien"); }, "O''Brien",
       "O''Brien"},
      {"GETTBNAME(Long 12)", [](S& s) { return s.GETTBNAME(12); }, "0012", "0012"},
      {"GetTbCount()", [](S& s) { return std::to_string(s.GetTbCount()); }, 400.0, "400"},
      {"COMPANY_NAME()", [](S& s) { return s.COMPANY_NAME(); }, "Bäcker & Sons", "Bäcker & Sons"},
      {"ExePath()", [](S& s) { return s.ExePath(); }, "C:\\", "C:"},
      {"DocPath()", [](S& s) { return s.DocPath(); }, "C:\\höst\\docs", "C:\\höst\\docs"},
      {"GetSettingINI(String 'Settings', String 'TBSort', String '1')",
       [](S& s) { return s.GetSettingINI("Settings", "TBSort", "1"); }, 3, "3"},
      {"SaveSettingINI(String 'Settings', String 'ShLed', String '2')",
       silent([](S& s) { s.SaveSettingINI("Settings", "ShLed", "2"); }),
       {},
       ""},
      {"GetMiscOthInf(String 'a', String 'b', String '')",
       [](S& s) { return s.GetMiscOthInf("a", "b", ""); }, Variant::null(), ""},
      {"SetMiscOthInf(String 'a', String 'b', String 'c', String 'C1', String '2008')",
       silent([](S& s) { s.SetMiscOthInf("a", "b", "c", "C1", "2008"); }),
       {},
       ""},
      {"CheckPass(String 'r')", [](S& s) { return text(s.CheckPass("r")); }, -1, "true"},
      {"CheckClpass(String 'C1')", [](S& s) { return text(s.CheckClpass("C1")); }, 0, "false"},
      {"date_prob_handle(String '1/4/08')", [](S& s) { return s.date_prob_handle("1/4/08"); },
       "01/04/2008", "01/04/2008"},
      {"convertdate(String '1/4/08')", [](S& s) { return s.convertdate("1/4/08"); }, "01/04/2008",
       "01/04/2008"},
      {"resize_for_resolution(Object)",
       silent([](S& s) { s.resize_for_resolution(form); }),
       {},
       ""},
      {"Resize_For_ResolutionUC(Object)",
       silent([](S& s) { s.Resize_For_ResolutionUC(control); }),
       {},
       ""},
      {"vScreenRatX()", [](S& s) { return std::to_string(s.vScreenRatX()); }, 1.25, "1.250000"},
      {"vScreenRatY()", [](S& s) { return std::to_string(s.vScreenRatY()); }, "1.5", "1.500000"},
      {"vScreenRatFS()", [](S& s) { return std::to_string(s.vScreenRatFS()); }, 1, "1.000000"},
      {"progress(Boolean 1)", silent([](S& s) { s.progress(true); }), {}, ""},
      {"progress(Boolean 0)", silent([](S& s) { s.progress(false); }), {}, ""},
      {"formatgen(Double -1234.5, String '###0.00')",
       [](S& s) { return s.formatgen(-1234.5, "###0.00"); }, "-1234.50", "-1234.50"},
      {"formatgen(String '2008-04-01', String 'DD/MM/YYYY')",
       [](S& s) { return s.formatgen("2008-04-01", "DD/MM/YYYY"); }, "01/04/2008", "01/04/2008"},
      {"helpid = String '2-2'", silent([](S& s) { s.helpid("2-2"); }), {}, ""},
      {"ShowClListSelection(String 'Firm')",
       silent([](S& s) { s.ShowClListSelection("Firm"); }),
       {},
       ""},
      {"ShowClListSetup()", silent([](S& s) { s.ShowClListSetup(); }), {}, ""},
      {"vLstSelClCode()", [](S& s) { return s.vLstSelClCode(); }, "C1", "C1"},
      {"vLstSelClCode = String 'C2'", silent([](S& s) { s.vLstSelClCode("C2"); }), {}, ""},
      {"GetPart_MastPartId(Long 7)", [](S& s) { return s.GetPart_MastPartId(7); }, "RENT", "RENT"},
      {"GetMax_MastPartId(String 'RENT')",
       [](S& s) { return std::to_string(s.GetMax_MastPartId("RENT")); }, "7", "7"},
      {"GetMax_MastPartId(String 'RENT', Boolean 0)",
       [](S& s) { return std::to_string(s.GetMax_MastPartId("RENT", false)); },
       {},
       "0"},
  };
}

TEST(Operations, AreCalledByNameAndArguments) {
  for (const Operation& operation : operations()) {
    SCOPED_TRACE(operation.call);
    Suite suite;
    const std::string call = operation.call;
    suite.host->answers("DbObj", holding("State", 1));
    suite.host->answers(call.substr(0, call.find_first_of(" (")), operation.answer);
    EXPECT_EQ(operation.ask(suite.service()), operation.result);
    ASSERT_FALSE(suite.host->calls.empty());
    EXPECT_EQ(suite.host->calls.back(), call);
  }
}

// The objects that the service object hands out, and what is asked of them.
struct Part {
  const char* operation;
  std::function<void(ServiceObject&)> ask;
  const char* call;
};

TEST(Operations, HandOutTheHostsOwnObjects) {
  const Part parts[] = {
      {"objProgress", [](auto& s) { s.objProgress().Text1("Exporting"); },
       "Text1 = String 'Exporting'"},
      {"objProgress", [](auto& s) { s.objProgress().Max(20); }, "Max = Long 20"},
      {"objProgress", [](auto& s) { s.objProgress().update_pg(); }, "update_pg()"},
      {"objProgress", [](auto& s) { EXPECT_TRUE(s.objProgress().stopped()); }, "stopped()"},
      {"MainPageObj", [](auto& s) { s.MainPageObj().showClient("C1", "Asha"); },
       "showClient(String 'C1', String 'Asha')"},
      {"PopupMenuObj",
       [](auto& s) {
         EXPECT_EQ(s.PopupMenuObj().choose({"&Alter", "-"}), 2);
       },
       "choose(Array of Variant from 0 [ '&Alter', '-' ])"},
      {"ObjHelp", [](auto& s) { s.ObjHelp().Show(); }, "Show()"},
  };
  for (const Part& part : parts) {
    SCOPED_TRACE(part.call);
    Suite suite;
    const auto object = Pointer<Recorder>::attach(new Recorder);
    const std::string call = part.call;
    object->answers(call.substr(0, call.find_first_of(" (")), 2);
    suite.host->answers(part.operation, object.get());
    part.ask(suite.service());
    ASSERT_FALSE(object->calls.empty());
    EXPECT_EQ(object->calls.back(), call);
  }
}

// A host that knows only what the suite's own components ask of it.
TEST(Operations, BeyondWhatAHostOffersStayAway) {
  Suite suite;
  for (const char* object : {"objProgress", "MainPageObj", "PopupMenuObj"}) {
    suite.host->answers(object, holding("Text1", ""));
  }
  suite.host->add("vLstSelClCode", [](const Call& call) -> Variant {
    if (call.sets()) throw RunTimeError(450, "The value can only be read", "TalBase");
    return "C1";
  });
  for (const bool known : {true, false}) {
    SCOPED_TRACE(known);
    ServiceObject& host = suite.service();
    host.objProgress().Max(3);
    EXPECT_FALSE(host.objProgress().stopped());
    host.MainPageObj().showClient("C1", "Asha");
    EXPECT_EQ(host.PopupMenuObj().choose({"a", "b", "c"}), 3) << "the menu of our own";
    host.vLstSelClCode("C2");
    for (const char* object : {"MainPageObj", "PopupMenuObj", "vLstSelClCode"}) {
      suite.host->forget(object);
    }
  }
}

// Where windows stand is the host's to keep; without one that keeps settings it lasts for the
// session.
TEST(Operations, KeepPlacesWithTheHostOrForTheSession) {
  Suite suite;
  suite.host->answers("GetSettingINI", "640x480+1+2");
  suite.host->answers("SaveSettingINI", {});
  for (const bool keeps : {true, false}) {
    SCOPED_TRACE(keeps);
    const auto service = suite.newService();
    const view::KeptPlaces::Store store = windows::keptSettings(*service);
    for (int time = 0; time < 2; ++time) {
      EXPECT_EQ(store.get("Windows", "third"), keeps ? "640x480+1+2" : "");
    }
    store.set("Windows", "third", "700x500+3+4");
    EXPECT_EQ(store.get("Windows", "third"), "700x500+3+4");
    const std::vector<std::string> calls{
        "GetSettingINI(String 'QuilletWindows', String 'third', String '')",
        "SaveSettingINI(String 'QuilletWindows', String 'third', String '700x500+3+4')"};
    if (keeps) {
      EXPECT_EQ(suite.host->calls, calls);
    }
    for (const char* member : {"GetSettingINI", "SaveSettingINI"}) suite.host->forget(member);
  }
}

// An indicator that fails neither stays nor hides what failed.
TEST(Operations, HideTheProgressWhateverFails) {
  Suite suite;
  suite.host->answers("progress", {});
  suite.host->answers("objProgress", {});
  EXPECT_THROW(Busy(suite.service(), "Loading"), RunTimeError);
  EXPECT_EQ(suite.host->calls.back(), "progress(Boolean 0)");
  suite.host->add("progress", [](const Call& call) -> Variant {
    if (call.integer(0) == 0) throw RunTimeError(91, "No indicator", "TalBase");
    return {};
  });
  { const Busy busy(suite.service()); }
  EXPECT_EQ(suite.host->calls.back(), "progress(Boolean 0)");
}

TEST(Operations, AskALedgersNameOnceInAnAct) {
  Suite suite;
  int asked = 0;
  suite.host->add("GetPart_MastPartId", [&asked](const Call& call) {
    ++asked;
    return Variant("LEDGER " + call.text(0));
  });
  suite.host->answers("ConQuery", {});
  ServiceObject& host = suite.service();
  const struct {
    unsigned long act;
    Sql sent;
    int asked;
  } steps[] = {{1, "", 2},
               {1, "", 2},
               {1, "flush tables", 2},
               {1, "update mast_part set Particular='X' where PartId=1", 4},
               {2, "", 6},
               {0, "", 8},
               {0, "", 10}};
  for (const auto& step : steps) {
    suite.act = step.act;
    if (!step.sent.empty()) host.ConQuery(step.sent);
    EXPECT_EQ(host.GetPart_MastPartId(1), "LEDGER 1");
    EXPECT_EQ(host.GetPart_MastPartId(2), "LEDGER 2");
    EXPECT_EQ(asked, step.asked) << step.act << step.sent.text();
  }
}

}  // namespace
}  // namespace quillet::fakes
