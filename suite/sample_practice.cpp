#include "suite/sample_practice.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

#include "suite/bulk_insert.h"
#include "suite/client_register.h"
#include "suite/database.h"
#include "suite/sample/books.h"
#include "suite/schema.h"

namespace quillet::suite {
namespace {

using sample::BookLine;
using sample::Paise;
using sample::SampleClient;
using sample::YearBooks;

// In the end they are doubles; written from whole paise, they are the nearest ones.
BulkInsert::Number rupees(Paise amount) {
  char text[32];
  std::snprintf(text, sizeof text, "%lld.%02lld", amount / 100, amount % 100);
  return {text};
}

class Installer {
 public:
  explicit Installer(Database& database);
  void install(const SampleClient& client);
  void finish();

 private:
  void registerYear(const std::string& code, long firstYear, int number);
  void writeLines(const std::string& code, const YearBooks& books, const std::string& table);
  void writeStock(const std::string& code, const YearBooks& books, const std::string& table);
  long ledgerId(const std::string& name);
  long groupId(const std::string& name) const;

  Database& database_;
  BulkInsert ledgers_;
  BulkInsert years_;
  std::unordered_map<std::string, long> ledgerIds_;
  std::unordered_map<std::string, long> groupIds_;
};

Installer::Installer(Database& database)
    : database_(database),
      ledgers_(database, "Mast_Part(PartId,Particular)"),
      years_(database, "master(code_no,f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr)") {
  const RecordsetPtr groups = database.query("select ALLGRP,ALLID from Mast_AllGrp");
  for (; !groups->EOF_(); groups->MoveNext()) groupIds_[groups->text(0)] = groups->integer(1);
}

void Installer::install(const SampleClient& client) {
  addClient(database_, client.entry);
  int number = 0;
  for (const YearBooks& books : keepBooks(client)) {
    const std::string suffix = tableSuffix(++number);
    registerYear(client.entry.code, books.firstYear, number);
    writeLines(client.entry.code, books, "TAB_" + suffix);
    writeStock(client.entry.code, books, "TRADE_" + suffix);
  }
}

void Installer::finish() {
  ledgers_.send();
  years_.send();
}

void Installer::registerYear(const std::string& code, long firstYear, int number) {
  const std::string first = std::to_string(firstYear);
  const std::string second = std::to_string(firstYear + 1);
  years_.row(code, "01/04/" + first, "31/03/" + second, "TAB_" + tableSuffix(number), number,
             "0104" + first, "3103" + second);
}

void Installer::writeLines(const std::string& code, const YearBooks& books,
                           const std::string& table) {
  BulkInsert insert(database_, table + "(srno,code_no,partid,allid,amt,nid)");
  int srno = 0;
  for (const BookLine& line : books.lines)
    insert.row(++srno, code, ledgerId(line.ledger), groupId(line.group),
               rupees(std::abs(line.amount)), line.amount < 0 ? 2 : 1);
  insert.send();
}

void Installer::writeStock(const std::string& code, const YearBooks& books,
                           const std::string& table) {
  BulkInsert insert(database_, table + "(code_no,partid,allid,amt)");
  for (const BookLine& line : books.stock)
    insert.row(code, ledgerId(line.ledger), groupId(line.group), rupees(line.amount));
  insert.send();
}

long Installer::ledgerId(const std::string& name) {
  const auto [found, isNew] = ledgerIds_.try_emplace(name, std::ssize(ledgerIds_) + 1);
  if (isNew) ledgers_.row(found->second, name);
  return found->second;
}

long Installer::groupId(const std::string& name) const {
  const auto found = groupIds_.find(name);
  if (found == groupIds_.end())
    throw std::runtime_error("The account group " + name + " is missing.");
  return found->second;
}

void refuseUnlessEmpty(Database& database) {
  for (const char* table : {"Main_Info1", "Mast_Part", "master"})
    if (!database.query("select 1 from " + std::string(table) + " limit 1")->EOF_())
      throw std::runtime_error("The sample practice is for an empty one, but " +
                               std::string(table) + " holds rows.");
}

}  // namespace

void installSamplePractice(Database& database,
                           const std::function<void(long done, long total)>& progress) {
  refuseUnlessEmpty(database);
  Installer installer(database);
  const std::vector<SampleClient>& clients = sample::sampleClients();
  const long total = std::ssize(clients);
  long done = 0;
  for (const SampleClient& client : clients) {
    installer.install(client);
    if (progress) progress(++done, total);
  }
  installer.finish();
}

}  // namespace quillet::suite
