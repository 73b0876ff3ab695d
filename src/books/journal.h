// One client's rows in the journal of one year, the table JRNL_: the lines of its adjustment
// vouchers. Every statement on them stands here; the flush after a change is the caller's, who may
// have to enter the change elsewhere before anything can fail.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "books/voucher.h"
#include "ports/ports.h"

namespace quillet {

class Journal {
 public:
  // The trial balance's table names the journal's. Throws when the name is none.
  Journal(ServiceObject& host, const ClientTable& books);

  // The table, and code_no as it stands between quotes.
  const Sql& table() const { return table_; }
  const Sql& client() const { return client_; }

  // A line with what its voucher repeats in every row.
  struct Row {
    long vid = 0;
    std::string date;  // as it is stored
    std::string narration;
    VoucherLine line;
  };
  // Hands over the rows from one day to another (dd/mm/yyyy), voucher by voucher.
  void eachRow(const std::string& from, const std::string& to,
               const std::function<void(Row row)>& take) const;

  // What the client's vouchers post in all, by the pairs that their lines name.
  std::map<LedgerGroup, Money> posted() const;

  // What a voucher is read for, and how the select is spelt.
  enum class Reading { entry, posting };
  // The client's own lines; none when there is no such voucher.
  Voucher read(long vid, Reading reading) const;
  // The number of the next voucher: one more than any client's in the table.
  long nextId() const;

  // `number` counts the voucher's lines from 1.
  void insertLine(long vid, int number, const Voucher& voucher, const VoucherLine& line);
  // Takes the voucher's rows out, whosever they are.
  void remove(long vid);
  void flush();

 private:
  bool isOwn(const std::string& code) const;
  Sql isoDate(const std::string& date) const;

  ServiceObject& host_;
  std::string code_;
  Sql client_;
  Sql table_;
};

}  // namespace quillet
