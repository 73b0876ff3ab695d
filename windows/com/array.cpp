#include "windows/com/array.h"

#include <algorithm>
#include <utility>

#include "windows/com/errors.h"
#include "windows/com/text.h"

namespace quillet::windows {
namespace {

constexpr const char* source = "Array";

}  // namespace

ArrayAccess::ArrayAccess(SAFEARRAY* array, std::size_t elementSize) : array_(array) {
  if (!array_) return;
  if (SafeArrayGetElemsize(array_) != elementSize) throw errorOf(DISP_E_TYPEMISMATCH, source);
  const HRESULT hr = SafeArrayAccessData(array_, &data_);
  if (FAILED(hr)) throw errorOf(hr, source);
  size_ = 1;
  for (UINT d = 1; d <= SafeArrayGetDim(array_); ++d) size_ *= lengthOf(array_, d);
}

ArrayAccess::~ArrayAccess() {
  if (array_) SafeArrayUnaccessData(array_);
}

Array::Array(VARTYPE type, std::initializer_list<Dimension> dimensions) : type_(type) {
  std::vector<SAFEARRAYBOUND> bounds;
  for (const auto& [size, first] : dimensions) {
    bounds.push_back({static_cast<ULONG>(size), first});
  }
  array_ = SafeArrayCreate(type, static_cast<UINT>(bounds.size()), bounds.data());
  if (!array_) throw errorOf(E_OUTOFMEMORY, source);
}

Array::~Array() {
  if (array_) SafeArrayDestroy(array_);
}

Variant Array::reference() {
  return Variant::reference(static_cast<VARTYPE>(VT_ARRAY | type_), &array_);
}

Variant Array::release() {
  Variant result;
  result.vt = static_cast<VARTYPE>(VT_ARRAY | type_);
  result.parray = std::exchange(array_, nullptr);
  return result;
}

void fill(Array& array, const std::vector<std::string>& texts) {
  if (array.type() == VT_BSTR) {
    const ArrayView<BSTR> elements(array.get());
    std::transform(texts.begin(), texts.end(), elements.begin(), newBstr);
    return;
  }
  const ArrayView<VARIANT> elements(array.get());
  for (std::size_t i = 0; i < texts.size(); ++i) Variant(texts[i]).moveTo(&elements[i]);
}

std::vector<std::string> textsIn(const Array& array) {
  std::vector<std::string> texts;
  if (array.type() == VT_BSTR) {
    for (BSTR text : ArrayView<BSTR>(array.get())) texts.push_back(fromBstr(text));
    return texts;
  }
  for (const VARIANT& value : ArrayView<const VARIANT>(array.get())) {
    texts.push_back(asText(value));
  }
  return texts;
}

std::size_t lengthOf(SAFEARRAY* array, UINT dimension) {
  LONG first = 0;
  LONG last = 0;
  if (!array || dimension > SafeArrayGetDim(array)) return 0;
  if (FAILED(SafeArrayGetLBound(array, dimension, &first)) ||
      FAILED(SafeArrayGetUBound(array, dimension, &last))) {
    return 0;
  }
  return last < first ? 0 : static_cast<std::size_t>(last - first) + 1;
}

}  // namespace quillet::windows
