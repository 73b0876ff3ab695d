// Converts texts and paths to and from LibreOffice's types.
#pragma once

#include <osl/file.hxx>
#include <rtl/ustring.hxx>
#include <stdexcept>
#include <string>

namespace quillet::calc {

inline rtl::OUString fromUtf8(const std::string& text) {
  return rtl::OUString(text.data(), static_cast<sal_Int32>(text.size()), RTL_TEXTENCODING_UTF8);
}

inline std::string toUtf8(const rtl::OUString& text) {
  const rtl::OString bytes = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
  return std::string(bytes.getStr(), bytes.getLength());
}

inline rtl::OUString urlOf(const std::string& path) {
  rtl::OUString url;
  if (osl::FileBase::getFileURLFromSystemPath(fromUtf8(path), url) != osl::FileBase::E_None) {
    throw std::runtime_error("LibreOffice does not take the path " + path);
  }
  return url;
}

}  // namespace quillet::calc
