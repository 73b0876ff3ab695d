// The raw-material heads that all clients bind their groups to, the table RawMatGrpM.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "books/year_tables.h"
#include "data/names.h"

namespace quillet {

struct RawMaterialHead {
  long id = 0;
  std::string name;
  long type = 0;  // 1 raw material, 2 finished goods, 3 work in progress, 4 others
};

class RawMaterialHeads {
 public:
  explicit RawMaterialHeads(ServiceObject& host) : host_(host) {}

  // By their ids; an empty master gets the usual heads first.
  std::vector<RawMaterialHead> seeded();
  // Every head, or the one of that id.
  std::vector<RawMaterialHead> heads(long id = 0) const;
  // What stands in the way of the head's name under its type; one with an id is modified. `alike`
  // are those that were listed under the same name and type.
  std::optional<NamedId> taken(const RawMaterialHead& head, const std::vector<long>& alike) const;
  // Whether any year binds the head.
  bool bound(long id, TableNames& missing) const;

  // The flush after a change is the caller's.
  //
  // The new head's id.
  long insert(const RawMaterialHead& head);
  void update(const RawMaterialHead& head);
  void remove(long id);

 private:
  std::vector<RawMaterialHead> read(const Sql& select) const;
  void seed();

  ServiceObject& host_;
};

}  // namespace quillet
