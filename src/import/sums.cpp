#include "import/sums.h"

#include <algorithm>
#include <array>
#include <set>

#include "data/text.h"
#include "import/sum_tree.h"

namespace quillet {
namespace {

using Name = SumRow::Name;
using Parents = SumTree::Parents;

constexpr std::array<std::string_view, 7> rowKindNames{
    "Ledger", "Heading", "Sum of rows below", "Total", "Blank", "Skipped", "Error"};

// The last row with an amount, when it has a total's name or none; what a ledger could be called
// too must agree on both sides.
std::optional<std::size_t> grandTotal(const std::vector<SumRow>& rows) {
  for (std::size_t at = rows.size(); at-- > 0;) {
    const SumRow& row = rows[at];
    if (row.heading) continue;
    if (row.fixed) return row.fixed == RowKind::total ? std::optional(at) : std::nullopt;
    const bool agrees = row.amount.debit == row.amount.credit;
    const bool total = row.name == Name::total || (row.name == Name::totalWord && agrees);
    return total && !row.grouped ? std::optional(at) : std::nullopt;
  }
  return std::nullopt;
}

// What the grand total says; nothing when it decides nothing.
std::optional<SideTotals> statedBy(const std::vector<SumRow>& rows,
                                   std::optional<std::size_t> grand, bool sided) {
  if (!grand) return std::nullopt;
  SideTotals amount = rows[*grand].amount;
  if (sided && rows[*grand].sideless) {
    const Money gross = abs(amount.difference());
    amount = {gross, gross};
  }
  const bool silent = sided ? amount.isZero() : amount.difference().isZero();
  return silent ? std::nullopt : std::optional(amount);
}

bool meets(const SumTree& tree, const SideTotals& stated, bool sided) {
  if (sided) return tree.meets(stated);
  return tree.leaves.difference() == stated.difference() ||
         tree.tops.difference() == stated.difference();
}

// Whether some of the amounts, at least one, add up to nothing; true when they are too many to say.
bool someBalance(const std::vector<Money>& amounts) {
  constexpr std::size_t most = 14;
  if (amounts.size() > most) return true;
  std::set<Money> sums;
  for (const Money amount : amounts) {
    std::set<Money> with{amount};
    for (const Money sum : sums) with.insert(sum + amount);
    sums.insert(with.begin(), with.end());
  }
  return sums.contains(Money());
}

class Explanation {
 public:
  Explanation(std::vector<SumRow>& rows, bool sided)
      : rows_(rows),
        sided_(sided),
        grand_(grandTotal(rows)),
        stated_(statedBy(rows, grand_, sided)) {}

  ExplainedSums run() {
    if (stated_) return byTotal();
    byBalance();
    return {};
  }

 private:
  SumTree read(Parents parents, bool looseTotals) const {
    return readTree(rows_, grand_, parents, looseTotals);
  }

  // The first reading that meets the source's total.
  ExplainedSums byTotal() {
    for (const Parents parents :
         {Parents::none, Parents::told, Parents::any, Parents::anyEqual, Parents::anyNet}) {
      for (const bool looseTotals : {false, true}) {
        const SumTree tree = read(parents, looseTotals);
        if (!meets(tree, *stated_, sided_)) continue;
        adopt(tree);
        if (parents >= Parents::any) askUntold(tree);
        return {stated_, true};
      }
    }
    const SumTree tree = read(Parents::told, true);
    adopt(tree);
    askUnexplained(tree);
    return {stated_, false};
  }

  // Without a total: what nothing speaks for is a ledger, and asked about where it could be a sum.
  // Where all balances, each doubtful row must be what it was taken for, unless some of them
  // balance among themselves.
  void byBalance() {
    const SumTree plain = read(Parents::told, false);
    const SumTree loose = read(Parents::told, true);
    const bool totals = !balances(plain) && balances(loose);
    const SumTree& tree = totals ? loose : plain;
    adopt(tree);
    std::vector<std::size_t> doubtful;
    for (std::size_t at = 0; at < rows_.size(); ++at) {
      const bool ledger = tree.kinds[at] == RowKind::ledger;
      const bool named = rows_[at].name == Name::totalWord && (ledger || tree.loose[at]);
      const bool weak = tree.kinds[at] == RowKind::parent && tree.children[at] == 1;
      if ((ledger && brokenParent(at)) || tree.named[at]) ask(at);
      if ((weak && !goesDeeper(at)) || named) doubtful.push_back(at);
    }
    if (!balances(tree)) askParents(tree);
    askUnlessSure(doubtful, balances(tree));
    askEqualSums(tree, balances(tree));
  }

  static bool balances(const SumTree& tree) { return tree.leaves.difference().isZero(); }

  void askParents(const SumTree& tree) {
    for (std::size_t at = 0; at < rows_.size(); ++at) {
      if (tree.kinds[at] == RowKind::parent) ask(at);
    }
  }

  void askUnlessSure(const std::vector<std::size_t>& doubtful, bool balanced) {
    std::vector<Money> amounts;
    for (const std::size_t at : doubtful) amounts.push_back(rows_[at].amount.difference());
    if (balanced && !someBalance(amounts)) return;
    for (const std::size_t at : doubtful) ask(at);
  }

  // Ledgers that equal rows below. In books that balance a sum among them would have to be balanced
  // by another one.
  void askEqualSums(const SumTree& tree, bool balanced) {
    const SumTree any = read(Parents::any, false);
    const SumTree net = read(Parents::anyNet, false);
    const std::vector<std::size_t> counts = plainSums(rows_);
    std::vector<std::size_t> several;
    std::vector<std::size_t> alone;
    bool parents = false;
    for (std::size_t at = 0; at < rows_.size(); ++at) {
      parents = parents || tree.kinds[at] == RowKind::parent;
      if (tree.kinds[at] != RowKind::ledger || rows_[at].grouped || rows_[at].fixed) continue;
      const std::size_t count = counts[at];
      if (count > 1 || any.kinds[at] == RowKind::parent || net.children[at] > 1) {
        several.push_back(at);
      } else if (count == 1) {
        alone.push_back(at);
      }
    }
    if (parents || !several.empty()) several.insert(several.end(), alone.begin(), alone.end());
    askUnlessSure(several, balanced);
  }

  void askUntold(const SumTree& tree) {
    for (std::size_t at = 0; at < rows_.size(); ++at) {
      if (tree.kinds[at] == RowKind::parent && !tellsParent(rows_, at)) ask(at);
    }
  }

  void askUnexplained(const SumTree& tree) {
    const SumTree any = read(Parents::any, true);
    const std::vector<std::size_t> counts = plainSums(rows_);
    for (std::size_t at = 0; at < rows_.size(); ++at) {
      const bool parent = tree.kinds[at] == RowKind::parent || any.kinds[at] == RowKind::parent;
      const bool ledger = tree.kinds[at] == RowKind::ledger;
      const bool doubtful = rows_[at].name == Name::totalWord && at != grand_;
      if (parent || doubtful || tree.named[at] || (ledger && (brokenParent(at) || counts[at] > 1)))
        ask(at);
    }
  }

  bool goesDeeper(std::size_t at) const {
    return at + 1 < rows_.size() && !rows_[at].heading && !rows_[at + 1].heading &&
           rows_[at + 1].indent > rows_[at].indent;
  }
  // Deeper rows follow, and do not add up to it.
  bool brokenParent(std::size_t at) const { return goesDeeper(at) && !rows_[at].grouped; }

  void adopt(const SumTree& tree) {
    for (std::size_t at = 0; at < rows_.size(); ++at) {
      SumRow& row = rows_[at];
      row.kind = tree.kinds[at];
      row.parent = tree.parentOf[at];
      if (row.kind == RowKind::parent && tree.children[at] > 0) {
        row.reason = tree.children[at] == 1 ? "The same amount as the row below"
                                            : "The sum of the rows below";
      } else if (at == grand_) {
        row.reason = "The source's total";
      } else if (row.kind == RowKind::total) {
        row.reason = tree.named[at] ? "A total by its name" : "The sum of the rows above";
      } else if (row.kind == RowKind::error) {
        row.reason = "An amount without a name";
      }
    }
  }

  void ask(std::size_t at) {
    SumRow& row = rows_[at];
    if (row.fixed) return;
    row.question = row.kind == RowKind::ledger ? "Is this a ledger, or the sum of other rows?"
                                               : "Is this the sum of other rows, or a ledger?";
  }

  std::vector<SumRow>& rows_;
  bool sided_;
  std::optional<std::size_t> grand_;
  std::optional<SideTotals> stated_;
};

}  // namespace

std::string_view nameOf(RowKind kind) { return rowKindNames[static_cast<std::size_t>(kind)]; }

std::optional<RowKind> rowKindNamed(std::string_view name) {
  for (std::size_t i = 0; i < rowKindNames.size(); ++i) {
    if (equalIgnoringCase(rowKindNames[i], trimmed(name))) return static_cast<RowKind>(i);
  }
  return std::nullopt;
}

SideTotals& SideTotals::operator+=(const SideTotals& other) {
  debit += other.debit;
  credit += other.credit;
  return *this;
}

ExplainedSums explainSums(std::vector<SumRow>& rows, bool sided) {
  return Explanation(rows, sided).run();
}

}  // namespace quillet
