#include "ports/values.h"

#include <algorithm>
#include <cstring>

#include "windows/com/array.h"

namespace quillet::fakes {
namespace {

using windows::Variant;

// A value of a type that our side never hands out.
template <class T>
Variant of(VARTYPE type, T value) {
  Variant result;
  std::memcpy(&result.byref, &value, sizeof value);
  result.vt = type;
  return result;
}

// Days since 30 December 1899, as the platform counts them.
Variant date(double days) { return of(VT_DATE, days); }

// Ten thousandths.
Variant currency(long long amount) {
  Variant result;
  result.vt = VT_CY;
  result.cyVal.int64 = amount;
  return result;
}

Variant decimal(double amount) {
  Variant result;
  VarDecFromR8(amount, &result.decVal);
  result.vt = VT_DECIMAL;
  return result;
}

Variant bytes(const std::string& text) {
  windows::Array array(VT_UI1, {{text.size()}});
  {
    const windows::ArrayView<char> elements(array.get());
    std::copy(text.begin(), text.end(), elements.begin());
  }
  return array.release();
}

}  // namespace

std::vector<Value> values() {
  return {
      {{}, "", 0, "Empty"},
      {Variant::null(), "", 0, "Null"},
      {Variant::missing(), "", 0, "an argument left out"},
      {"", "", {}, "no text"},
      {"B\xC3\xA4"
       "cker \xF0\x9F\x93\x92",
       "B\xC3\xA4"
       "cker \xF0\x9F\x93\x92",
       {},
       "a text"},
      {"1234.5", "1234.5", 1234.5, "a number as text"},
      {"01/04/2008", "01/04/2008", {}, "a date as text"},
      {true, "1", -1, "True"},
      {false, "0", 0, "False"},
      {-7, "-7", -7, "Long"},
      {of(VT_I2, static_cast<SHORT>(-7)), "-7", -7, "Integer"},
      {of(VT_UI1, static_cast<BYTE>(200)), "200", 200, "Byte"},
      {of(VT_I8, 9'007'199'254'740'993LL), "9007199254740993", 9007199254740993.0, "64 bits"},
      {100000.0, "100000", 100000, "Double without an exponent"},
      {1234.56, "1234.56", 1234.56, "Double"},
      {1e15, "1000000000000000", 1e15, "a large Double"},
      {of(VT_R4, 0.1F), "0.1", {}, "Single"},
      {currency(12'345'600), "1234.56", 1234.56, "Currency"},
      {currency(-5'000), "-0.5", -0.5, "Currency below one"},
      {decimal(1234.5), "1234.5", 1234.5, "Decimal"},
      {date(39539), "2008-04-01", 39539, "a date"},
      {date(39539.75), "2008-04-01 18:00:00", 39539.75, "a date with a time of day"},
      {date(-1.25), "1899-12-29 06:00:00", -1.25, "a date before the first"},
      {bytes("S\xC3\xB6hne"), "S\xC3\xB6hne", {}, "bytes"},
  };
}

}  // namespace quillet::fakes
