// What every practice begins with: the primary groups, and the account groups that an accounting
// and tax practice in India classes its ledgers under.
#pragma once

#include <span>

namespace quillet::suite {

class Database;

// The grand group decides the side that an amount is proposed on.
enum class GrandGroup { assets = 1, liabilities = 2, incomes = 3, expenses = 4 };

struct PrimaryGroup {
  int id;
  const char* name;
  GrandGroup grand;
};

struct AccountGroup {
  int id;
  int primary;
  const char* name;
};

std::span<const PrimaryGroup> primaryGroups();
std::span<const AccountGroup> accountGroups();

// Fills Mast_Gunder and Mast_AllGrp where they are empty; a table that holds rows is left as it is.
void installStarterData(Database& database);

}  // namespace quillet::suite
