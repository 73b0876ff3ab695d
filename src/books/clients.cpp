#include "books/clients.h"

#include "data/text.h"
#include "data/year.h"

namespace quillet {
namespace {

std::string personName(ServiceObject& host, const Sql& code) {
  const auto owner = host.query("select f_nm,m_nm,l_nm from owner1 where code='" + code + "'");
  std::string name;
  if (owner->EOF_()) return name;
  for (int part = 0; part < 3; ++part) {
    const std::string word(trimmed(owner->text(part)));
    if (!word.empty()) name += (name.empty() ? "" : " ") + word;
  }
  return name;
}

}  // namespace

std::string clientName(ServiceObject& host, const std::string& code) {
  const Sql key = host.escaped(code);
  const auto company = host.query("select nm from main_info1 where code_no='" + key + "'");
  const std::string name = company->EOF_() ? std::string() : company->text("nm");
  return name.empty() ? personName(host, key) : name;
}

bool isClient(ServiceObject& host, const std::string& code) {
  return !host.query("select code_no from main_info1 where code_no=" + host.quoted(code))->EOF_();
}

std::string goneClientText(const std::string& code, const std::string& codeSince) {
  return "The client " + code +
         (codeSince.empty() ? " was deleted meanwhile, or given another code."
                            : " was given the code " + codeSince + " meanwhile.");
}

std::string subjectOf(const std::string& name, const std::string& code, const std::string& firstKey,
                      const std::string& secondKey) {
  return (name.empty() ? code : name + " (" + code + ")") + ", " + shownDate(firstKey) + " - " +
         shownDate(secondKey);
}

std::string fileSubjectOf(const std::string& name, const std::string& code,
                          const std::string& firstKey) {
  return (name.empty() ? code : name) + " " + shortYearText(yearOf(firstKey));
}

}  // namespace quillet
