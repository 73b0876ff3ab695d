// Values and errors across the border, both ways.
#include <gtest/gtest.h>
#include <ole2.h>
#include <psapi.h>

#include <new>

#include "ports/recorder.h"
#include "ports/values.h"
#include "windows/com/errors.h"
#include "windows/com/late.h"
#include "windows/com/text.h"

namespace quillet::fakes {
namespace {

using windows::Late;

struct Told {
  long number;
  std::string description;
  std::string source;
  bool operator==(const Told&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Told& told) {
  return out << told.number << " | " << told.description << " | " << told.source;
}

template <class Body>
Told thrown(Body body) {
  try {
    body();
  } catch (const RunTimeError& error) {
    return {error.number(), error.what(), error.source()};
  }
  return {0, "no error", ""};
}

TEST(Conversions, KnowNoLocale) {
  for (const auto& [value, text, number, what] : values()) {
    SCOPED_TRACE(what);
    EXPECT_EQ(windows::asText(value), text);
    VARIANT copy = value;
    EXPECT_EQ(windows::asText(Variant::reference(copy)), text) << "by reference";
    if (number) {
      EXPECT_EQ(windows::asNumber(value), *number);
    } else {
      EXPECT_TRUE(value.vt == VT_R4 || thrown([&] { windows::asNumber(value); }).number == 13);
    }
  }
  EXPECT_TRUE(windows::asTruth(Variant("True")));
  EXPECT_EQ(thrown([] { windows::asTruth(Variant("perhaps")); }).number, 13);
  EXPECT_EQ(thrown([] { windows::asLong(Variant(1e10)); }).number, 6);
  EXPECT_EQ(thrown([] { windows::asObject(Variant("x")); }).number, 13);
  EXPECT_FALSE(windows::asObject(Variant::null()));
}

// Answers each call as a test says.
class Answering : public NamedObject {
 public:
  using Answer = std::function<HRESULT(VARIANT*, EXCEPINFO*)>;
  explicit Answering(Answer answer) : answer_(std::move(answer)) {}
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                      EXCEPINFO* exception, UINT*) override {
    return answer_(result, exception);
  }

 protected:
  std::string spelling(const std::string& name) const override { return name; }
  Variant called(const Call&) override { return {}; }

 private:
  Answer answer_;
};

Late answering(Answering::Answer answer) {
  return {made<Answering>(std::move(answer)), "TalBase.ClsMain"};
}

HRESULT raise(EXCEPINFO* info, WORD code, SCODE scode, const char* description,
              const char* source) {
  info->wCode = code;
  info->scode = scode;
  info->bstrDescription = *description ? windows::newBstr(description) : nullptr;
  info->bstrSource = *source ? windows::newBstr(source) : nullptr;
  return DISP_E_EXCEPTION;
}

constexpr SCODE runTime(long number) {
  return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
}

HRESULT STDAPICALLTYPE fillLater(EXCEPINFO* info) {
  raise(info, 0, runTime(70), "Filled in later", "Host");
  return S_OK;
}

TEST(Errors, OfAHostKeepNumberDescriptionAndSource) {
  const struct {
    Answering::Answer answer;
    Told told;
  } cases[] = {
      {[](VARIANT*, EXCEPINFO* e) { return raise(e, 0, runTime(1064), "Bad SQL", "Driver"); },
       {1064, "Bad SQL", "Driver"}},
      {[](VARIANT*, EXCEPINFO* e) { return raise(e, 1146, 0, "No table", "Driver"); },
       {1146, "No table", "Driver"}},
      {[](VARIANT*, EXCEPINFO* e) {
         return raise(e, 0, static_cast<SCODE>(0x80040E14),
                      "Fehler: Stra\xC3\x9F"
                      "e",
                      "");
       },
       {static_cast<LONG>(0x80040E14),
        "Fehler: Stra\xC3\x9F"
        "e",
        "TalBase.ClsMain.Run"}},
      {[](VARIANT*, EXCEPINFO* e) { return raise(e, 0, runTime(13), "", ""); },
       {13, "Type mismatch", "TalBase.ClsMain.Run"}},
      {[](VARIANT*, EXCEPINFO* e) { return raise(e, 0, runTime(9999), "", ""); },
       {9999, "Automation error 9999", "TalBase.ClsMain.Run"}},
      {[](VARIANT*, EXCEPINFO* e) {
         e->pfnDeferredFillIn = fillLater;
         return DISP_E_EXCEPTION;
       },
       {70, "Filled in later", "Host"}},
      {[](VARIANT*, EXCEPINFO*) { return DISP_E_TYPEMISMATCH; },
       {13, "Type mismatch", "TalBase.ClsMain.Run"}},
      {[](VARIANT*, EXCEPINFO*) { return DISP_E_BADPARAMCOUNT; },
       {450, "Wrong number of arguments or invalid property assignment", "TalBase.ClsMain.Run"}},
      {[](VARIANT*, EXCEPINFO*) { return DISP_E_MEMBERNOTFOUND; },
       {438, "The object does not support this property or method", "TalBase.ClsMain.Run"}},
      {[](VARIANT*, EXCEPINFO*) { return E_OUTOFMEMORY; },
       {7, "Out of memory", "TalBase.ClsMain.Run"}},
  };
  for (const auto& each : cases) {
    const Late host = answering(each.answer);
    EXPECT_EQ(thrown([&] { host.call("Run"); }), each.told);
  }
  EXPECT_EQ(
      thrown([] { Late(holding("Name", ""), "TalBase.ClsMain").call("Nope"); }),
      (Told{438, "The object does not support this property or method", "TalBase.ClsMain.Nope"}));
  EXPECT_EQ(thrown([] { Late({}, "TalBase.ClsMain").put("helpid", 1); }),
            (Told{91, "Object variable not set", "TalBase.ClsMain.helpid"}));
  EXPECT_EQ(thrown([] { Late::create("No.Such"); }),
            (Told{429, "The component cannot create the object: No.Such", "No.Such"}));
}

TEST(Errors, OfOursReachTheCallerWhateverTheyAre) {
  const struct {
    std::function<void()> body;
    HRESULT result;
    const wchar_t* description;
    const wchar_t* source;
  } cases[] = {
      {[] { throw RunTimeError(1064, "Bad SQL", "Driver"); }, runTime(1064), L"Bad SQL", L"Driver"},
      {[] { throw RunTimeError(static_cast<LONG>(0x80040E14), "Bad SQL", ""); },
       static_cast<HRESULT>(0x80040E14), L"Bad SQL", L"PrjQuillet"},
      {[] { throw std::runtime_error("oh"); }, runTime(5), L"oh", L"PrjQuillet"},
      {[] { throw std::bad_alloc(); }, E_OUTOFMEMORY, L"std::bad_alloc", L"PrjQuillet"},
      {[] { throw 3; }, E_UNEXPECTED, L"An unknown exception", L"PrjQuillet"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.result);
    EXPECT_EQ(windows::guarded(IID_IDispatch, each.body), each.result);
    Pointer<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.put()), S_OK);
    Variant description{""};
    Variant source{""};
    SysFreeString(std::exchange(description.bstrVal, nullptr));
    SysFreeString(std::exchange(source.bstrVal, nullptr));
    info->GetDescription(&description.bstrVal);
    info->GetSource(&source.bstrVal);
    EXPECT_STREQ(description.bstrVal, each.description);
    EXPECT_STREQ(source.bstrVal, each.source);

    windows::ExceptionInfo told;
    EXPECT_EQ(windows::guarded(&told, each.body), DISP_E_EXCEPTION);
    EXPECT_EQ(told.scode, each.result);
    EXPECT_STREQ(told.bstrDescription, each.description);
    EXPECT_STREQ(told.bstrSource, each.source);
  }
  EXPECT_EQ(windows::guarded(static_cast<EXCEPINFO*>(nullptr), [] { throw 3; }), DISP_E_EXCEPTION);
  EXPECT_EQ(windows::guarded(IID_IDispatch, [] { return S_FALSE; }), S_FALSE);
}

TEST(Calls, TakeAnAnswerByReference) {
  static BSTR text = SysAllocString(L"0012");
  const Late host = answering([](VARIANT* result, EXCEPINFO*) {
    *result = Variant::reference(text);
    return S_OK;
  });
  const Variant answer = host.call("GETTBNAME", 12);
  SysReAllocString(&text, L"changed");
  EXPECT_EQ(windows::asText(answer), "0012");
}

SIZE_T memoryUsed() {
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.PagefileUsage;
}

TEST(Errors, LeaveNoMemoryBehind) {
  const std::string longText(100'000, 'x');
  const Late host = answering([&](VARIANT*, EXCEPINFO* e) {
    return raise(e, 0, runTime(1064), longText.c_str(), longText.c_str());
  });
  const SIZE_T before = memoryUsed();
  for (int i = 0; i < 500; ++i) EXPECT_EQ(thrown([&] { host.call("Run"); }).number, 1064);
  EXPECT_LT(memoryUsed(), before + 20'000'000) << "500 errors of 400 kB";
}

}  // namespace
}  // namespace quillet::fakes
