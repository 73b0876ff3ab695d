#include "windows/vtxt/properties.h"

#include <olectl.h>

#include "data/text.h"
#include "windows/com/text.h"
#include "windows/component/type_info.h"
#include "windows/ui/message_scope.h"
#include "windows/vtxt/invalid_value.h"
#include "windows/vtxt/registration_data.h"
#include "windows/vtxt/vtxt_control.h"

namespace quillet::windows {
namespace {

// The numbers in the type library of those that have none of their own in COM.
enum Member : DISPID {
  validateData = 1,
  maxLength,
  minLength,
  include,
  exclude,
  locked = 7,
  passwordChar = 11,
  toolTipText
};

std::size_t position(long number) {
  if (number < 0) throw invalidValue();
  return static_cast<std::size_t>(number);
}

VARIANT_BOOL truth(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

}  // namespace

// --- by name ------------------------------------------------------------------------------------

STDMETHODIMP Properties::GetTypeInfoCount(UINT* count) noexcept {
  if (!count) return E_POINTER;
  *count = 1;
  return S_OK;
}

STDMETHODIMP Properties::GetTypeInfo(UINT which, LCID, ITypeInfo** info) noexcept {
  if (!info) return E_POINTER;
  *info = nullptr;
  return which == 0 ? typeInfo(controlsLibrary, IID__VTxt, info) : DISP_E_BADINDEX;
}

STDMETHODIMP Properties::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                       DISPID* ids) noexcept {
  Pointer<ITypeInfo> info;
  const HRESULT result = typeInfo(controlsLibrary, IID__VTxt, info.put());
  return FAILED(result) ? result : info->GetIDsOfNames(names, count, ids);
}

STDMETHODIMP Properties::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                VARIANT* result, EXCEPINFO* error, UINT* argument) noexcept {
  Pointer<ITypeInfo> info;
  const HRESULT found = typeInfo(controlsLibrary, IID__VTxt, info.put());
  if (FAILED(found)) return found;
  return info->Invoke(static_cast<_VTxt*>(this), id, flags, parameters, result, error, argument);
}

// --- members ------------------------------------------------------------------------------------

template <class Value, class Read>
HRESULT Properties::get(const char* procedure, Value* value, Read read) noexcept {
  if (!value) return E_POINTER;
  *value = {};
  control_.logErrors(procedure, [&] { *value = read(); });
  return S_OK;
}

template <class Write>
HRESULT Properties::let(const char* procedure, DISPID property, Write write) noexcept {
  const MessageScope scope;  // a sink may let go of the control
  control_.logErrors(procedure, [&] {
    control_.perform(write);
    control_.changed(property);
  });
  return S_OK;
}

template <class Write>
HRESULT Properties::select(const char* procedure, Write write) noexcept {
  const MessageScope scope;  // a sink may let go of the control
  control_.logErrors(procedure, [&] { control_.perform(write); });
  return S_OK;
}

STDMETHODIMP Properties::get_Text(BSTR* text) noexcept {
  return get("GET TEXT", text, [&] { return newBstr(control_.box().text()); });
}
STDMETHODIMP Properties::put_Text(BSTR text) noexcept {
  return select("LET TEXT", [&] { control_.box().setText(fromBstr(text)); });
}

STDMETHODIMP Properties::get_ValidateData(long* mode) noexcept {
  return get("GET VALIDATEDATA", mode, [&] { return control_.box().ValidateData(); });
}
STDMETHODIMP Properties::put_ValidateData(long mode) noexcept {
  return let("LET VALIDATEDATA", validateData,
             [&] { control_.box().ValidateData(static_cast<int>(mode)); });
}

STDMETHODIMP Properties::get_MaxLength(long* characters) noexcept {
  return get("GET MAXLENGTH", characters, [&] { return control_.box().MaxLength(); });
}
STDMETHODIMP Properties::put_MaxLength(long characters) noexcept {
  return let("LET MAXLENGTH", maxLength,
             [&] { control_.box().MaxLength(static_cast<int>(characters)); });
}

STDMETHODIMP Properties::get_MinLength(long* characters) noexcept {
  return get("GET MINLENGTH", characters, [&] { return control_.box().MinLength(); });
}
STDMETHODIMP Properties::put_MinLength(long characters) noexcept {
  return let("LET MINLENGTH", minLength,
             [&] { control_.box().MinLength(static_cast<int>(characters)); });
}

STDMETHODIMP Properties::get_Include(BSTR* characters) noexcept {
  return get("GET INCLUDE", characters, [&] { return newBstr(control_.box().Include()); });
}
STDMETHODIMP Properties::put_Include(BSTR characters) noexcept {
  return let("LET INCLUDE", include, [&] { control_.box().Include(fromBstr(characters)); });
}

STDMETHODIMP Properties::get_Exclude(BSTR* characters) noexcept {
  return get("GET EXCLUDE", characters, [&] { return newBstr(control_.box().Exclude()); });
}
STDMETHODIMP Properties::put_Exclude(BSTR characters) noexcept {
  return let("LET EXCLUDE", exclude, [&] { control_.box().Exclude(fromBstr(characters)); });
}

STDMETHODIMP Properties::CHECK_M(VARIANT_BOOL* passed) noexcept {
  const MessageScope scope;  // a sink may let go of the control
  return get("CHECK_M", passed, [&] { return truth(control_.box().CHECK_M()); });
}

// --- of the box within --------------------------------------------------------------------------

STDMETHODIMP Properties::get_Enabled(VARIANT_BOOL* enabled) noexcept {
  return get("GET ENABLED", enabled, [&] { return truth(control_.box().enabled()); });
}
STDMETHODIMP Properties::put_Enabled(VARIANT_BOOL enabled) noexcept {
  return let("LET ENABLED", DISPID_ENABLED, [&] {
    control_.box().setEnabled(enabled != VARIANT_FALSE);
    control_.form.repairFocus();
  });
}

STDMETHODIMP Properties::get_Locked(VARIANT_BOOL* locked) noexcept {
  return get("GET LOCKED", locked, [&] { return truth(control_.box().locked()); });
}
STDMETHODIMP Properties::put_Locked(VARIANT_BOOL locked) noexcept {
  return let("LET LOCKED", Member::locked,
             [&] { control_.box().setLocked(locked != VARIANT_FALSE); });
}

STDMETHODIMP Properties::get_SelStart(long* position) noexcept {
  return get("GET SELSTART", position,
             [&] { return static_cast<long>(control_.box().selStart()); });
}
STDMETHODIMP Properties::put_SelStart(long start) noexcept {
  return select("LET SELSTART", [&] { control_.box().select(position(start), 0); });
}

STDMETHODIMP Properties::get_SelLength(long* characters) noexcept {
  return get("GET SELLENGTH", characters,
             [&] { return static_cast<long>(control_.box().selLength()); });
}
STDMETHODIMP Properties::put_SelLength(long characters) noexcept {
  return select("LET SELLENGTH",
                [&] { control_.box().select(control_.box().selStart(), position(characters)); });
}

STDMETHODIMP Properties::get_SelText(BSTR* text) noexcept {
  return get("GET SELTEXT", text, [&] { return newBstr(control_.box().SelText()); });
}
STDMETHODIMP Properties::put_SelText(BSTR text) noexcept {
  return select("LET SELTEXT", [&] { control_.box().SelText(fromBstr(text)); });
}

STDMETHODIMP Properties::get_BackColor(OLE_COLOR* colour) noexcept {
  return get("GET BACKCOLOR", colour, [&] { return control_.appearance.backColor(); });
}
STDMETHODIMP Properties::put_BackColor(OLE_COLOR colour) noexcept {
  return let("LET BACKCOLOR", DISPID_BACKCOLOR, [&] { control_.appearance.setBackColor(colour); });
}

STDMETHODIMP Properties::get_ForeColor(OLE_COLOR* colour) noexcept {
  return get("GET FORECOLOR", colour, [&] { return control_.appearance.foreColor(); });
}
STDMETHODIMP Properties::put_ForeColor(OLE_COLOR colour) noexcept {
  return let("LET FORECOLOR", DISPID_FORECOLOR, [&] { control_.appearance.setForeColor(colour); });
}

STDMETHODIMP Properties::get_Font(IFontDisp** font) noexcept {
  return get("GET FONT", font, [&] { return control_.appearance.font.get().detach(); });
}
STDMETHODIMP Properties::put_Font(IFontDisp* font) noexcept {
  return let("LET FONT", DISPID_FONT, [&] { control_.appearance.font.set(font); });
}
STDMETHODIMP Properties::putref_Font(IFontDisp* font) noexcept { return put_Font(font); }

STDMETHODIMP Properties::get_PasswordChar(BSTR* character) noexcept {
  return get("GET PASSWORDCHAR", character, [&] {
    const wchar_t shown = control_.appearance.passwordChar;
    return SysAllocStringLen(&shown, shown == 0 ? 0 : 1);
  });
}
STDMETHODIMP Properties::put_PasswordChar(BSTR character) noexcept {
  return let("LET PASSWORDCHAR", passwordChar, [&] {
    control_.appearance.passwordChar = SysStringLen(character) == 0 ? L'\0' : character[0];
  });
}

STDMETHODIMP Properties::get_ToolTipText(BSTR* text) noexcept {
  return get("GET TOOLTIPTEXT", text, [&] { return newBstr(control_.box().toolTip()); });
}
STDMETHODIMP Properties::put_ToolTipText(BSTR text) noexcept {
  return let("LET TOOLTIPTEXT", toolTipText, [&] { control_.box().setToolTip(fromBstr(text)); });
}

STDMETHODIMP Properties::get_hWnd(long* window) noexcept {
  return get("GET HWND", window, [&] { return HandleToLong(control_.window.window()); });
}

}  // namespace quillet::windows
