#include "masters/mapped_groups.h"

#include <algorithm>
#include <utility>

namespace quillet {
namespace {

// Of the boxes of heads: what leaves a group's head as it is.
constexpr long asItIs = -1;
enum Wanted : long { all, unmapped, withoutSchedule6, withoutIncomeTax };

std::string headCell(const StatutoryHeadList& heads, Scheme scheme, const NamedId& mapped) {
  if (mapped.id == 0) return {};
  const StatutoryHead* head = heads.find(scheme, mapped.id);
  return head ? head->name : mapped.name + " (no such head)";
}

// The shown row that a person goes on with when the current one is hidden; 0 for none.
int neighbour(const Grid& grid) {
  int before = 0;
  for (int row = 1; row <= grid.rows(); ++row) {
    if (grid.rowHidden(row)) continue;
    if (row >= grid.current()) return row;
    before = row;
  }
  return before;
}

}  // namespace

std::vector<std::string> mappingCells(const StatutoryHeadList& heads, const GroupMapping& mapping) {
  return {headCell(heads, Scheme::schedule6, mapping.schedule6),
          headCell(heads, Scheme::incomeTax, mapping.incomeTax), mapping.own ? "Own" : "Common"};
}

void MappedGroups::setColumns() {
  grid_.setColumns({{.heading = "Group", .width = 32, .stretch = true},
                    {.heading = "Under Group", .width = 30},
                    {.heading = "Schedule VI", .width = 20, .stretch = true},
                    {.heading = "Income Tax", .width = 20, .stretch = true},
                    {.heading = "Mapping", .align = Align::center, .width = 11},
                    {.heading = "Tick", .align = Align::center, .width = 5, .tick = true}});
  show_.addItem("All groups", all);
  show_.addItem("Not mapped", unmapped);
  show_.addItem("Without Schedule VI", withoutSchedule6);
  show_.addItem("Without Income Tax", withoutIncomeTax);
  show_.setChosen(1);
}

void MappedGroups::clear() {
  grid_.clearRows();
  grid_.clearSort();
  show_.setChosen(show_.findData(all));
  offer({});
  forgetHeads();
  setMappings({}, {});
}

void MappedGroups::offer(const StatutoryHeadList& heads) {
  heads_ = heads;
  for (const Scheme scheme : schemes) {
    ComboBox& box = scheme == Scheme::schedule6 ? schedule6_ : incomeTax_;
    const long chosen = box.chosen() == 0 ? asItIs : box.chosenData();
    box.clearItems();
    box.addItem("(as it is)", asItIs);
    box.addItem("(none)", 0);
    for (const StatutoryHead& head : heads.heads) {
      if (head.scheme == scheme) box.addItem(head.name, head.id);
    }
    box.setChosen(std::max(box.findData(chosen), box.findData(asItIs)));
  }
}

void MappedGroups::setMappings(GroupMappings shown, GroupMappings own) {
  shown_ = std::move(shown);
  own_ = std::move(own);
}

void MappedGroups::add(long group, const std::string& name, const std::string& under) {
  std::vector<std::string> cells{name, under};
  const auto found = shown_.find(group);
  const GroupMapping mapping = found == shown_.end() ? GroupMapping() : found->second;
  for (std::string& cell : mappingCells(heads_, mapping)) cells.push_back(std::move(cell));
  if (found == shown_.end()) cells[originColumn].clear();
  if (!mapping.own && own_.contains(group)) {
    cells[originColumn] += found == shown_.end() ? "Own" : ", Own";
  }
  grid_.addRow(std::move(cells), group);
}

// --- which groups are shown ---------------------------------------------------------------------

bool MappedGroups::lacks(long group, Scheme scheme) const {
  const auto found = shown_.find(group);
  return found == shown_.end() || !heads_.find(scheme, found->second.head(scheme).id);
}

bool MappedGroups::lacksAny(long group) const {
  return lacks(group, Scheme::schedule6) || lacks(group, Scheme::incomeTax);
}

bool MappedGroups::wanted(long group) const {
  switch (show_.chosenData()) {
    case unmapped:
      return lacksAny(group);
    case withoutSchedule6:
      return lacks(group, Scheme::schedule6);
    case withoutIncomeTax:
      return lacks(group, Scheme::incomeTax);
    default:
      return true;
  }
}

void MappedGroups::filter() {
  for (int row = 1; row <= grid_.rows(); ++row) {
    const bool hidden = !wanted(grid_.rowId(row));
    if (hidden && grid_.ticked(row)) grid_.tick(row, false);
    grid_.setRowHidden(row, hidden);
  }
  const int current = grid_.current();
  if (current != 0 && grid_.rowHidden(current)) grid_.setCurrent(neighbour(grid_));
}

std::string MappedGroups::count() const {
  int shown = 0;
  int lacking = 0;
  for (int row = 1; row <= grid_.rows(); ++row) {
    shown += grid_.rowHidden(row) ? 0 : 1;
    lacking += lacksAny(grid_.rowId(row)) ? 1 : 0;
  }
  const auto ticks = ticked().size();
  return std::to_string(shown) + (shown == 1 ? " group, " : " groups, ") + std::to_string(lacking) +
         " not mapped" + (ticks == 0 ? std::string() : ", " + std::to_string(ticks) + " ticked");
}

// --- what is chosen -----------------------------------------------------------------------------

std::vector<long> MappedGroups::ticked() const {
  std::vector<long> groups;
  for (int row = 1; row <= grid_.rows(); ++row) {
    if (grid_.ticked(row) && !grid_.rowHidden(row)) groups.push_back(grid_.rowId(row));
  }
  return groups;
}

std::vector<long> MappedGroups::chosen() const {
  std::vector<long> groups = ticked();
  if (groups.empty() && grid_.current() != 0) groups.push_back(grid_.currentId());
  return groups;
}

void MappedGroups::tickAll() {
  bool on = false;
  for (int row = 1; row <= grid_.rows(); ++row) on |= !grid_.rowHidden(row) && !grid_.ticked(row);
  for (int row = 1; row <= grid_.rows(); ++row) {
    if (!grid_.rowHidden(row) && grid_.ticked(row) != on) grid_.tick(row, on);
  }
}

void MappedGroups::untick() {
  for (int row = 1; row <= grid_.rows(); ++row) {
    if (grid_.ticked(row)) grid_.tick(row, false);
  }
}

ChosenHeads MappedGroups::heads() const {
  const auto chosen = [](const ComboBox& box) -> std::optional<NamedId> {
    if (box.chosen() == 0 || box.chosenData() == asItIs) return std::nullopt;
    if (box.chosenData() == 0) return NamedId();
    return NamedId{box.chosenData(), box.text()};
  };
  return {.schedule6 = chosen(schedule6_), .incomeTax = chosen(incomeTax_)};
}

void MappedGroups::forgetHeads() {
  for (ComboBox* box : {&schedule6_, &incomeTax_}) box->setChosen(box->findData(asItIs));
}

}  // namespace quillet
