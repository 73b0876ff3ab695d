#include "books/name_check.h"

namespace quillet {

std::optional<NamedId> takenName(ServiceObject& host, const std::string& name, const Sql& select,
                                 const std::vector<long>& alike, const NamedRows& rows) {
  const auto match = [&](const Sql& sql) {
    return bestMatch(*host.query(sql), rows.idField, rows.nameField, name);
  };
  auto found = match(select);
  if (found && sameName(found->name, name)) return found;
  for (const long id : alike) {
    auto stored = match(rows.ofId + sqlNumber(id));
    if (stored && sameName(stored->name, name)) return stored;
  }
  return found;
}

}  // namespace quillet
