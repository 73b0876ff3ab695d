#include "windows/vtxt/registration_data.h"

#include <quillet_vtxt_com.h>

#include <string>

namespace quillet::windows {
namespace {

// The category of the controls, by which tools list them.
constexpr auto controlCategory = L"Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}";

}  // namespace

ClassEntry vtxtClass() {
  return {CLSID_VTxt,
          L"Quillet.VTxt",
          L"Quillet: validating text box",
          LIBID_QuilletControls,
          L"2.26",
          {{L"Control", {}, {}},
           {L"MiscStatus", {}, L"0"},
           {L"MiscStatus\\1", {}, std::to_wstring(miscStatus)},
           {controlCategory, {}, {}}}};
}

LibraryEntry vtxtLibrary() {
  return {LIBID_QuilletControls,  2, 26, controlsLibrary, L"Quillet controls",
          {{IID__VTxt, L"_VTxt"}}};
}

}  // namespace quillet::windows
