// Which heads of Schedule VI and of the income-tax return the account groups stand under. A row is
// common to all clients or one client's own; the client's own row of a group counts in place of the
// common one, whole, even where it names no head.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "data/names.h"
#include "ports/ports.h"
#include "ports/statutory_heads.h"

namespace quillet {

struct GroupMapping {
  NamedId
      schedule6{};  // 0 and "" for none; the name is the one that the head had when it was mapped
  NamedId incomeTax{};
  bool own = false;  // the client's, not the common one

  NamedId& head(Scheme scheme) { return scheme == Scheme::schedule6 ? schedule6 : incomeTax; }
  const NamedId& head(Scheme scheme) const {
    return scheme == Scheme::schedule6 ? schedule6 : incomeTax;
  }
};
// What a person chose: nothing for a head that stays as it is, one with the number 0 for none.
struct ChosenHeads {
  std::optional<NamedId> schedule6{};
  std::optional<NamedId> incomeTax{};
};
using GroupMappings = std::map<long, GroupMapping>;  // by the ids of the groups

class GroupMapper {
 public:
  // Of the common mapping alone when there is no client.
  explicit GroupMapper(ServiceObject& host, std::string client = {});
  void setClient(std::string client) { client_ = std::move(client); }
  const std::string& client() const { return client_; }

  // Whether mapping changes the common rows, as a practice begins, or those of the client at work.
  // Always the common ones when there is no client.
  bool mapsCommon() const;
  void mapCommon(bool common);

  // What holds for the client: its own rows, and the common ones of the groups that have none.
  GroupMappings effective() const;
  // The common rows alone, the client's own alone.
  GroupMappings common() const;
  GroupMappings own() const;

  // Replaces the row of a group, among the client's own or the common ones as `own` says.
  void save(long group, const GroupMapping& mapping);
  // Gives all the groups what was chosen, over what holds now. A common row that names no head
  // goes; a client's own stays where it hides a common one.
  void map(const std::vector<long>& groups, const ChosenHeads& chosen, bool own);
  // Takes the rows of groups out: the client's own, on which the common ones hold again, or the
  // common ones.
  void clear(const std::vector<long>& groups, bool own);
  // Makes the common rows of these groups the client's own.
  void copyCommon(const std::vector<long>& groups);

 private:
  GroupMappings read(bool common, bool own) const;
  Sql code(bool own) const;
  void remove(long group, bool own);

  ServiceObject& host_;
  std::string client_;
};

// Groups that are gone: the rows of all clients, without a flush.
void removeMappings(ServiceObject& host, const std::vector<long>& groups);

}  // namespace quillet
