// Values as they cross the border. Conversions know no locale: a point stands before the decimals
// whatever the person's settings say.
#pragma once

#include <ole2.h>

#include <string>

#include "windows/com/pointer.h"

namespace quillet::windows {

// The language that calls and conversions name: it has the point, and every host knows it.
inline constexpr LCID callLocale =
    MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

// A VARIANT that owns what it holds.
class Variant : public VARIANT {
 public:
  Variant() { VariantInit(this); }
  Variant(const Variant& other);
  Variant(Variant&& other) noexcept;
  Variant& operator=(Variant other) noexcept;
  ~Variant() { VariantClear(this); }

  Variant(const std::string& text);
  Variant(const char* text) : Variant(std::string(text)) {}
  Variant(bool truth);
  Variant(int number);
  Variant(long number);
  Variant(double number);
  Variant(IDispatch* object);
  Variant(const Pointer<IDispatch>& object) : Variant(object.get()) {}
  Variant(const void*) = delete;

  // An argument that was left out.
  static Variant missing();
  static Variant null();
  // A copy of a value that somebody else owns; a reference is followed.
  static Variant copyOf(const VARIANT& value);
  // Refers to a variable of the caller, which the callee may change.
  static Variant reference(BSTR& text) { return reference(VT_BSTR, &text); }
  static Variant reference(VARIANT& value) { return reference(VT_VARIANT, &value); }
  static Variant reference(VARTYPE type, void* variable);

  // Hands the value out and is empty afterwards.
  void moveTo(VARIANT* target);
};

// Null, Empty, an argument left out, no object.
bool isNull(const VARIANT& value);

// Each follows a reference and throws a type mismatch (13) where there is no such value. Null and
// Empty are "", 0, false and no object.

// A date is "YYYY-MM-DD", with " hh:mm:ss" when it has a time of day; a truth "1" or "0"; a number
// has no exponent.
std::string asText(const VARIANT& value);
double asNumber(const VARIANT& value);
long asLong(const VARIANT& value);
bool asTruth(const VARIANT& value);
Pointer<IDispatch> asObject(const VARIANT& value);

}  // namespace quillet::windows
