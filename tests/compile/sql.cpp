// What must not become SQL. Compiled as it stands, everything is in order; with REFUSED each line
// that is marked so must be refused by the compiler.
#include "data/sql.h"

#include "host/context.h"

namespace quillet {

#ifdef REFUSED
#define INSTEAD(wrong, right) wrong
#else
#define INSTEAD(wrong, right) right
#endif

void typedTextIsNoSql(Context& context, const std::string& typed, std::string_view part, char* at) {
  const ServiceObject& host = *context.host;
  const Sql where = "where Particular=";
  char buffer[8] = "TAB_1";
  (void)(where + INSTEAD(typed, host.quoted(typed)));                    // refused
  context.query(INSTEAD(typed, where));                                  // refused
  context.query(INSTEAD("where Particular='" + typed + "'", where));     // refused
  context.query(INSTEAD(host.TruncVarSQL(typed), host.escaped(typed)));  // refused
  context.change(INSTEAD(typed, where));                                 // refused
  context.host->ConQuery(INSTEAD(typed, where));                         // refused
  context.host->ConQuery(INSTEAD(typed.c_str(), where));                 // refused
  (void)Sql(INSTEAD(typed, "flush tables"));                             // refused
  (void)(where + INSTEAD(part, "1"));                                    // refused
  (void)(where + INSTEAD(at, "1"));                                      // refused
  (void)(where + INSTEAD(buffer, "1"));                                  // refused
  (void)(where + INSTEAD(std::to_string(1), sqlNumber(1)));              // refused
  (void)(where + INSTEAD('1', "1"));                                     // refused
  (void)filled(INSTEAD(at, "{c}"), {});                                  // refused
}

}  // namespace quillet
