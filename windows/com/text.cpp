#include "windows/com/text.h"

namespace quillet::windows {

std::wstring wide(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring units(
      static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)),
      L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, units.data(), static_cast<int>(units.size()));
  return units;
}

std::string utf8(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  std::string bytes(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), size,
                                                                 nullptr, 0, nullptr, nullptr)),
                    '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(), static_cast<int>(bytes.size()),
                      nullptr, nullptr);
  return bytes;
}

std::string fromBstr(BSTR text) {
  return text ? utf8(std::wstring_view(text, SysStringLen(text))) : std::string();
}

BSTR newBstr(std::string_view text) {
  const std::wstring units = wide(text);
  return SysAllocStringLen(units.data(), static_cast<UINT>(units.size()));
}

}  // namespace quillet::windows
