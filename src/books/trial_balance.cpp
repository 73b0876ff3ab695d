#include "books/trial_balance.h"

namespace quillet {

TrialBalance::TrialBalance(ServiceObject& host, const ClientTable& books)
    : host_(host),
      books_(books),
      table_(sqlName(books.table)),
      client_(host.escaped(books.client)) {}

std::vector<Line> TrialBalance::lines() {
  return readLines(*host_.query("Select * From " + table_ + " where code_no='" + client_ + "'"));
}

std::vector<Line> TrialBalance::linesOf(LedgerGroup pair, Spelling spelling) {
  const Sql partId = sqlNumber(pair.partId);
  const Sql allId = sqlNumber(pair.allId);
  return readLines(*host_.query(spelling == Spelling::editor
                                    ? "select * from " + table_ + " where code_no='" + client_ +
                                          "' and partid = " + partId + " and allid = " + allId
                                    : "Select * from " + table_ + " where code_no='" + client_ +
                                          "' and PartId=" + partId + " and allid=" + allId));
}

long TrialBalance::nextSerial() {
  return host_
             .query("select max(srno) as maxsr from " + table_ + " where code_no = '" + client_ +
                    "'")
             ->integer("maxsr") +
         1;
}

void TrialBalance::insert(const Line& line) {
  host_.ConQuery("insert into " + table_ + " values(" + sqlNumber(line.srno) + ",'" + client_ +
                 "'," + sqlNumber(line.partId) + "," + sqlNumber(line.allId) + "," +
                 sqlNumber(line.amount) + "," + sqlNumber(line.nid) + ")");
}

}  // namespace quillet
