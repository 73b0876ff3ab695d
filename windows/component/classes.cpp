#include "windows/component/classes.h"

#include <quillet_com.h>

#include "windows/component/forms_object.h"
#include "windows/vtxt/registration_data.h"
#include "windows/vtxt/vtxt_control.h"

namespace quillet::windows {

const std::vector<CreatableClass>& creatableClasses() {
  static const std::vector<CreatableClass> classes = {
      {{CLSID_Forms,
        L"PrjQuillet.Forms",
        L"Quillet: entry of the module",
        LIBID_PrjQuillet,
        L"2.26",
        {}},
       makeFormsObject},
      {vtxtClass(), VTxtControl::make},
  };
  return classes;
}

const std::vector<LibraryEntry>& typeLibraries() {
  static const std::vector<LibraryEntry> libraries = {
      {LIBID_PrjQuillet, 2, 26, 1, L"Quillet trial balance", {{IID__Forms, L"_Forms"}}},
      vtxtLibrary(),
  };
  return libraries;
}

}  // namespace quillet::windows
