#include "host/posting.h"

#include <cmath>

#include "data/sql.h"
#include "host/amount.h"

namespace quillet {

void Posting::open(const ClientTable& books) {
  books_ = books;
  table_ = sqlName(books.table);
  client_ = context_.host->escaped(books.client);
  merged_.emplace(context_);
}

LedgerGroup Posting::standing(LedgerGroup pair) const {
  if (merged_) pair.allId = merged_->successor(pair.allId);
  return pair;
}

void Posting::settle() {
  for (const LedgerGroup pair : missing()) post(pair, missing(pair));
}

void Posting::journalChanged(LedgerGroup pair, double amount) {
  context_.unposted.add(books_, standing(pair), amount);
}

void Posting::post(LedgerGroup pair, double amount) {
  pair = standing(pair);
  const Sql ofPair = " where code_no='" + client_ + "' and PartId=" + sqlNumber(pair.partId) +
                     " and allid=" + sqlNumber(pair.allId);
  const double before = storedBalance(ofPair);
  context_.host->ConQuery("Delete from " + table_ + ofPair);
  context_.unposted.add(books_, pair, before);
  if (Changed) Changed(pair, 0);
  context_.host->ConQuery(flushTables);
  // Whole paise: what adding in binary leaves over is no balance.
  const double balance = shownAmount(context_.host->formatgen(before + amount, "###0.00"));
  if (balance != 0) insertBalance(pair, balance);
  // One after the other, as they came in: a sum might round to another paisa.
  context_.unposted.add(books_, pair, -before);
  context_.unposted.add(books_, pair, -amount);
  if (Changed) Changed(pair, balance);
  if (balance != 0) context_.host->ConQuery(flushTables);
}

double Posting::storedBalance(const Sql& ofPair) {
  const auto rows = context_.query("Select * from " + table_ + ofPair);
  double balance = 0;
  for (; !rows->EOF_(); rows->MoveNext()) {
    const double amount = rows->number("Amt");
    balance += rows->integer("nid") == 1 ? amount : -amount;
  }
  return balance;
}

void Posting::insertBalance(LedgerGroup pair, double balance) {
  const long last =
      context_
          .query("select max(srno) as maxsr from " + table_ + " where code_no = '" + client_ + "'")
          ->integer("maxsr");
  context_.host->ConQuery("insert into " + table_ + " values(" + sqlNumber(last + 1) + ",'" +
                          client_ + "'," + sqlNumber(pair.partId) + "," + sqlNumber(pair.allId) +
                          "," + sqlNumber(std::fabs(balance)) + "," + (balance > 0 ? "1" : "2") +
                          ")");
}

void settlePostings(Context& context) {
  for (const ClientTable& books : context.unposted.books()) {
    Posting posting(context);
    posting.open(books);
    posting.settle();
  }
}

}  // namespace quillet
