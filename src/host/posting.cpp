#include "host/posting.h"

#include <cmath>
#include <exception>

#include "data/sql.h"
#include "host/amount.h"

namespace quillet {

void Posting::open(const ClientTable& books) {
  books_ = books;
  table_ = sqlName(books.table);
  client_ = context_.host->escaped(books.client);
  merged_.reset();
}

void Posting::readMerged() {
  if (!merged_) merged_.emplace(context_);
}

LedgerGroup Posting::standing(LedgerGroup pair) {
  readMerged();
  pair.allId = merged_->successor(pair.allId);
  return pair;
}

void Posting::settle() {
  // Now, so that nothing can fail between a change of the journal and its entry here.
  readMerged();
  if (settled()) return;
  if (!yearIsThere()) return context_.unposted.forget(books_);
  // A group may have been merged elsewhere since.
  for (const LedgerGroup pair : missing()) {
    const double amount = missing(pair);
    context_.unposted.add(books_, pair, -amount);
    context_.unposted.add(books_, standing(pair), amount);
  }
  for (const LedgerGroup pair : missing()) post(pair, missing(pair));
}

// Somebody may have deleted the year, and its journal with it.
bool Posting::yearIsThere() {
  return !context_
              .query("select tbl_nm from master where code_no='" + client_ +
                     "' and tbl_nm=" + context_.host->quoted(books_.table))
              ->EOF_();
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
  std::exception_ptr failure;
  for (const ClientTable& books : context.unposted.books()) {
    try {
      Posting posting(context);
      posting.open(books);
      posting.settle();
    } catch (const std::exception&) {
      failure = std::current_exception();  // the other books are settled all the same
    }
  }
  if (failure) std::rethrow_exception(failure);
}

}  // namespace quillet
