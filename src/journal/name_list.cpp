#include "journal/name_list.h"

#include <algorithm>
#include <utility>

#include "data/text.h"

namespace quillet {
namespace {

bool less(const NameList::Entry& a, const NameList::Entry& b) { return a.capitals < b.capitals; }

// Letters and digits; what is not ASCII counts as a letter.
bool inWord(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || static_cast<unsigned char>(c) >= 0x80;
}

bool wordBegins(const std::string& capitals, const std::string& wanted) {
  for (std::size_t at = capitals.find(wanted, 1); at != std::string::npos;
       at = capitals.find(wanted, at + 1)) {
    if (!inWord(capitals[at - 1])) return true;
  }
  return false;
}

}  // namespace

void NameList::append(std::string name, long id) {
  std::string capitals = upperCase(trimmed(name));
  entries_.push_back({std::move(name), id, std::move(capitals)});
}

void NameList::sort() { std::stable_sort(entries_.begin(), entries_.end(), less); }

void NameList::insert(std::string name, long id) {
  std::string capitals = upperCase(trimmed(name));
  const auto at = lowerBound(capitals);
  entries_.insert(at, {std::move(name), id, std::move(capitals)});
}

std::vector<NameList::Entry>::const_iterator NameList::lowerBound(
    const std::string& capitals) const {
  return std::lower_bound(
      entries_.begin(), entries_.end(), capitals,
      [](const Entry& entry, const std::string& text) { return entry.capitals < text; });
}

const NameList::Entry* NameList::find(std::string_view name) const {
  const std::string wanted = upperCase(trimmed(name));
  const auto at = lowerBound(wanted);
  return at != entries_.end() && at->capitals == wanted ? &*at : nullptr;
}

const NameList::Entry* NameList::beginning(std::string_view text) const {
  const std::string wanted = upperCase(trimmed(text));
  const auto at = lowerBound(wanted);
  const bool begins = at != entries_.end() && at->capitals.starts_with(wanted);
  return begins && !wanted.empty() ? &*at : nullptr;
}

NameList::Matches NameList::matching(std::string_view text) const {
  const std::string wanted = upperCase(trimmed(text));
  Matches matches;
  auto at = lowerBound(wanted);
  for (; at != entries_.end() && at->capitals.starts_with(wanted); ++at) {
    matches.entries.push_back(&*at);
  }
  matches.beginning = matches.entries.size();
  if (wanted.empty()) return matches;
  for (const Entry& entry : entries_) {
    if (!entry.capitals.starts_with(wanted) && wordBegins(entry.capitals, wanted)) {
      matches.entries.push_back(&entry);
    }
  }
  return matches;
}

}  // namespace quillet
