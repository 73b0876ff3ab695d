#include "books/journal.h"

#include "data/table_names.h"
#include "data/text.h"

namespace quillet {
namespace {

// Where the fields of a row stand in a result, looked up once for all rows.
struct Fields {
  explicit Fields(const Recordset& rows)
      : code(rows.column("code_no")),
        vid(rows.column("VID")),
        date(rows.column("VDate")),
        partId(rows.column("PartId")),
        allId(rows.column("AllId")),
        amount(rows.column("Amount")),
        narration(rows.column("VNar")) {}
  int code, vid, date, partId, allId, amount, narration;
};

VoucherLine lineOf(const Recordset& row, const Fields& fields) {
  const Money amount = Money::rounded(row.number(fields.amount));
  return {{row.integer(fields.partId), row.integer(fields.allId)}, amount > Money(), abs(amount)};
}

}  // namespace

Journal::Journal(ServiceObject& host, const ClientTable& books)
    : host_(host),
      code_(trimmed(books.client)),
      client_(host.escaped(books.client)),
      table_(sqlName(siblingTable(books.table, "JRNL_"))) {}

bool Journal::isOwn(const std::string& code) const {
  return equalIgnoringCase(trimmed(code), code_);
}

Sql Journal::isoDate(const std::string& date) const {
  return host_.quoted(host_.formatgen(date, "YYYY-MM-DD"));
}

void Journal::eachRow(const std::string& from, const std::string& to,
                      const std::function<void(Row row)>& take) const {
  const auto rows =
      host_.query("Select *  from " + table_ + " LEFT JOIN mast_allgrp on " + table_ +
                  ".allid=mast_allgrp.allid where " + table_ + ".code_no='" + client_ + "' and " +
                  table_ + ".VDate>=" + isoDate(from) + " and " + table_ +
                  ".VDate<=" + isoDate(to) + " Order by Vdate, VID, Amount Desc");
  const Fields fields(*rows);
  for (; !rows->EOF_(); rows->MoveNext()) {
    take({rows->integer(fields.vid), rows->text(fields.date), rows->text(fields.narration),
          lineOf(*rows, fields)});
  }
}

std::map<LedgerGroup, Money> Journal::posted() const {
  const auto rows =
      host_.query("Select PartId,AllId,Amount From " + table_ + " Where code_no='" + client_ + "'");
  std::map<LedgerGroup, Money> sums;
  for (; !rows->EOF_(); rows->MoveNext()) {
    sums[{rows->integer(0), rows->integer(1)}] += Money::rounded(rows->number(2));
  }
  return sums;
}

Voucher Journal::read(long vid, Reading reading) const {
  const Sql from = "Select * from " + table_;
  const auto rows = host_.query(reading == Reading::entry
                                    ? from + " where VID=" + sqlNumber(vid) + " Order by LSrNo"
                                    : from + " where VId=" + sqlNumber(vid));
  const Fields fields(*rows);
  Voucher voucher;
  for (; !rows->EOF_(); rows->MoveNext()) {
    if (!isOwn(rows->text(fields.code))) {
      voucher.shared = true;
      continue;
    }
    if (voucher.lines.empty()) {
      voucher.date = host_.convertdate(host_.formatgen(rows->text(fields.date), "DD/MM/YYYY"));
      voucher.narration = rows->text(fields.narration);
    }
    voucher.lines.push_back(lineOf(*rows, fields));
  }
  return voucher;
}

long Journal::nextId() const {
  return host_.query("Select max(VID) from " + table_)->integer(0) + 1;
}

void Journal::insertLine(long vid, int number, const Voucher& voucher, const VoucherLine& line) {
  host_.ConQuery("Insert Into " + table_ + " Values ('" + client_ + "'," + sqlNumber(vid) + "," +
                 sqlNumber(number) + "," + isoDate(voucher.date) + "," +
                 sqlNumber(line.pair.partId) + "," + sqlNumber(line.pair.allId) + "," +
                 sqlNumber(line.balance().rupees()) + "," + host_.quoted(voucher.narration) + ")");
}

void Journal::remove(long vid) {
  host_.ConQuery("Delete from " + table_ + " where VId=" + sqlNumber(vid));
}

void Journal::flush() { host_.ConQuery("Flush Tables"); }

}  // namespace quillet
