// The list of changes on paper and in a workbook.
#pragma once

#include <string>

#include "host/context.h"
#include "suite/history/changes.h"

namespace quillet::suite {

// `count` says how many they are and of when.
void printChanges(Context& context, Changes& changes, const std::string& count);
// `fileSubject` begins the name that is proposed for the file.
void exportChanges(Context& context, Changes& changes, const std::string& fileSubject);

}  // namespace quillet::suite
