#include "suite/stations/turn.h"

namespace quillet::suite {
namespace {

constexpr const char* ownNode = "concat(@@hostname,':',@@port)";

}  // namespace

void Turn::open() {
  for (const char* id : {"1", "2"}) {
    database_.execute(std::string("insert into SuiteTurn(Id,Acts,Masters) select ") + id +
                      ",0,0 from dual where not exists(select 1 from SuiteTurn where Id=" + id +
                      ')');
  }
}

TurnCount Turn::count(const char* lock) {
  const RecordsetPtr row = database_.query(
      std::string("select Acts,Masters,(select Acts from SuiteTurn where Id=2),Node,") + ownNode +
      " from SuiteTurn where Id=1" + lock);
  noteNode(row->text(3), row->text(4));
  return {row->integer(0), row->integer(1), row->integer(2)};
}

// One that this station did not work on yet may have been left by all of them.
void Turn::noteNode(const std::string& last, const std::string& own) {
  if (own != own_) worked_ = false;
  own_ = own;
  if (last == own) worked_ = true;
  if (last != own && worked_) elsewhere_ = last;
}

void Turn::pass(bool masters) {
  database_.executeLater(std::string("update SuiteTurn set Acts=Acts+1") +
                         (masters ? ",Masters=Masters+1" : "") + ",Node=" + ownNode +
                         " where Id=1");
}

}  // namespace quillet::suite
