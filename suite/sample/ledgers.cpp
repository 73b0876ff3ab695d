#include "suite/sample/ledgers.h"

#include <stdexcept>
#include <string_view>
#include <utility>

#include "suite/starter_data.h"

namespace quillet::suite::sample {
namespace {

// A group of the starter data.
const AccountGroup* groupNamed(std::string_view name) {
  const AccountGroup* found = accountGroup(name);
  if (found == nullptr) throw std::logic_error("No account group " + std::string(name));
  return found;
}

class Opening {
 public:
  Opening(const SampleClient& client, Dice& dice)
      : client_(client), trade_(*trade(client.trade)), dice_(dice) {}
  std::vector<Ledger> run();

 private:
  void open(const Account& account);
  void open(std::string name, const AccountGroup* group, Role role, long rate, long grain,
            int side = 0);
  void openOwners();
  void openOwner(const Owner& owner, const AccountGroup* group);
  void openParties();
  bool doesWithout(const Account& account);

  const SampleClient& client_;
  const Trade& trade_;
  Dice& dice_;
  std::vector<Ledger> ledgers_;
};

std::vector<Ledger> Opening::run() {
  openOwners();
  for (const Account& account : *accountsOf(client_.entry.status)) open(account);
  for (const Account& account : *accountsOf(client_.trade)) open(account);
  for (const Account& account : *accountsOf("all"))
    if (!doesWithout(account)) open(account);
  for (const Stock& stock : trade_.stocks)
    open(stock.opening, stock.openingGroup, Role::openingStock, 0, paise);
  openParties();
  return std::move(ledgers_);
}

void Opening::open(const Account& account) {
  open(account.ledger, account.group, account.role, account.rate, account.grain);
}

void Opening::open(std::string name, const AccountGroup* group, Role role, long rate, long grain,
                   int side) {
  const GrandGroup grand = group->primary->grand;
  const bool debit = grand == GrandGroup::assets || grand == GrandGroup::expenses;
  const bool nominal = grand == GrandGroup::incomes || grand == GrandGroup::expenses;
  if (side == 0) side = debit ? 1 : -1;
  ledgers_.push_back({std::move(name), group, role, rate, grain, nominal, side});
}

void Opening::openOwners() {
  if (client_.entry.status == "Company") {
    open("Profit and Loss Account", groupNamed("PROFIT AND LOSS ACCOUNT"), Role::owner, 100, paise);
    return;
  }
  if (client_.entry.status == "Individual")
    openOwner({client_.entry.displayName(), 100}, groupNamed("CAPITAL ACCOUNT"));
  for (const Owner& owner : client_.owners)
    openOwner(owner, groupNamed("PARTNERS CAPITAL ACCOUNT"));
}

void Opening::openOwner(const Owner& owner, const AccountGroup* group) {
  open("Capital, " + owner.name, group, Role::owner, owner.share, paise);
  const AccountGroup* drawings = groupNamed("DRAWINGS");
  const long most = trade_.drawings * owner.share / 100;
  open("Drawings, " + owner.name, drawings, Role::drawings, most, rupees, 1);
  open("Life Insurance Premium, " + owner.name, drawings, Role::drawings, most / 9, rupees, 1);
  open("Income Tax, " + owner.name, drawings, Role::drawings, most / 5, hundreds, 1);
}

void Opening::openParties() {
  const long offset = dice_.below(200);
  const auto weight = [this] { return 20 + dice_.below(180); };
  for (long i = 0; i < client_.suppliers; ++i)
    open(supplierName(client_.dealsIn, offset + i), trade_.supplierGroup, Role::suppliers, weight(),
         paise);
  // One supplier has also been paid in advance: a ledger under two groups.
  open(supplierName(client_.dealsIn, offset), groupNamed("ADVANCES TO SUPPLIERS"), Role::balance,
       160, hundreds);
  long customers = client_.customers;
  // In the first year every account but the deposits has a balance.
  if (client_.lines > 0) customers = client_.lines - std::ssize(ledgers_) + 1;
  for (long i = 0; i < customers; ++i)
    open(customerName(client_.dealsIn, offset + i), trade_.customerGroup, Role::customers, weight(),
         paise);
}

// No two practices' clients keep the same small accounts.
bool Opening::doesWithout(const Account& account) {
  switch (account.role) {
    case Role::asset:
    case Role::balance:
    case Role::flow:
    case Role::lasting:
      return dice_.oneIn(client_.omits);
    default:
      return false;
  }
}

}  // namespace

std::vector<Ledger> openLedgers(const SampleClient& client, Dice& dice) {
  return Opening(client, dice).run();
}

}  // namespace quillet::suite::sample
