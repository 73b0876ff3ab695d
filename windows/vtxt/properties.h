// The properties that a container and its scripts see, and CHECK_M.
#pragma once

#include <quillet_vtxt_com.h>

#include "windows/vtxt/control_part.h"

namespace quillet::windows {

class Properties final : public ControlPart<_VTxt> {
 public:
  using ControlPart::ControlPart;

  // By name: as the type library says.
  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
  STDMETHODIMP GetTypeInfo(UINT which, LCID locale, ITypeInfo** info) noexcept override;
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) noexcept override;
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* error, UINT* argument) noexcept override;

  STDMETHODIMP get_Text(BSTR* text) noexcept override;
  STDMETHODIMP put_Text(BSTR text) noexcept override;
  STDMETHODIMP get_ValidateData(long* mode) noexcept override;
  STDMETHODIMP put_ValidateData(long mode) noexcept override;
  STDMETHODIMP get_MaxLength(long* characters) noexcept override;
  STDMETHODIMP put_MaxLength(long characters) noexcept override;
  STDMETHODIMP get_MinLength(long* characters) noexcept override;
  STDMETHODIMP put_MinLength(long characters) noexcept override;
  STDMETHODIMP get_Include(BSTR* characters) noexcept override;
  STDMETHODIMP put_Include(BSTR characters) noexcept override;
  STDMETHODIMP get_Exclude(BSTR* characters) noexcept override;
  STDMETHODIMP put_Exclude(BSTR characters) noexcept override;
  STDMETHODIMP CHECK_M(VARIANT_BOOL* passed) noexcept override;

  STDMETHODIMP get_Enabled(VARIANT_BOOL* enabled) noexcept override;
  STDMETHODIMP put_Enabled(VARIANT_BOOL enabled) noexcept override;
  STDMETHODIMP get_Locked(VARIANT_BOOL* locked) noexcept override;
  STDMETHODIMP put_Locked(VARIANT_BOOL locked) noexcept override;
  STDMETHODIMP get_SelStart(long* position) noexcept override;
  STDMETHODIMP put_SelStart(long position) noexcept override;
  STDMETHODIMP get_SelLength(long* characters) noexcept override;
  STDMETHODIMP put_SelLength(long characters) noexcept override;
  STDMETHODIMP get_SelText(BSTR* text) noexcept override;
  STDMETHODIMP put_SelText(BSTR text) noexcept override;
  STDMETHODIMP get_BackColor(OLE_COLOR* colour) noexcept override;
  STDMETHODIMP put_BackColor(OLE_COLOR colour) noexcept override;
  STDMETHODIMP get_ForeColor(OLE_COLOR* colour) noexcept override;
  STDMETHODIMP put_ForeColor(OLE_COLOR colour) noexcept override;
  STDMETHODIMP get_Font(IFontDisp** font) noexcept override;
  STDMETHODIMP put_Font(IFontDisp* font) noexcept override;
  STDMETHODIMP putref_Font(IFontDisp* font) noexcept override;
  STDMETHODIMP get_PasswordChar(BSTR* character) noexcept override;
  STDMETHODIMP put_PasswordChar(BSTR character) noexcept override;
  STDMETHODIMP get_ToolTipText(BSTR* text) noexcept override;
  STDMETHODIMP put_ToolTipText(BSTR text) noexcept override;
  STDMETHODIMP get_hWnd(long* window) noexcept override;

 private:
  template <class Value, class Read>
  HRESULT get(const char* procedure, Value* value, Read read) noexcept;
  template <class Write>
  HRESULT let(const char* procedure, DISPID property, Write write) noexcept;
  // Of the selection, which is no property that a container keeps.
  template <class Write>
  HRESULT select(const char* procedure, Write write) noexcept;
};

}  // namespace quillet::windows
