// The group master as its form keeps it: the rows of Mast_AllGrp, each under a primary group of
// Mast_Gunder. All clients and years share them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "books/year_tables.h"
#include "data/names.h"

namespace quillet {

struct AccountGroup {
  long id = 0;
  long primaryGroup = 0;
  std::string name;
  std::string user;  // "N" for a predefined group, "Y" for one that a user added
};

class GroupMaster {
 public:
  explicit GroupMaster(ServiceObject& host) : host_(host) {}

  // By their names.
  std::vector<NamedId> primaryGroups() const;
  // Every group, or the one of that id.
  std::vector<AccountGroup> groups(long id = 0) const;
  std::vector<AccountGroup> groupsByName() const;
  bool hasAll(const std::vector<long>& ids) const;
  // What stands in the way of the group's name; one with an id is modified. `alike` are those that
  // were listed under the same name.
  std::optional<NamedId> taken(const AccountGroup& group, const std::vector<long>& alike) const;
  // Above the ids of groups that are gone as well: what still carries one of those must not come
  // under a group that has nothing to do with it.
  long nextId(TableNames& missing) const;

  // The flush after a change is the caller's.
  void insert(const AccountGroup& group);
  void update(const AccountGroup& group);
  void remove(long id);

 private:
  std::vector<AccountGroup> read(const Sql& select) const;

  ServiceObject& host_;
};

}  // namespace quillet
