// LibreOffice's texts and ours.
#pragma once

#include <rtl/ustring.hxx>
#include <string>

namespace quillet::calc {

inline rtl::OUString fromUtf8(const std::string& text) {
  return rtl::OUString(text.data(), static_cast<sal_Int32>(text.size()), RTL_TEXTENCODING_UTF8);
}

inline std::string toUtf8(const rtl::OUString& text) {
  const rtl::OString bytes = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
  return {bytes.getStr(), static_cast<std::size_t>(bytes.getLength())};
}

}  // namespace quillet::calc
