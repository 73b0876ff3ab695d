#include "suite/sample/clients.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace quillet::suite::sample {
namespace {

using Words = std::vector<std::string>;

// The words that names of firms are made of, by the part that they take.
const std::map<std::string, Words>& firmWords() {
  static const std::map<std::string, Words> words = [] {
    std::map<std::string, Words> read;
    for (DataReader row("sample/firm_names.tsv"); row.next();) {
      read[row.text("part")].push_back(row.text("word"));
    }
    return read;
  }();
  return words;
}

const std::string& wordAt(const Words& words, long n) {
  return *(words.begin() + n % std::ssize(words));
}

// Every number stands for one house, one word for its dealings and one town; the first hundreds
// name no town, and neighbouring numbers differ in house and word.
std::string firm(const Words& dealings, long n) {
  constexpr long stride = 11;  // has no divisor in common with the number of pairs
  const Words& houses = firmWords().at("house");
  const long pairs = std::ssize(houses) * std::ssize(dealings);
  const long pair = n * stride % pairs;
  const long house = pair % std::ssize(houses);
  const long town = n / pairs;
  std::string name =
      wordAt(houses, house) + ' ' + wordAt(dealings, pair / std::ssize(houses) + house);
  if (town > 0) name += ", " + wordAt(firmWords().at("town"), town - 1);
  return name;
}

std::vector<SampleClient> readClients() {
  std::vector<SampleClient> clients;
  for (DataReader row("sample/clients.tsv"); row.next();) {
    if (accountsOf(row.text("status")) == nullptr) row.refuse("status");
    SampleClient& client = clients.emplace_back();
    client.entry = {.code = row.text("code"),
                    .name = row.text("name"),
                    .first = row.text("first"),
                    .middle = row.text("middle"),
                    .last = row.text("last"),
                    .status = row.text("status"),
                    .father = row.text("father"),
                    .born = row.text("born"),
                    .address = row.text("address"),
                    .groupCode = row.text("group code"),
                    .groupName = row.text("group name"),
                    .company = row.text("company"),
                    .password = {}};
  }
  return clients;
}

SampleClient& clientIn(const DataReader& row, std::vector<SampleClient>& clients) {
  const auto client = std::find_if(
      clients.begin(), clients.end(),
      [code = row.text("code")](const SampleClient& each) { return each.entry.code == code; });
  if (client == clients.end()) row.refuse("code");
  return *client;
}

void readBooks(std::vector<SampleClient>& clients) {
  constexpr std::pair<std::string_view, bool> answers[] = {{"yes", true}, {"no", false}};
  for (DataReader row("sample/books.tsv"); row.next();) {
    SampleClient& client = clientIn(row, clients);
    client.trade = row.text("trade");
    if (trade(client.trade) == nullptr) row.refuse("trade");
    client.dealsIn = row.text("deals in");
    if (!firmWords().contains(client.dealsIn + " customers")) row.refuse("deals in");
    client.firstYear = row.number("first year");
    client.years = row.number("years");
    client.latestEmpty = row.choice("latest empty", answers);
    client.turnover = row.number("turnover");
    client.growth = row.number("growth");
    client.suppliers = row.number("suppliers");
    client.customers = row.number("customers");
    client.lines = row.number("lines");
    client.omits = row.number("omits");
  }
}

}  // namespace

const std::vector<SampleClient>& sampleClients() {
  static const std::vector<SampleClient> all = [] {
    std::vector<SampleClient> clients = readClients();
    readBooks(clients);
    for (DataReader row("sample/owners.tsv"); row.next();) {
      clientIn(row, clients).owners.push_back({row.text("owner"), row.number("share")});
    }
    return clients;
  }();
  return all;
}

std::string customerName(const std::string& dealsIn, long n) {
  return firm(firmWords().at(dealsIn + " customers"), n);
}

std::string supplierName(const std::string& dealsIn, long n) {
  return firm(firmWords().at(dealsIn + " suppliers"), n);
}

}  // namespace quillet::suite::sample
