// Start-up of the component in its host's process, and who may call it.
#include <gtest/gtest.h>
#include <ole2.h>
#include <quillet_com.h>

#include <thread>

#include "component/host.h"
#include "data/errors.h"
#include "windows/com/text.h"

namespace quillet::fakes {
namespace {

using windows::Late;

long errorOf(const std::function<void()>& body) {
  try {
    body();
    return 0;
  } catch (const RunTimeError& error) {
    return error.number();
  }
}

TEST(Start, failsWithoutTheServiceObjectOrTheReporterAndSucceedsOnceTheyAreThere) {
  onHostThread([] {
    for (const char* missing : {"TalBase.ClsMain", "PrjOrvoReporter.ClsMain"}) {
      const Host host({missing});
      EXPECT_EQ(errorOf([] { newForms(); }), 429) << missing;
      EXPECT_EQ(errorOf([] { newForms(); }), 429) << missing << ", again";
    }
    Host host;
    EXPECT_EQ(windows::asText(newForms().call("MyDllVersion")), "2.26.2");
    EXPECT_EQ(host.suite().calls.front(), "CheckDllsVersion(Boolean 1)");
  });
}

struct Version {
  const char* what;
  std::function<void(Recorder&)> answer;
  const char* message;
};

TEST(Start, tellsOfALibraryOfAnotherVersionOnceAndGoesOn) {
  const Version cases[] = {
      {"does not know the call", [](Recorder& suite) { suite.forget("CheckDllsVersion"); }, ""},
      {"fails in the call",
       [](Recorder& suite) {
         suite.add("CheckDllsVersion",
                   [](const Call&) -> Variant { throw RunTimeError(5, "no", "TalBase"); });
       },
       ""},
      {"is of another version",
       [](Recorder& suite) { suite.answers("CheckDllsVersion", Variant(false)); },
       "File [TalBase.dll] is not compatible. Please update the latest software properly."},
  };
  for (const Version& each : cases) {
    SCOPED_TRACE(each.what);
    onHostThread([&] {
      Host host;
      each.answer(host.suite());
      const MessageBoxReader reader;
      const Late forms = newForms();
      EXPECT_EQ(reader.text(), each.message);
      EXPECT_TRUE(forms.object("ObjThird"));
      newForms();
      EXPECT_EQ(reader.text(), each.message);
    });
  }
}

// Hosts that bind early call by the position in the table of functions.
TEST(Start, hasItsMembersInTheirSlots) {
  onHostThread([] {
    Host host;
    const Late forms = newForms();
    Pointer<_Forms> early = forms.get().query<_Forms>();
    ASSERT_TRUE(early);
    void** const slots = *reinterpret_cast<void***>(early.get());
    const auto get = [&](int slot, void* answer) {
      return reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(void*, void*)>(slots[slot])(early.get(),
                                                                                      answer);
    };
    const auto put = [&](int slot, const char* text) {
      BSTR value = windows::newBstr(text);
      reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(void*, BSTR)>(slots[slot])(early.get(), value);
      SysFreeString(value);
    };
    BSTR version = nullptr;
    EXPECT_EQ(get(7, &version), S_OK);
    EXPECT_EQ(windows::fromBstr(version), "2.26.2");
    SysFreeString(version);
    put(10, "CLIENT-10");
    put(11, "TAB_SLOT11");
    put(12, "01042008");
    put(13, "31032009");
    Pointer<IDispatch> editor, home;
    EXPECT_EQ(get(8, editor.put()), S_OK);
    EXPECT_EQ(get(9, home.put()), S_OK);
    EXPECT_EQ(windows::asText(Late(editor, "editor").call("Name")), "frmcrtb");
    EXPECT_EQ(windows::asText(Late(home, "home").call("Name")), "third");
    Late(editor, "editor").call("Show");
    EXPECT_NE(host.statements().find("TAB_SLOT11"), std::string::npos);
    EXPECT_NE(host.statements().find("CLIENT-10"), std::string::npos) << host.statements();
    Late(editor, "editor").call("Hide");
  });
}

TEST(Start, refusesCallsFromAnotherApartment) {
  onHostThread([] {
    Host host;
    const Late forms = newForms();
    const Pointer<_Forms> early = forms.get().query<_Forms>();
    const Late home = forms.object("ObjThird");
    for (const DWORD apartment : {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED}) {
      std::thread([&] {
        CoInitializeEx(nullptr, apartment);
        IDispatch* form = nullptr;
        EXPECT_EQ(early->get_ObjThird(&form), RPC_E_WRONG_THREAD);
        EXPECT_EQ(early->put_VClCode(nullptr), RPC_E_WRONG_THREAD);
        EXPECT_EQ(form, nullptr);
        LPOLESTR name = const_cast<LPOLESTR>(L"Show");
        DISPID id = 0;
        EXPECT_EQ(home.get()->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), RPC_E_WRONG_THREAD);
        DISPPARAMS none{};
        EXPECT_EQ(
            home.get()->Invoke(2, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
            RPC_E_WRONG_THREAD);
        if (apartment == COINIT_APARTMENTTHREADED) {
          EXPECT_NE(errorOf([] { newForms(); }), 0);
        }
        CoUninitialize();
      }).join();
    }
    EXPECT_EQ(windows::asText(home.call("Name")), "third") << "its own thread is not disturbed";
  });
}

}  // namespace
}  // namespace quillet::fakes
