#include "import/sum_tree.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>

namespace quillet {
namespace {

using Name = SumRow::Name;

// Rows that one which nothing speaks for may sum up: more of them equal anything by chance.
constexpr std::size_t mostUntold = 300;
constexpr std::size_t mostPlain = 2000;

// Of a row's amount and what was added up beside it: in both columns, or as a net amount on one
// side.
bool equals(const SumRow& row, const SideTotals& sum, bool net) {
  if (row.sideless) {
    const Money amount = abs(row.amount.difference());
    return amount == sum.debit || amount == sum.credit || amount == abs(sum.difference());
  }
  if (row.amount == sum) return true;
  const bool oneSided = row.amount.debit.isZero() || row.amount.credit.isZero();
  return net && oneSided && row.amount.difference() == sum.difference();
}

bool exceeds(const SideTotals& sum, const SideTotals& amount) {
  return sum.debit > amount.debit || sum.credit > amount.credit;
}

bool takesPart(const SumRow& row) {
  return !row.heading &&
         (!row.fixed || *row.fixed == RowKind::ledger || *row.fixed == RowKind::parent);
}

bool couldBeTotal(const SumRow& row) {
  if (row.fixed) return *row.fixed == RowKind::total;
  return !row.heading && !row.grouped && (row.name == Name::total || row.name == Name::totalWord);
}

// Ends what a sum above can reach.
bool isBarrier(const SumRow& row) {
  return row.heading || !takesPart(row) || (!row.fixed && row.name == Name::total);
}

// --- sums of what follows

struct Node {
  std::size_t row = 0;
  SideTotals amount;
};

class ParentSearch {
 public:
  ParentSearch(const std::vector<SumRow>& rows, SumTree::Parents parents, SumTree& tree)
      : rows_(rows), parents_(parents), tree_(tree) {}

  // From the last row up, so that inner sums are known before outer ones.
  void run() {
    for (std::size_t at = rows_.size(); at-- > 0;) {
      const SumRow& row = rows_[at];
      if (isBarrier(row)) {
        for (; !nodes_.empty(); nodes_.pop_back()) tree_.tops += nodes_.back().amount;
        continue;
      }
      const std::size_t count = childrenOf(at);
      for (std::size_t i = 0; i < count; ++i) {
        tree_.parentOf[nodes_.back().row] = at;
        nodes_.pop_back();
      }
      const bool fixed = row.fixed == RowKind::parent;
      if (count > 0 || fixed) tree_.kinds[at] = RowKind::parent;
      tree_.children[at] = count;
      // A sum that a person named and that sums up nothing counts for nothing.
      if (count > 0 || !fixed) nodes_.push_back({at, row.amount});
    }
    for (const Node& node : nodes_) tree_.tops += node.amount;
  }

 private:
  std::size_t childrenOf(std::size_t at) const {
    const SumRow& row = rows_[at];
    if (row.fixed == RowKind::ledger || row.amount.isZero()) return 0;
    const bool told = row.fixed == RowKind::parent || tellsParent(rows_, at);
    if (row.fixed != RowKind::parent && parents_ == SumTree::Parents::none) return 0;
    if (!told && parents_ < SumTree::Parents::any) return 0;
    const std::size_t fewest = parents_ >= SumTree::Parents::anyEqual ? 1 : 2;
    const bool net = told || parents_ == SumTree::Parents::anyNet;
    const std::size_t most = told ? nodes_.size() : std::min(nodes_.size(), mostUntold);
    // Deeper rows are all of a sum, or it is none.
    const bool deeper = !nodes_.empty() && rows_[nodes_.back().row].indent > row.indent;
    SideTotals sum;
    for (std::size_t count = 1; count <= most; ++count) {
      const Node& node = nodes_[nodes_.size() - count];
      if (rows_[node.row].indent < row.indent) break;
      if (deeper && rows_[node.row].indent <= row.indent) break;
      sum += node.amount;
      const bool last = count == nodes_.size() ||
                        rows_[nodes_[nodes_.size() - count - 1].row].indent <= row.indent;
      if ((!deeper || last) && (told || count >= fewest) && equals(row, sum, net)) return count;
      if (!net && exceeds(sum, row.amount)) break;
    }
    return 0;
  }

  const std::vector<SumRow>& rows_;
  SumTree::Parents parents_;
  SumTree& tree_;
  std::vector<Node> nodes_;  // the nearest row last
};

// --- sums of what stands above

class TotalSearch {
 public:
  TotalSearch(const std::vector<SumRow>& rows, std::optional<std::size_t> grand, bool looseTotals,
              SumTree& tree)
      : rows_(rows), grand_(grand), looseTotals_(looseTotals), tree_(tree) {}

  void run() {
    sums_.push_back({});
    begin(false);
    for (std::size_t at = 0; at < rows_.size(); ++at) {
      const SumRow& row = rows_[at];
      if (row.heading) {
        tree_.kinds[at] = RowKind::heading;
        begin(true);
      } else if (at == grand_) {
        tree_.kinds[at] = RowKind::total;
      } else if (couldBeTotal(row)) {
        readTotal(at);
      } else if (row.fixed && *row.fixed != RowKind::parent && *row.fixed != RowKind::ledger) {
        tree_.kinds[at] = *row.fixed;
      } else if (tree_.kinds[at] == RowKind::ledger) {
        add(row.amount);
      }
    }
    tree_.leaves = sums_.back();
  }

 private:
  struct Beginning {
    std::size_t leaf = 0;
    bool heading = false;
  };

  void begin(bool heading) { beginnings_.push_back({sums_.size() - 1, heading}); }
  void add(const SideTotals& amount) {
    sums_.push_back(sums_.back());
    sums_.back() += amount;
  }
  SideTotals since(std::size_t leaf) const {
    return {sums_.back().debit - sums_[leaf].debit, sums_.back().credit - sums_[leaf].credit};
  }

  // Equal to all rows since a heading; a total's plain name is enough for those since another total
  // or the beginning.
  bool isFirm(const SumRow& row) const {
    const bool surely = row.name == Name::total || row.fixed;
    return std::any_of(beginnings_.begin(), beginnings_.end(), [&](const Beginning& each) {
      return (surely || each.heading) && each.leaf + 1 < sums_.size() &&
             equals(row, since(each.leaf), true);
    });
  }

  // Equal to two and more rows above it, wherever they begin.
  bool isLoose(const SumRow& row) const {
    for (std::size_t leaf = sums_.size() - 1; leaf-- > 0;) {
      const SideTotals sum = since(leaf);
      if (sums_.size() - 1 - leaf > 1 && equals(row, sum, false)) return true;
      if (!row.sideless && exceeds(sum, row.amount)) return false;
    }
    return false;
  }

  void readTotal(std::size_t at) {
    const SumRow& row = rows_[at];
    const bool surely = row.fixed || (row.name == Name::total && !row.unnamed);
    const bool firm = isFirm(row);
    const bool loose = !firm && isLoose(row);
    tree_.loose[at] = loose;
    tree_.named[at] = surely && !row.fixed && !firm && !loose;
    if (firm || surely || (loose && (looseTotals_ || row.unnamed))) {
      tree_.kinds[at] = RowKind::total;
      begin(false);
    } else if (row.unnamed) {
      tree_.kinds[at] = RowKind::error;
    } else {
      tree_.kinds[at] = RowKind::ledger;
      add(row.amount);
    }
  }

  const std::vector<SumRow>& rows_;
  std::optional<std::size_t> grand_;
  bool looseTotals_;
  SumTree& tree_;
  std::vector<SideTotals> sums_;  // of the leaves up to each of them
  std::vector<Beginning> beginnings_;
};

// Whether rows that are not bold come after this one and others that are.
bool plainFollows(const std::vector<SumRow>& rows, std::size_t at) {
  constexpr std::size_t deepest = 10;
  const std::size_t end = std::min(rows.size(), at + deepest);
  for (std::size_t next = at + 1; next < end && !isBarrier(rows[next]); ++next) {
    if (!rows[next].bold) return true;
  }
  return false;
}

}  // namespace

bool tellsParent(const std::vector<SumRow>& rows, std::size_t at) {
  const SumRow& row = rows[at];
  if (row.grouped) return false;
  if (row.name == Name::group) return true;
  if (at + 1 >= rows.size() || isBarrier(rows[at + 1])) return false;
  return rows[at + 1].indent > row.indent || (row.bold && plainFollows(rows, at));
}

SumTree readTree(const std::vector<SumRow>& rows, std::optional<std::size_t> grand,
                 SumTree::Parents parents, bool looseTotals) {
  SumTree tree;
  tree.kinds.assign(rows.size(), RowKind::ledger);
  tree.parentOf.resize(rows.size());
  tree.children.assign(rows.size(), 0);
  tree.loose.assign(rows.size(), false);
  tree.named.assign(rows.size(), false);
  ParentSearch(rows, parents, tree).run();
  TotalSearch(rows, grand, looseTotals, tree).run();
  // What turned out to be a total is nobody's part.
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (tree.kinds[i] == RowKind::total && !tree.parentOf[i] && takesPart(rows[i]) &&
        !isBarrier(rows[i])) {
      tree.tops.debit -= rows[i].amount.debit;
      tree.tops.credit -= rows[i].amount.credit;
    }
  }
  return tree;
}

std::vector<std::size_t> plainSums(const std::vector<SumRow>& rows) {
  std::vector<std::size_t> counts(rows.size(), 0);
  // Where the net amounts up to and with a row come to what, of the rows below up to a barrier.
  std::unordered_map<std::int64_t, std::vector<std::size_t>> places;
  std::vector<std::int64_t> sums(rows.size() + 1, 0);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    sums[i + 1] = sums[i] + rows[i].amount.difference().paise();
  }
  for (std::size_t at = rows.size(); at-- > 0;) {
    if (isBarrier(rows[at])) {
      places.clear();
      continue;
    }
    const std::int64_t wanted = sums[at + 1] + rows[at].amount.difference().paise();
    const auto found = places.find(wanted);
    if (found != places.end() && found->second.back() - at <= mostPlain) {
      counts[at] = found->second.back() - at;
    }
    places[sums[at + 1]].push_back(at);
  }
  return counts;
}

}  // namespace quillet
