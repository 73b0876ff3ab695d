#include "host/clients.h"

#include "data/text.h"
#include "data/year.h"

namespace quillet {
namespace {

std::string personName(Context& context, const Sql& code) {
  const auto owner = context.query("select f_nm,m_nm,l_nm from owner1 where code='" + code + "'");
  std::string name;
  if (owner->EOF_()) return name;
  for (int part = 0; part < 3; ++part) {
    const std::string word(trimmed(owner->text(part)));
    if (!word.empty()) name += (name.empty() ? "" : " ") + word;
  }
  return name;
}

}  // namespace

std::string clientName(Context& context, const std::string& code) {
  const Sql key = context.host->escaped(code);
  const auto company = context.query("select nm from main_info1 where code_no='" + key + "'");
  const std::string name = company->EOF_() ? std::string() : company->text("nm");
  return name.empty() ? personName(context, key) : name;
}

std::string subjectOf(const std::string& name, const std::string& code, const std::string& firstKey,
                      const std::string& secondKey) {
  return (name.empty() ? code : name + " (" + code + ")") + ", " + shownDate(firstKey) + " - " +
         shownDate(secondKey);
}

}  // namespace quillet
