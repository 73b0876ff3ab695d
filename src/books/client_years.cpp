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

const ClientYears::Year& ClientYears::year(const std::string& code, const std::string& table) {
  const auto [at, isNew] = years_.try_emplace({code, table});
  if (isNew) {
    const auto row = host_.query("Select * From Master Where Code_No=" + host_.quoted(code) +
                                 " and Tbl_Nm=" + host_.quoted(table));
    if (!row->EOF_()) at->second = {row->text("F_YR"), row->text("S_YR")};
  }
  return at->second;
}

}  // namespace quillet
