// The text box in a container that says what it wishes and keeps its properties.
#include "vtxt/site.h"

#include <gtest/gtest.h>
#include <quillet_vtxt_com.h>

#include "vtxt/container.h"

namespace quillet::fakes {
namespace {

using windows::asText;

Pointer<IUnknown> newControl(IUnknown* outer = nullptr) {
  Pointer<IUnknown> control;
  EXPECT_EQ(
      CoCreateInstance(CLSID_VTxt, outer, CLSCTX_INPROC_SERVER, IID_IUnknown, control.putVoid()),
      S_OK);
  return control;
}

BOOL CALLBACK counted(HWND, LPARAM number) {
  ++*reinterpret_cast<int*>(number);
  return TRUE;
}

Late named(const Pointer<IUnknown>& control) { return {control.query<IDispatch>(), "VTxt"}; }

class VTxtOnSite : public testing::Test {
 protected:
  ~VTxtOnSite() override {
    if (object) object->SetClientSite(nullptr);
  }

  void place() {
    object->SetClientSite(&site);
    verb(OLEIVERB_SHOW);
  }
  HRESULT verb(LONG which) {
    return object->DoVerb(which, nullptr, &site, 0, program.window(), nullptr);
  }
  HWND window() const {
    HWND window = nullptr;
    control.query<IOleInPlaceObject>()->GetWindow(&window);
    return window;
  }
  HWND inner() const { return GetWindow(window(), GW_CHILD); }
  LONG fontHeight() const {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(inner(), WM_GETFONT, 0, 0)), sizeof font,
               &font);
    return font.lfHeight;
  }
  void change(DISPID wish, Variant value) {
    site.wishes[wish] = std::move(value);
    control.query<IOleControl>()->OnAmbientPropertyChange(wish);
  }
  HRESULT offer(WORD code) {
    MSG key{};
    key.hwnd = inner();
    key.message = WM_KEYDOWN;
    key.wParam = code;
    const HRESULT result = control.query<IOleInPlaceActiveObject>()->TranslateAccelerator(&key);
    pump(program.window());
    return result;
  }

  Program program;
  Messages messages;
  Site site{program.window()};
  Pointer<IUnknown> control = newControl();
  Pointer<IOleObject> object = control.query<IOleObject>();
  Late box = named(control);
};

TEST_F(VTxtOnSite, TakesNoInputWhileAFormIsDesigned) {
  site.wishes[DISPID_AMBIENT_USERMODE] = false;
  place();
  verb(OLEIVERB_UIACTIVATE);
  EXPECT_FALSE(IsWindowEnabled(window()));
  type(program.window(), "a");
  EXPECT_EQ(asText(box.call("Text")), "");

  change(DISPID_AMBIENT_USERMODE, true);
  verb(OLEIVERB_UIACTIVATE);
  type(program.window(), "a");
  EXPECT_EQ(asText(box.call("Text")), "A");
}

TEST_F(VTxtOnSite, HasTheContainersFontUntilItGetsItsOwn) {
  const auto fontOf = [](int points) {
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<LPOLESTR>(L"Arial");
    description.cySize.int64 = points * 10000;
    Pointer<IDispatch> font;
    OleCreateFontIndirect(&description, IID_IDispatch, font.putVoid());
    return Variant(font);
  };
  site.wishes[DISPID_AMBIENT_FONT] = fontOf(18);
  place();
  EXPECT_EQ(fontHeight(), -24);
  change(DISPID_AMBIENT_FONT, fontOf(12));
  EXPECT_EQ(fontHeight(), -16);
  box.object("Font").put("Size", 15);
  EXPECT_EQ(fontHeight(), -20);
  change(DISPID_AMBIENT_FONT, fontOf(18));
  EXPECT_EQ(fontHeight(), -20);
}

TEST_F(VTxtOnSite, OffersItsContainerTheKeysThatAreNotItsOwn) {
  site.takesKeys = true;
  place();
  verb(OLEIVERB_UIACTIVATE);
  EXPECT_EQ(offer(VK_F5), S_OK);
  EXPECT_EQ(site.told(), "key 116");
  box.put("MinLength", 1);
  EXPECT_EQ(offer(VK_TAB), S_OK);
  EXPECT_EQ(messages.told(), "Data must be at least of 1 characters\n");
  EXPECT_EQ(site.told(), "");
  box.put("Text", "a");
  EXPECT_EQ(offer(VK_TAB), S_OK);
  EXPECT_EQ(site.told(), "key 9");
  EXPECT_EQ(offer(VK_RETURN), S_OK);
  EXPECT_EQ(site.told(), "key 9");
  site.takesKeys = false;
  EXPECT_EQ(offer(VK_F5), S_FALSE);
}

TEST_F(VTxtOnSite, TellsOfChangesUntilTheyAreSaved) {
  place();
  const auto points = control.query<IConnectionPointContainer>();
  Pointer<IConnectionPoint> point;
  ASSERT_EQ(points->FindConnectionPoint(IID_IPropertyNotifySink, point.put()), S_OK);
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(static_cast<IOleClientSite*>(&site), &cookie), S_OK);
  const auto persisted = control.query<IPersistStreamInit>();
  EXPECT_EQ(persisted->IsDirty(), S_FALSE);
  box.put("ValidateData", 2);
  verb(OLEIVERB_UIACTIVATE);
  type(program.window(), "a");
  EXPECT_EQ(site.told(), "changed 1, changed 0");
  EXPECT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
  EXPECT_EQ(site.told(), "save");
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
  EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION);

  Pointer<IStream> stream;
  CreateStreamOnHGlobal(nullptr, TRUE, stream.put());
  EXPECT_EQ(persisted->Save(stream.get(), TRUE), S_OK);
  EXPECT_EQ(persisted->IsDirty(), S_FALSE);
}

TEST_F(VTxtOnSite, LeavesNoWindowHoweverOftenItIsPlaced) {
  const auto windows = [&] {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), counted, reinterpret_cast<LPARAM>(&count));
    EnumChildWindows(program.window(), counted, reinterpret_cast<LPARAM>(&count));
    return count;
  };
  const int before = windows();
  for (int round = 0; round < 100; ++round) {
    control = newControl();
    object = control.query<IOleObject>();
    named(control).put("ToolTipText", "a tip");
    place();
    verb(OLEIVERB_UIACTIVATE);
    ASSERT_GT(windows(), before);
    object = {};
    control = {};
    ASSERT_EQ(windows(), before);
  }
}

TEST_F(VTxtOnSite, ListsWhereItCanBeHeard) {
  const auto points = control.query<IConnectionPointContainer>();
  Pointer<IEnumConnectionPoints> list;
  ASSERT_EQ(points->EnumConnectionPoints(list.put()), S_OK);
  IConnectionPoint* listed[3] = {};
  ULONG count = 0;
  EXPECT_EQ(list->Next(3, listed, &count), S_FALSE);
  ASSERT_EQ(count, 2U);
  IID iid{};
  EXPECT_EQ(listed[0]->GetConnectionInterface(&iid), S_OK);
  EXPECT_EQ(iid, DIID___VTxt);
  for (ULONG i = 0; i < count; ++i) listed[i]->Release();
  Pointer<IConnectionPoint> none;
  EXPECT_EQ(points->FindConnectionPoint(IID_IStream, none.put()), CONNECT_E_NOCONNECTION);
}

TEST_F(VTxtOnSite, IsOneObjectAlsoWithinAnother) {
  // What aggregates it here is a site, which answers for nothing of the control.
  const auto outer = static_cast<IOleClientSite*>(&site);
  const Pointer<IUnknown> within = newControl(outer);
  const auto dispatch = within.query<IDispatch>();
  ASSERT_TRUE(dispatch);
  EXPECT_EQ(dispatch.query<IUnknown>().get(), outer);
  EXPECT_EQ(control.query<IOleObject>().query<IUnknown>().get(), control.get());
}

TEST_F(VTxtOnSite, DrawsItselfForAContainerThatDoesNotActivateIt) {
  box.put("BackColor", 0x0000ff);
  const HDC surface = CreateCompatibleDC(nullptr);
  const HBITMAP picture = CreateBitmap(60, 20, 1, 32, nullptr);
  const HGDIOBJ before = SelectObject(surface, picture);
  const RECTL bounds{0, 0, 60, 20};
  EXPECT_EQ(control.query<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                                surface, &bounds, nullptr, nullptr, 0),
            S_OK);
  EXPECT_EQ(GetPixel(surface, 40, 10), RGB(255, 0, 0));
  SelectObject(surface, before);
  DeleteObject(picture);
  DeleteDC(surface);
}

// --- what is kept -------------------------------------------------------------------------------

class VTxtKept : public testing::Test {
 protected:
  static std::string propertiesOf(const Pointer<IUnknown>& control) {
    Bag bag;
    EXPECT_EQ(control.query<IPersistPropertyBag>()->Save(&bag, FALSE, TRUE), S_OK);
    return bag.text();
  }
  Pointer<IStream> saved() const {
    Pointer<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, stream.put());
    EXPECT_EQ(control.query<IPersistStreamInit>()->Save(stream.get(), TRUE), S_OK);
    return stream;
  }
  static HRESULT load(const Pointer<IUnknown>& control, const Pointer<IStream>& stream) {
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    return control.query<IPersistStreamInit>()->Load(stream.get());
  }

  const std::string plain = "Exclude= Include= MaxLength=100 MinLength=0 ValidateData=0";
  Pointer<IUnknown> control = newControl();
  Pointer<IUnknown> other = newControl();
};

TEST_F(VTxtKept, ComesBackFromPropertyDataAndStreams) {
  EXPECT_EQ(propertiesOf(control), plain);
  const Late box = named(control);
  box.put("ValidateData", 3);
  box.put("MinLength", 2);
  box.put("Include", "\xE2\x82\xAC=\n");
  Bag bag;
  EXPECT_EQ(control.query<IPersistPropertyBag>()->Save(&bag, TRUE, FALSE), S_OK);
  EXPECT_EQ(bag.text(), "Include=\xE2\x82\xAC=\n MinLength=2 ValidateData=3");
  EXPECT_EQ(other.query<IPersistPropertyBag>()->Load(&bag, nullptr), S_OK);
  EXPECT_EQ(propertiesOf(other), propertiesOf(control));

  const Pointer<IUnknown> third = newControl();
  EXPECT_EQ(load(third, saved()), S_OK);
  EXPECT_EQ(propertiesOf(third), propertiesOf(control));
}

TEST_F(VTxtKept, DamagedDataChangesNothing) {
  named(control).put("Include", "abc");
  const Pointer<IStream> stream = saved();
  STATSTG state{};
  stream->Stat(&state, STATFLAG_NONAME);
  for (auto size = state.cbSize; size.QuadPart > 0;) {
    --size.QuadPart;
    stream->SetSize(size);
    EXPECT_TRUE(FAILED(load(other, stream))) << size.QuadPart;
  }
  const DWORD foreign[] = {0x31547856, 0xffffffff};
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  stream->Write(foreign, sizeof foreign, nullptr);
  EXPECT_TRUE(FAILED(load(other, stream)));

  Bag bag;
  bag.values["MaxLength"] = Variant("many");
  EXPECT_EQ(other.query<IPersistPropertyBag>()->Load(&bag, nullptr), S_OK);
  EXPECT_EQ(propertiesOf(other), plain);
}

TEST_F(VTxtKept, LeavesNothingBehindWhenItIsReleased) {
  const auto canUnload = reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleW(L"PrjQuillet.dll"), "DllCanUnloadNow")));
  ASSERT_TRUE(canUnload);
  EXPECT_EQ(canUnload(), S_FALSE);
  control = {};
  other = {};
  EXPECT_EQ(canUnload(), S_OK);
}

}  // namespace
}  // namespace quillet::fakes
