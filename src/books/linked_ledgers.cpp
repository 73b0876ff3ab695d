#include "books/linked_ledgers.h"

#include <cstdlib>
#include <set>
#include <string>

namespace quillet {
namespace {

constexpr const char* linkedSection = "Ledgers";

std::string keyOf(long id) { return "Linked " + std::to_string(id); }

}  // namespace

void LinkedLedgers::keep(const std::vector<long>& ids, long by) {
  for (const long id : ids)
    host_.SetMiscOthInf(linkedSection, keyOf(id), std::to_string(by), "", "");
}

long LinkedLedgers::successor(long id) const {
  // A value that somebody spoilt may lead round and round.
  for (std::set<long> passed; id != 0 && passed.insert(id).second;) {
    if (!host_.GetPart_MastPartId(id).empty()) return id;
    id = std::atol(host_.GetMiscOthInf(linkedSection, keyOf(id), "").c_str());
  }
  return 0;
}

}  // namespace quillet
