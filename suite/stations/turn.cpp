#include "suite/stations/turn.h"

#include <string>

namespace quillet::suite {

// A primary key would be another table than the schema makes: the row is the one with the lowest
// number.
void Turn::open() {
  database_.execute(
      "insert into SuiteTurn(Id,Acts,Masters) select 1,0,0 from dual where not exists(select 1 "
      "from "
      "SuiteTurn)");
}

TurnCount Turn::count(const char* lock) {
  const RecordsetPtr row =
      database_.query(std::string("select Acts,Masters from SuiteTurn where Id=1") + lock);
  return {row->integer(0), row->integer(1)};
}

void Turn::pass(bool masters) {
  database_.executeLater(std::string("update SuiteTurn set Acts=Acts+1") +
                    (masters ? ",Masters=Masters+1" : "") + " where Id=1");
}

}  // namespace quillet::suite
