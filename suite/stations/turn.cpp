#include "suite/stations/turn.h"

#include <string>

namespace quillet::suite {

void Turn::open() {
  for (const char* id : {"1", "2"}) {
    database_.execute(std::string("insert into SuiteTurn(Id,Acts,Masters) select ") + id +
                      ",0,0 from dual where not exists(select 1 from SuiteTurn where Id=" + id +
                      ')');
  }
}

TurnCount Turn::count(const char* lock) {
  const RecordsetPtr row = database_.query(
      std::string("select Acts,Masters,(select Acts from SuiteTurn where Id=2) from "
                  "SuiteTurn where Id=1") +
      lock);
  return {row->integer(0), row->integer(1), row->integer(2)};
}

void Turn::pass(bool masters) {
  database_.executeLater(std::string("update SuiteTurn set Acts=Acts+1") +
                         (masters ? ",Masters=Masters+1" : "") + " where Id=1");
}

}  // namespace quillet::suite
