#include "books/ledger_or_new.h"

#include <stdexcept>

#include "data/names.h"
#include "ports/ledger_look_up.h"

namespace quillet {

void lookUpLedgers(ServiceObject& host, const std::vector<std::string>& names) {
  auto* const lookUps = dynamic_cast<LedgerLookUps*>(&host);
  if (lookUps != nullptr && !names.empty()) lookUps->lookUpLedgers(names);
}

long ledgerOrNew(ServiceObject& host, const std::string& name) {
  const long id = host.GetMax_MastPartId(name);
  if (id == 0) throw std::runtime_error("The ledger \"" + name + "\" cannot be made.");
  const std::string found = host.GetPart_MastPartId(id);
  if (!found.empty() && !sameName(found, name)) {
    throw std::runtime_error("The database cannot tell the ledger \"" + name + "\" from \"" +
                             found + "\". Please write it so in the source.");
  }
  return id;
}

}  // namespace quillet
