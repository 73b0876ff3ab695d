// Arrays as they cross the border.
#pragma once

#include <ole2.h>

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include "windows/com/variant.h"

namespace quillet::windows {

// The elements of an array that somebody owns, of however many dimensions, the first dimension
// moving fastest. An array without elements, or no array, is empty. The elements are only looked
// at by their size; the caller knows their type.
class ArrayAccess {
 public:
  ArrayAccess(SAFEARRAY* array, std::size_t elementSize);
  ~ArrayAccess();
  ArrayAccess(const ArrayAccess&) = delete;
  ArrayAccess& operator=(const ArrayAccess&) = delete;

 protected:
  void* data_ = nullptr;
  std::size_t size_ = 0;

 private:
  SAFEARRAY* array_;
};

template <class T>
class ArrayView : private ArrayAccess {
 public:
  explicit ArrayView(SAFEARRAY* array) : ArrayAccess(array, sizeof(T)) {}
  T* begin() const { return static_cast<T*>(data_); }
  T* end() const { return begin() + size_; }
  T& operator[](std::size_t i) const { return begin()[i]; }
  std::size_t size() const { return size_; }
};

// An array of its own.
class Array {
 public:
  struct Dimension {
    std::size_t size;
    LONG first = 0;  // index of its first element
  };
  Array(VARTYPE type, std::initializer_list<Dimension> dimensions);
  ~Array();
  Array(const Array&) = delete;
  Array& operator=(const Array&) = delete;

  SAFEARRAY* get() const { return array_; }
  VARTYPE type() const { return type_; }
  // An argument by reference: the callee may write into it or put another array in its place.
  Variant reference();
  // An argument by value, which takes the array over.
  Variant release();

 private:
  VARTYPE type_;
  SAFEARRAY* array_ = nullptr;
};

// Texts in an array of BSTR or of Variant; `array` has as many elements.
void fill(Array& array, const std::vector<std::string>& texts);
std::vector<std::string> textsIn(const Array& array);

// How many elements a dimension has, counted from 1; 0 when there is no such dimension.
std::size_t lengthOf(SAFEARRAY* array, UINT dimension);

}  // namespace quillet::windows
