// Which account group a merged one went into. Journals and closing stocks go on carrying the ids of
// groups that are gone; the service object keeps where those went.
#pragma once

#include <map>
#include <vector>

#include "ports/ports.h"

namespace quillet {

class MergedGroups {
 public:
  // As it is kept now. A group that the master has is not merged, whatever was begun with it.
  explicit MergedGroups(ServiceObject& host);

  void keep(const std::vector<long>& ids, long target);
  // The group that stands in its place now, through all merges; the id itself when it was not
  // merged.
  long successor(long id) const;
  // The groups in whose place it stands.
  std::vector<long> predecessors(long id) const;
  std::vector<long> merged() const;
  // The highest id of a merged group, 0 when there is none: it is not given again.
  long highest() const { return into_.empty() ? 0 : into_.rbegin()->first; }

 private:
  ServiceObject& host_;
  std::map<long, long> into_;
};

}  // namespace quillet
