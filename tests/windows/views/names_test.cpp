// What a screen reader calls the controls of the home form.
#include <gtest/gtest.h>
#include <oleacc.h>
#include <windows.h>

#include <map>

#include "host/forms.h"
#include "screen/small_host.h"
#include "windows/com/pointer.h"
#include "windows/com/text.h"
#include "windows/ui/form_windows.h"

namespace quillet::windows {
namespace {

std::string nameOf(HWND window) {
  Pointer<IAccessible> spoken;
  AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                             spoken.putVoid());
  if (!spoken) return {};
  VARIANT self{};
  self.vt = VT_I4;
  self.lVal = CHILDID_SELF;
  BSTR name = nullptr;
  spoken->get_accName(self, &name);
  const std::string text = fromBstr(name);
  SysFreeString(name);
  return text;
}

using Names = std::multimap<std::string, std::string>;  // by the windows' classes

// The boxes of Wine tell what they hold; Windows goes by the text that stands before them.
std::string labelOf(HWND window) {
  wchar_t text[40]{};
  GetWindowTextW(GetWindow(window, GW_HWNDPREV), text, 40);
  return utf8(text);
}

BOOL CALLBACK note(HWND window, LPARAM result) {
  wchar_t text[40]{};
  GetClassNameW(window, text, 40);
  const std::string kind = utf8(text);
  if (!IsWindowVisible(window) || kind == "Static" || kind == "SysHeader32") return TRUE;
  const std::string name = kind == "ComboBox" ? labelOf(window) : nameOf(window);
  reinterpret_cast<Names*>(result)->emplace(kind, name);
  return TRUE;
}

TEST(Names, AreTheLabelsOrCaptions) {
  FormWindows windows;
  NativeDialogs dialogs(windows);
  NativePopupMenu popup(windows);
  SmallEnvironment environment(dialogs, popup);
  Forms forms(environment);
  windows.follow(forms.context().openForms);
  forms.VClCode("DSK01");
  Form* form = forms.ObjThird();
  ASSERT_NE(form, nullptr);
  windows.perform([&] { form->show(); });
  Names names;
  EnumChildWindows(windows.windowOf(*form), note, reinterpret_cast<LPARAM>(&names));
  windows.leave();
  const Names expected{{"Button", "Create Trial Balance"},
                       {"Button", "Alter/View Trial Balance"},
                       {"Button", "Delete Trial Balance"},
                       {"Button", "Merge Trial Balances"},
                       {"Button", "Alphabetically"},
                       {"Button", "Summarized (Group wise)"},
                       {"Button", "Detailed (Group wise)"},
                       {"Button", "Group Master"},
                       {"Button", "Ledger Master"},
                       {"Button", "Refresh Data"},
                       {"Button", "Help"},
                       {"Button", "Back"},
                       {"Button", "Clients..."},
                       {"Button", "Columns..."},
                       {"ComboBox", "S&tatus"},
                       {"ComboBox", "Gro&up"},
                       {"Edit", "Find"},
                       {"SysListView32", "Clients"}};
  EXPECT_EQ(names, expected);
}

}  // namespace
}  // namespace quillet::windows
