// A host for which a question by itself is slow, as on a server far away, answers many at once.
#pragma once

#include <string>
#include <vector>

namespace quillet {

class LedgerLookUps {
 public:
  virtual ~LedgerLookUps() = default;
  // GetMax_MastPartId is asked for these names next, within the part of an act that is running.
  virtual void lookUpLedgers(const std::vector<std::string>& names) = 0;
};

}  // namespace quillet
