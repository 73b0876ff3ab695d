#include "data/recordset.h"

#include <charconv>

#include "data/errors.h"
#include "data/text.h"

namespace quillet {
namespace {

// Error number of "item not found in this collection".
constexpr long itemNotFound = 3265;

template <class Number>
Number numberIn(std::optional<std::string_view> text) {
  Number number{};
  if (text) std::from_chars(text->data(), text->data() + text->size(), number);
  return number;
}

}  // namespace

int Recordset::column(std::string_view name) const {
  for (int c = 0; c < fieldCount(); ++c) {
    if (equalIgnoringCase(fieldName(c), name)) return c;
  }
  throw RunTimeError(itemNotFound, "The result has no field " + std::string(name) + ".",
                     "Recordset");
}

std::string Recordset::text(int column) const {
  return std::string(field(column).value_or(std::string_view()));
}

double Recordset::number(int column) const { return numberIn<double>(field(column)); }

long Recordset::integer(int column) const { return numberIn<long>(field(column)); }

}  // namespace quillet
