// The account groups of the group master: ids and names, and the primary group that each belongs
// to.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "data/name_list.h"
#include "ports/ports.h"

namespace quillet {

class AccountGroups {
 public:
  // Reads them anew.
  void load(ServiceObject& host);
  void clear();

  // "" for an id that the master does not have.
  const std::string& name(long id) const;
  bool contains(long id) const { return byId_.contains(id); }
  // Ordered as a person reads names.
  const NameList& names() const { return names_; }

 private:
  NameList names_;
  std::unordered_map<long, std::string> byId_;
};

// The groups that the database finds by that name; it takes more names for the same than a person.
std::vector<long> groupIds(ServiceObject& host, const std::string& name);

// The number of the grand group that the group of that name stands in (1 and 4 are debit by nature,
// 2 and 3 credit); 0 when there is no such group.
long grandGroupOf(ServiceObject& host, const std::string& name);

}  // namespace quillet
