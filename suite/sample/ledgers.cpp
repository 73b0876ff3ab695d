#include "suite/sample/ledgers.h"

#include <stdexcept>
#include <string_view>
#include <utility>

#include "suite/starter_data.h"

namespace quillet::suite::sample {
namespace {

GrandGroup grandGroup(std::string_view name) {
  for (const AccountGroup& group : accountGroups())
    if (group.name == name)
      return primaryGroups()[static_cast<std::size_t>(group.primary - 1)].grand;
  throw std::logic_error("No account group " + std::string(name));
}

class Opening {
 public:
  Opening(const SampleClient& client, Dice& dice)
      : client_(client), business_(business(client.trade)), dice_(dice) {}
  std::vector<Ledger> run();

 private:
  void open(const Account& account);
  void open(std::string name, const char* group, Role role, long rate, long grain, int side = 0);
  void openOwners();
  void openOwner(const Owner& owner, const char* group);
  void openParties();
  bool doesWithout(const Account& account);

  const SampleClient& client_;
  const Business& business_;
  Dice& dice_;
  std::vector<Ledger> ledgers_;
};

std::vector<Ledger> Opening::run() {
  openOwners();
  for (const Account& account : ownershipAccounts(client_.ownership)) open(account);
  for (const Account& account : business_.accounts) open(account);
  for (const Account& account : commonAccounts())
    if (!doesWithout(account)) open(account);
  for (const Stock& stock : business_.stocks)
    open(stock.opening, stock.openingGroup, Role::openingStock, 0, paise);
  openParties();
  return std::move(ledgers_);
}

void Opening::open(const Account& account) {
  open(account.ledger, account.group, account.role, account.rate, account.grain);
}

void Opening::open(std::string name, const char* group, Role role, long rate, long grain,
                   int side) {
  const GrandGroup grand = grandGroup(group);
  const bool debit = grand == GrandGroup::assets || grand == GrandGroup::expenses;
  const bool nominal = grand == GrandGroup::incomes || grand == GrandGroup::expenses;
  if (side == 0) side = debit ? 1 : -1;
  ledgers_.push_back({std::move(name), group, role, rate, grain, nominal, side});
}

void Opening::openOwners() {
  if (client_.ownership == Ownership::company) {
    open("Profit and Loss Account", "PROFIT AND LOSS ACCOUNT", Role::owner, 100, paise);
    return;
  }
  if (client_.ownership == Ownership::proprietor)
    openOwner({registerEntry(client_).displayName(), 100}, "CAPITAL ACCOUNT");
  for (const Owner& owner : client_.owners) openOwner(owner, "PARTNERS CAPITAL ACCOUNT");
}

void Opening::openOwner(const Owner& owner, const char* group) {
  open("Capital, " + owner.name, group, Role::owner, owner.share, paise);
  const long most = business_.drawings * owner.share / 100;
  open("Drawings, " + owner.name, "DRAWINGS", Role::drawings, most, rupees, 1);
  open("Life Insurance Premium, " + owner.name, "DRAWINGS", Role::drawings, most / 9, rupees, 1);
  open("Income Tax, " + owner.name, "DRAWINGS", Role::drawings, most / 5, hundreds, 1);
}

void Opening::openParties() {
  const int offset = static_cast<int>(dice_.below(200));
  const auto weight = [this] { return 20 + dice_.below(180); };
  for (int i = 0; i < client_.suppliers; ++i)
    open(supplierName(client_.line, offset + i), business_.supplierGroup, Role::suppliers, weight(),
         paise);
  // One supplier has also been paid in advance: a ledger under two groups.
  open(supplierName(client_.line, offset), "ADVANCES TO SUPPLIERS", Role::balance, 160, hundreds);
  int customers = client_.customers;
  // In the first year every account but the deposits has a balance.
  if (client_.lines > 0) customers = client_.lines - static_cast<int>(ledgers_.size()) + 1;
  for (int i = 0; i < customers; ++i)
    open(customerName(client_.line, offset + i), business_.customerGroup, Role::customers, weight(),
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
