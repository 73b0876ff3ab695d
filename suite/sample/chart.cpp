#include "suite/sample/chart.h"

#include <utility>

namespace quillet::suite::sample {
namespace {

constexpr std::pair<std::string_view, Role> roles[] = {{"sales", Role::sales},
                                                       {"purchases", Role::purchases},
                                                       {"direct", Role::direct},
                                                       {"flow", Role::flow},
                                                       {"balance", Role::balance},
                                                       {"lasting", Role::lasting},
                                                       {"asset", Role::asset},
                                                       {"loan", Role::loan},
                                                       {"tax charge", Role::taxCharge},
                                                       {"tax due", Role::taxDue},
                                                       {"deposits", Role::deposits},
                                                       {"overdraft", Role::overdraft},
                                                       {"bank", Role::bank},
                                                       {"depreciation", Role::depreciation}};

constexpr std::pair<std::string_view, Grain> grains[] = {
    {"paise", paise},     {"rupees", rupees},       {"hundreds", hundreds},
    {"monthly", monthly}, {"thousands", thousands}, {"lakhs", lakhs}};

using Trades = std::map<std::string, Trade>;

Trades readTrades() {
  Trades trades;
  for (DataReader row("sample/trades.tsv"); row.next();) {
    trades[row.text("trade")] = {.margin = row.number("margin"),
                                 .customers = row.number("customers"),
                                 .suppliers = row.number("suppliers"),
                                 .drawings = row.number("drawings"),
                                 .customerGroup = groupIn(row, "customer group"),
                                 .supplierGroup = groupIn(row, "supplier group"),
                                 .stocks = {}};
  }
  for (DataReader row("sample/stock.tsv"); row.next();) {
    const auto trade = trades.find(row.text("trade"));
    if (trade == trades.end()) row.refuse("trade");
    trade->second.stocks.push_back({row.text("opening ledger"), groupIn(row, "opening group"),
                                    row.text("closing ledger"), groupIn(row, "closing group"),
                                    row.number("rate")});
  }
  return trades;
}

const Trades& trades() {
  static const Trades all = readTrades();
  return all;
}

std::map<const AccountGroup*, long> readDepreciation() {
  std::map<const AccountGroup*, long> rates;
  for (DataReader row("sample/depreciation.tsv"); row.next();) {
    rates[groupIn(row, "group")] = row.number("per cent");
  }
  return rates;
}

}  // namespace

const AccountGroup* groupIn(const DataReader& row, std::string_view column) {
  const AccountGroup* group = accountGroup(row.text(column));
  if (group == nullptr) row.refuse(column);
  return group;
}

Accounts readAccounts(DataReader row) {
  Accounts accounts{{"all", {}}, {"Individual", {}}, {"Partnership Firm", {}}, {"Company", {}}};
  for (const auto& [name, trade] : trades()) accounts[name];
  while (row.next()) {
    const auto kept = accounts.find(row.text("kept by"));
    if (kept == accounts.end()) row.refuse("kept by");
    kept->second.push_back({row.text("ledger"), groupIn(row, "group"), row.choice("role", roles),
                            row.number("rate"), row.choice("multiple of", grains)});
  }
  return accounts;
}

const Trade* trade(const std::string& name) {
  const auto found = trades().find(name);
  return found == trades().end() ? nullptr : &found->second;
}

const std::vector<Account>* accountsOf(const std::string& keptBy) {
  static const Accounts accounts = readAccounts(DataReader("sample/accounts.tsv"));
  const auto found = accounts.find(keptBy);
  return found == accounts.end() ? nullptr : &found->second;
}

long depreciationRate(const AccountGroup& group) {
  static const std::map<const AccountGroup*, long> rates = readDepreciation();
  const auto found = rates.find(&group);
  return found == rates.end() ? 0 : found->second;
}

}  // namespace quillet::suite::sample
