// The groups of the mapping page: the heads that each stands under, which of them are shown, which
// are ticked, and the heads that a person chose for them.
#pragma once

#include <string>
#include <vector>

#include "books/group_mapping.h"
#include "controls/choice.h"
#include "controls/grid.h"

namespace quillet {

// How a mapping is shown: the head of Schedule VI, that of the income-tax return, whose row it is.
// A head goes by the name that it has now; one that the list has no more is marked.
std::vector<std::string> mappingCells(const StatutoryHeadList& heads, const GroupMapping& mapping);

class MappedGroups {
 public:
  enum Column {
    nameColumn,
    underColumn,
    schedule6Column,
    incomeTaxColumn,
    originColumn,
    tickColumn
  };

  MappedGroups(Grid& grid, ComboBox& schedule6, ComboBox& incomeTax, ComboBox& show)
      : grid_(grid), schedule6_(schedule6), incomeTax_(incomeTax), show_(show) {}

  void setColumns();
  void clear();
  // The heads to choose from. What is chosen stays as far as it is among them.
  void offer(const StatutoryHeadList& heads);

  // What is shown of the groups that are added from now on, and which have a row of the client's
  // own beside the common one.
  void setMappings(GroupMappings shown, GroupMappings own);
  void add(long group, const std::string& name, const std::string& under);
  // Hides the rows that were not asked for; a hidden row is not ticked.
  void filter();
  // "101 groups, 12 not mapped".
  std::string count() const;

  // The ticked rows, else the current one; the ticked ones alone.
  std::vector<long> chosen() const;
  std::vector<long> ticked() const;
  // Ticks every shown row, or none when all are.
  void tickAll();
  void untick();

  ChosenHeads heads() const;
  void forgetHeads();

 private:
  bool lacks(long group, Scheme scheme) const;
  bool lacksAny(long group) const;
  bool wanted(long group) const;

  Grid& grid_;
  ComboBox& schedule6_;
  ComboBox& incomeTax_;
  ComboBox& show_;
  GroupMappings shown_;
  GroupMappings own_;
  StatutoryHeadList heads_;
};

}  // namespace quillet
