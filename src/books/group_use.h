// Where account groups stand in the years' tables, found with a few statements over all of them.
#pragma once

#include <string>
#include <vector>

#include "books/year_tables.h"

namespace quillet {

// The highest group id that anything carries: a trial balance, a journal, a closing stock, a
// binding, a mapping, a merge. 0 when nothing does.
long highestGroupInUse(ServiceObject& host, TableNames& missing);

// Whose journals and closing stocks carry one of the groups, a line each:
// "Asha Traders, 01/04/2008 - 31/03/2009: Adj. Entries, Closing Stock".
std::vector<std::string> carriersOf(ServiceObject& host, const Sql& groupIds, TableNames& missing);

}  // namespace quillet
