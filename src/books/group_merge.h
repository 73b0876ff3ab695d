// Several account groups become one in every trial balance. Journals and closing stocks keep the
// groups under which they were passed.
#pragma once

#include <vector>

#include "books/unposted_changes.h"
#include "books/year_tables.h"

namespace quillet {

// What earlier failures left unposted is posted before.
void mergeGroups(ServiceObject& host, UnpostedChanges& unposted, const std::vector<long>& ids,
                 long target, TableNames& missing);

}  // namespace quillet
