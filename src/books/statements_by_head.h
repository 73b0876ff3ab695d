// Balance sheet and statement of profit and loss of a client's year and the year before, by the
// heads that the client's account groups are mapped to.
//
// Closing stock stands in no trial balance: it is an asset, and what it takes off the costs of the
// year. The year's result is what incomes and expenses come to, and stands in the balance sheet as
// a line of its own. So both sides of the balance sheet agree as the trial balance does.
//
// A group that is mapped to no head of the list counts where its primary group stands.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "books/group_mapping.h"
#include "books/statement_books.h"

namespace quillet {

using TwoAmounts = std::array<Money, 2>;  // by TwoYears::Year

struct ScheduleLedger {
  std::string name;
  TwoAmounts amounts{};
};

struct ScheduleGroup {
  std::string name;
  std::vector<ScheduleLedger> ledgers;  // none: the line stands for itself
  TwoAmounts amounts{};
  std::string lostHead;  // the head that it is mapped to and the list does not have
};

// Amounts are positive on the side of the head's kind.
struct HeadFigures {
  StatutoryHead head;                 // without an id: the groups that are mapped to none
  std::vector<ScheduleGroup> groups;  // by name, the year's result last
  TwoAmounts amounts{};
};

struct KindFigures {
  std::vector<HeadFigures> heads;  // in their order, those that anything stands under
  HeadFigures unmapped;
  TwoAmounts total{};
};

struct StatementsByHead {
  std::array<KindFigures, 4> kinds;
  TwoAmounts result{};  // a profit is positive

  const KindFigures& of(HeadKind kind) const { return kinds[static_cast<std::size_t>(kind)]; }
  // Assets less equity and liabilities; zero where both sides agree.
  TwoAmounts difference() const;
};

StatementsByHead statementsByHead(const StatementBooks& books, const GroupMappings& mappings,
                                  const StatutoryHeadList& heads, Scheme scheme);

}  // namespace quillet
