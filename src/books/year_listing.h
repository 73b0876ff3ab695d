// The lines of one year with the names of their ledgers and groups, as the lists of a year print
// them: all together or by group.
#pragma once

#include <string>
#include <vector>

#include "books/lines.h"
#include "books/unposted_changes.h"
#include "ports/ports.h"

namespace quillet {

std::vector<Entry> listedLines(ServiceObject& host, const ClientTable& books);

// A group with its lines, by ledger.
struct ListedGroup {
  std::string name;
  std::vector<Entry> lines;
};

// Groups that have lines, in the order of their primary groups' names, by their own names within
// one. Lines of a group that the group master does not know come last, so that the totals are those
// of the whole year.
std::vector<ListedGroup> listedGroups(ServiceObject& host, std::vector<Entry> lines);

}  // namespace quillet
