// Whether a change of the masters may reach the locked years that carry what it changes: true where
// there are none, or when a person with the right to unlock years wants it. To be asked last.
#pragma once

#include <vector>

#include "host/context.h"

namespace quillet {

bool mayReplaceLedgers(Context& context, const std::vector<long>& ids);
bool mayMergeGroups(Context& context, const std::vector<long>& ids);
// To another primary group.
bool mayMoveGroup(Context& context, long id);

}  // namespace quillet
