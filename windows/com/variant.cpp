#include "windows/com/variant.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

#include "data/sql.h"
#include "windows/com/array.h"
#include "windows/com/errors.h"
#include "windows/com/text.h"

namespace quillet::windows {
namespace {

Variant changed(const VARIANT& value, VARTYPE type) {
  Variant result;
  const HRESULT hr = VariantChangeTypeEx(&result, const_cast<VARIANT*>(&value), callLocale,
                                         VARIANT_NOUSEROVERRIDE, type);
  if (FAILED(hr)) throw errorOf(hr, "Conversion");
  return result;
}

// As the database writes a date; one that only tells a time of day has no day.
std::string dateText(DATE date) {
  SYSTEMTIME time{};
  if (!VariantTimeToSystemTime(date, &time)) throw errorOf(DISP_E_TYPEMISMATCH, "Conversion");
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%04u-%02u-%02u", time.wYear, time.wMonth, time.wDay);
  std::string result(text.data());
  if (date == std::trunc(date)) return result;
  std::snprintf(text.data(), text.size(), "%02u:%02u:%02u", time.wHour, time.wMinute, time.wSecond);
  return std::fabs(date) < 1 ? text.data() : result + " " + text.data();
}

// A driver may hand out a text as its bytes.
std::string bytesText(SAFEARRAY* bytes) {
  const ArrayView<const char> view(bytes);
  return {view.begin(), view.end()};
}

std::string plainText(const VARIANT& value) {
  switch (value.vt) {
    case VT_BSTR:
      return fromBstr(value.bstrVal);
    case VT_BOOL:
      return value.boolVal == VARIANT_FALSE ? "0" : "1";
    case VT_DATE:
      return dateText(value.date);
    case VT_R8:
      return sqlNumber(value.dblVal).text();
    case VT_R4:
      // By its own few digits, not by those of the nearest double.
      return sqlNumber(asNumber(changed(value, VT_BSTR))).text();
    case VT_ARRAY | VT_UI1:
      return bytesText(value.parray);
    default:
      return fromBstr(changed(value, VT_BSTR).bstrVal);
  }
}

}  // namespace

Variant::Variant(const Variant& other) {
  VariantInit(this);
  const HRESULT hr = VariantCopy(this, const_cast<Variant*>(&other));
  if (FAILED(hr)) throw errorOf(hr, "Variant");
}

Variant::Variant(Variant&& other) noexcept {
  static_cast<VARIANT&>(*this) = other;
  VariantInit(&other);
}

Variant& Variant::operator=(Variant other) noexcept {
  std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
  return *this;
}

Variant::Variant(const std::string& text) {
  vt = VT_BSTR;
  bstrVal = newBstr(text);
}

Variant::Variant(bool truth) {
  vt = VT_BOOL;
  boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(int number) : Variant(static_cast<long>(number)) {}

Variant::Variant(long number) {
  vt = VT_I4;
  lVal = number;
}

Variant::Variant(double number) {
  vt = VT_R8;
  dblVal = number;
}

Variant::Variant(IDispatch* object) {
  vt = VT_DISPATCH;
  pdispVal = object;
  if (object) object->AddRef();
}

Variant Variant::missing() {
  Variant result;
  result.vt = VT_ERROR;
  result.scode = DISP_E_PARAMNOTFOUND;
  return result;
}

Variant Variant::null() {
  Variant result;
  result.vt = VT_NULL;
  return result;
}

Variant Variant::copyOf(const VARIANT& value) {
  Variant result;
  const HRESULT hr = VariantCopyInd(&result, const_cast<VARIANT*>(&value));
  if (FAILED(hr)) throw errorOf(hr, "Variant");
  return result;
}

Variant Variant::reference(VARTYPE type, void* variable) {
  Variant result;
  result.vt = static_cast<VARTYPE>(VT_BYREF | type);
  result.byref = variable;
  return result;
}

void Variant::moveTo(VARIANT* target) {
  if (!target) return;
  *target = *this;
  VariantInit(this);
}

bool isNull(const VARIANT& value) {
  if (value.vt & VT_BYREF) return isNull(Variant::copyOf(value));
  const bool object = value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN;
  return value.vt == VT_EMPTY || value.vt == VT_NULL || (object && !value.punkVal) ||
         (value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND);
}

std::string asText(const VARIANT& value) {
  if (value.vt & VT_BYREF) return asText(Variant::copyOf(value));
  return isNull(value) ? std::string() : plainText(value);
}

double asNumber(const VARIANT& value) { return isNull(value) ? 0 : changed(value, VT_R8).dblVal; }

long asLong(const VARIANT& value) { return isNull(value) ? 0 : changed(value, VT_I4).lVal; }

bool asTruth(const VARIANT& value) {
  return !isNull(value) && changed(value, VT_BOOL).boolVal != VARIANT_FALSE;
}

Pointer<IDispatch> asObject(const VARIANT& value) {
  if (value.vt & VT_BYREF) return asObject(Variant::copyOf(value));
  if (isNull(value)) return {};
  if (value.vt == VT_DISPATCH) return value.pdispVal;
  if (value.vt != VT_UNKNOWN) throw errorOf(DISP_E_TYPEMISMATCH, "Conversion");
  return Pointer<IUnknown>(value.punkVal).query<IDispatch>();
}

}  // namespace quillet::windows
