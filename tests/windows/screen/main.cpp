// Shows a form as a person sees it, to look at and to type into: forms_on_screen [third|frmcrtb].
#include <cwchar>

#include "host/forms.h"
#include "small_host.h"
#include "windows/ui/form_windows.h"

int wmain(int count, wchar_t** arguments) {
  using namespace quillet;
  windows::FormWindows windows;
  windows::NativeDialogs dialogs(windows);
  windows::NativePopupMenu popup(windows);
  windows::SmallEnvironment environment(dialogs, popup);
  Forms forms(environment);
  forms.context().openForms.onError = [](const std::string& where, const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", where.c_str(), error.what());
  };
  windows.follow(forms.context().openForms);
  forms.VClCode("DSK01");
  forms.VFATbl("TAB_1");
  forms.VFDate("01042008");
  forms.VSDate("31032009");
  const bool editor = count > 1 && std::wcscmp(arguments[1], L"frmcrtb") == 0;
  Form* form = editor ? forms.ObjCreate() : forms.ObjThird();
  if (!form) return 1;
  windows.perform([&] { form->show(); });
  MSG message{};
  while (!forms.context().openForms.open().empty() && GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  windows.leave();
  std::puts("OK");
  return 0;
}
