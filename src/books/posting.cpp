#include "books/posting.h"

#include <cmath>
#include <exception>

#include "data/money.h"
#include "data/sql.h"

namespace quillet {

void Posting::open(const ClientTable& books) {
  books_ = books;
  table_ = sqlName(books.table);
  client_ = host_.escaped(books.client);
  merged_.reset();
}

void Posting::readMerged() {
  if (!merged_) merged_.emplace(host_);
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
  if (!yearIsThere()) return unposted_.forget(books_);
  // A group may have been merged elsewhere since.
  for (const LedgerGroup pair : missing()) {
    const double amount = missing(pair);
    unposted_.add(books_, pair, -amount);
    unposted_.add(books_, standing(pair), amount);
  }
  for (const LedgerGroup pair : missing()) post(pair, missing(pair));
}

// Somebody may have deleted the year, and its journal with it.
bool Posting::yearIsThere() {
  return !host_
              .query("select tbl_nm from master where code_no='" + client_ +
                     "' and tbl_nm=" + host_.quoted(books_.table))
              ->EOF_();
}

void Posting::journalChanged(LedgerGroup pair, double amount) {
  unposted_.add(books_, standing(pair), amount);
}

void Posting::post(LedgerGroup pair, double amount) {
  pair = standing(pair);
  const Sql ofPair = " where code_no='" + client_ + "' and PartId=" + sqlNumber(pair.partId) +
                     " and allid=" + sqlNumber(pair.allId);
  const double before = storedBalance(ofPair);
  host_.ConQuery("Delete from " + table_ + ofPair);
  unposted_.add(books_, pair, before);
  if (Changed) Changed(pair, 0);
  host_.ConQuery(flushTables);
  // Whole paise: what adding in binary leaves over is no balance.
  const double balance = Money::rounded(before + amount).rupees();
  if (balance != 0) insertBalance(pair, balance);
  // One after the other, as they came in: a sum might round to another paisa.
  unposted_.add(books_, pair, -before);
  unposted_.add(books_, pair, -amount);
  if (Changed) Changed(pair, balance);
  if (balance != 0) host_.ConQuery(flushTables);
}

double Posting::storedBalance(const Sql& ofPair) {
  const auto rows = host_.query("Select * from " + table_ + ofPair);
  double balance = 0;
  for (; !rows->EOF_(); rows->MoveNext()) {
    const double amount = rows->number("Amt");
    balance += rows->integer("nid") == 1 ? amount : -amount;
  }
  return balance;
}

void Posting::insertBalance(LedgerGroup pair, double balance) {
  const long last =
      host_
          .query("select max(srno) as maxsr from " + table_ + " where code_no = '" + client_ + "'")
          ->integer("maxsr");
  host_.ConQuery("insert into " + table_ + " values(" + sqlNumber(last + 1) + ",'" + client_ +
                 "'," + sqlNumber(pair.partId) + "," + sqlNumber(pair.allId) + "," +
                 sqlNumber(std::fabs(balance)) + "," + (balance > 0 ? "1" : "2") + ")");
}

void settlePostings(ServiceObject& host, UnpostedChanges& unposted) {
  std::exception_ptr failure;
  for (const ClientTable& books : unposted.books()) {
    try {
      Posting posting(host, unposted);
      posting.open(books);
      posting.settle();
    } catch (const std::exception&) {
      failure = std::current_exception();  // the other books are settled all the same
    }
  }
  if (failure) std::rethrow_exception(failure);
}

}  // namespace quillet
