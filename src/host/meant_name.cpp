#include "host/meant_name.h"

#include "data/names.h"
#include "data/sql.h"

namespace quillet {
namespace {

std::string comparison(const std::string& typed, const std::string& found) {
  return "There is '" + found + "', and the database cannot tell '" + typed + "' from it.";
}

}  // namespace

bool nameMeant(Dialogs& dialogs, const std::string& typed, const std::string& found,
               const std::string& title) {
  if (sameName(typed, found)) return true;
  return dialogs.MsgBox({comparison(typed, found) + "\r\n\r\nDo you mean '" + found + "'?", title,
                         Buttons::YesNo, Icon::question, Answer::No}) == Answer::Yes;
}

bool ledgerMeant(ServiceObject& host, Dialogs& dialogs, const std::string& typed, long id,
                 const std::string& title) {
  if (sameName(typed, host.GetPart_MastPartId(id))) return true;
  const auto names = host.RecordsetQuery("Select * From Mast_Part Where PartId=" + sqlNumber(id),
                                         host.DbObj(), CursorType::static_, LockType::readOnly);
  const auto found = bestMatch(*names, "PartId", "Particular", typed);
  return !found || nameMeant(dialogs, typed, found->name, title);
}

std::string whyTaken(const std::string& typed, const std::string& found) {
  if (sameName(typed, found)) return {};
  return "\r\n\r\n" + comparison(typed, found);
}

}  // namespace quillet
