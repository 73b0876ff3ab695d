// What every practice begins with: the primary groups, and the account groups that an accounting
// and tax practice in India classes its ledgers under.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillet::suite {

class Database;

// The grand group decides the side that an amount is proposed on.
enum class GrandGroup { assets = 1, liabilities = 2, incomes = 3, expenses = 4 };

struct PrimaryGroup {
  long id;
  std::string name;
  GrandGroup grand;
};

struct AccountGroup {
  long id;
  std::string name;
  const PrimaryGroup* primary;
};

const std::vector<PrimaryGroup>& primaryGroups();
const std::vector<AccountGroup>& accountGroups();
// None of that name: null.
const AccountGroup* accountGroup(std::string_view name);

// Fills Mast_Gunder and Mast_AllGrp where they are empty; a table that holds rows is left as it is.
void installStarterData(Database& database);

}  // namespace quillet::suite
