#include "books/account_groups.h"

namespace quillet {

void AccountGroups::load(ServiceObject& host) {
  clear();
  const auto rows = host.query("select * from mast_allgrp order by allgrp");
  for (; !rows->EOF_(); rows->MoveNext()) {
    const long id = rows->integer("AllId");
    names_.append(rows->text("ALLGRP"), id);
    byId_.emplace(id, rows->text("ALLGRP"));
  }
  names_.sort();
}

void AccountGroups::clear() {
  names_.clear();
  byId_.clear();
}

const std::string& AccountGroups::name(long id) const {
  static const std::string none;
  const auto found = byId_.find(id);
  return found == byId_.end() ? none : found->second;
}

std::vector<long> groupIds(ServiceObject& host, const std::string& name) {
  const auto rows =
      host.query("SELECT ALLID FROM MAST_ALLGRP WHERE ALLGRP='" + host.escaped(name) + "'");
  std::vector<long> ids;
  for (; !rows->EOF_(); rows->MoveNext()) ids.push_back(rows->integer("AllId"));
  return ids;
}

long grandGroupOf(ServiceObject& host, const std::string& name) {
  const auto row =
      host.query("select mast_gunder.ggid from mast_gunder,mast_allgrp where mast_allgrp.allgrp='" +
                 host.escaped(name) + "' and mast_allgrp.gid = mast_gunder.gid");
  return row->EOF_() ? 0 : row->integer("GGID");
}

}  // namespace quillet
