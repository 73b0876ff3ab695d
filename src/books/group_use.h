// Where account groups stand in the years' tables, found with a few statements over all of them.
#pragma once

#include <string>
#include <vector>

#include "books/year_tables.h"

namespace quillet {

// The highest group id that anything carries: a trial balance, a journal, a closing stock, a
// binding, a mapping, a merge. 0 when nothing does.
long highestGroupInUse(ServiceObject& host, TableNames& missing);

// The first year's table in which the group stands, or one that was merged into it: what carries
// such a group comes back to it when it is touched. "" when there is none.
std::string yearTableWithGroup(ServiceObject& host, long groupId, TableNames& missing);

// Whose journals and closing stocks carry one of the groups, or one that was merged into them, a
// line each: "Asha Traders, 01/04/2008 - 31/03/2009: Adj. Entries, Closing Stock".
std::vector<std::string> carriersOf(ServiceObject& host, const std::vector<long>& groupIds,
                                    TableNames& missing);

}  // namespace quillet
