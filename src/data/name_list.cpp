#include "data/name_list.h"

#include <algorithm>
#include <utility>

#include "data/names.h"
#include "data/text.h"

namespace quillet {
namespace {

// Letters and digits; what is not ASCII counts as a letter.
bool inWord(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || static_cast<unsigned char>(c) >= 0x80;
}

// Moves to the next letter or digit. Beyond ASCII the dashes and quotation marks of U+2000 to
// U+207F are punctuation too.
void skipMarks(std::string_view key, std::size_t& at) {
  while (at < key.size() && (!inWord(key[at]) || key.substr(at).starts_with("\xE2\x80") ||
                             key.substr(at).starts_with("\xE2\x81"))) {
    at += inWord(key[at]) ? 3 : 1;
  }
}

// Whether the key begins with what is wanted when blanks and punctuation do not count, except that
// one at the end says that the word ends there.
bool beginsLoosely(std::string_view key, std::string_view wanted) {
  std::size_t at = 0;
  std::size_t letters = 0;
  for (std::size_t i = 0;; ++i, ++at, ++letters) {
    skipMarks(wanted, i);
    if (i >= wanted.size()) {
      const bool wordEnds = at >= key.size() || !inWord(key[at]);
      return letters > 0 && (inWord(wanted.back()) || wordEnds);
    }
    skipMarks(key, at);
    if (at >= key.size() || key[at] != wanted[i]) return false;
  }
}

bool wordBegins(const std::string& key, const std::string& wanted) {
  for (std::size_t at = key.find(wanted, 1); at != std::string::npos;
       at = key.find(wanted, at + 1)) {
    if (!inWord(key[at - 1])) return true;
  }
  return false;
}

}  // namespace

void NameList::append(std::string name, long id) {
  std::string key = nameKey(name);
  entries_.push_back({std::move(name), id, std::move(key)});
}

void NameList::sort() {
  std::vector<std::string> keys;
  keys.reserve(entries_.size());
  for (Entry& entry : entries_) keys.push_back(std::move(entry.key));
  std::vector<Entry> sorted;
  sorted.reserve(entries_.size());
  for (const std::size_t at : orderOf(keys)) {
    sorted.push_back({std::move(entries_[at].name), entries_[at].id, std::move(keys[at])});
  }
  entries_ = std::move(sorted);
}

void NameList::insert(std::string name, long id) {
  std::string key = nameKey(name);
  const auto at = lowerBound(key);
  entries_.insert(at, {std::move(name), id, std::move(key)});
}

std::vector<NameList::Entry>::const_iterator NameList::lowerBound(const std::string& key) const {
  return std::lower_bound(
      entries_.begin(), entries_.end(), key,
      [](const Entry& entry, const std::string& text) { return entry.key < text; });
}

const NameList::Entry* NameList::find(std::string_view name) const {
  const std::string wanted = nameKey(name);
  const auto first = lowerBound(wanted);
  if (first == entries_.end() || first->key != wanted) return nullptr;
  for (auto at = first; at != entries_.end() && at->key == wanted; ++at) {
    if (at->name == name) return &*at;
  }
  return &*first;
}

const NameList::Entry* NameList::findId(long id) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const Entry& entry) { return entry.id == id; });
  return found == entries_.end() ? nullptr : &*found;
}

const NameList::Entry* NameList::beginning(std::string_view text) const {
  const std::string wanted = beginningKey(text);
  const auto at = lowerBound(wanted);
  const bool begins = at != entries_.end() && at->key.starts_with(wanted);
  return begins && !wanted.empty() ? &*at : nullptr;
}

NameList::Matches NameList::matching(std::string_view text) const {
  const std::string wanted = beginningKey(text);
  Matches matches;
  if (wanted.empty()) {
    matches.entries.reserve(entries_.size());
    for (const Entry& entry : entries_) matches.entries.push_back(&entry);
    matches.beginning = entries_.size();
    return matches;
  }
  auto at = lowerBound(wanted);
  for (; at != entries_.end() && at->key.starts_with(wanted); ++at) {
    matches.entries.push_back(&*at);
  }
  matches.beginning = matches.entries.size();
  std::vector<const Entry*> inside;
  for (const Entry& entry : entries_) {
    if (entry.key.starts_with(wanted)) continue;
    if (beginsLoosely(entry.key, wanted)) {
      matches.entries.push_back(&entry);
    } else if (wordBegins(entry.key, wanted)) {
      inside.push_back(&entry);
    }
  }
  matches.entries.insert(matches.entries.end(), inside.begin(), inside.end());
  return matches;
}

}  // namespace quillet
