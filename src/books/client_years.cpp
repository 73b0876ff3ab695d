#include "books/client_years.h"

namespace quillet {

const std::string& ClientYears::client(const std::string& code) {
  const auto [at, isNew] = clients_.try_emplace(code);
  if (isNew) {
    const auto row = host_.query("Select * From TempClTbl Where CodeNo=" + host_.quoted(code));
    at->second = row->EOF_() ? code : row->text("Name");
  }
  return at->second;
}

const YearKeys& ClientYears::year(const std::string& code, const std::string& table) {
  const auto [at, isNew] = years_.try_emplace({code, table});
  if (isNew) {
    if (const auto year = Registry(host_).yearIn(table, code)) at->second = year->keys;
  }
  return at->second;
}

}  // namespace quillet
