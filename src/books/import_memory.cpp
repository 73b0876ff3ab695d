#include "books/import_memory.h"

#include <algorithm>
#include <charconv>

#include "books/linked_ledgers.h"
#include "books/merged_groups.h"

namespace quillet {
namespace {

constexpr const char* importSection = "Import";
constexpr const char* mappingsKey = "Mappings";
constexpr const char* chosenGroups = "Groups";
constexpr const char* meantLedgers = "Ledgers";

// A value of the host holds 65,535 bytes.
constexpr std::size_t mostBytes = 60'000;

// Neither a tab nor a line break stands inside of a text that is kept.
std::string oneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
  return text;
}

std::unordered_map<std::string, long> idsOf(const KeptTexts& texts) {
  std::unordered_map<std::string, long> ids;
  for (const auto& [key, text] : texts.all()) {
    long id = 0;
    std::from_chars(text.data(), text.data() + text.size(), id);
    if (id > 0) ids[key] = id;
  }
  return ids;
}

}  // namespace

KeptTexts::KeptTexts(const std::string& stored) {
  for (std::size_t at = 0; at < stored.size();) {
    const std::size_t end = std::min(stored.find('\n', at), stored.size());
    const std::string line = stored.substr(at, end - at);
    at = end + 1;
    const std::size_t tab = line.find('\t');
    if (tab != std::string::npos) texts_.emplace_back(line.substr(0, tab), line.substr(tab + 1));
  }
}

std::optional<std::string> KeptTexts::find(const std::string& key) const {
  const std::string wanted = oneLine(key);
  const auto found = std::find_if(texts_.rbegin(), texts_.rend(),
                                  [&](const auto& each) { return each.first == wanted; });
  return found == texts_.rend() ? std::nullopt : std::optional(found->second);
}

void KeptTexts::keep(const std::string& key, const std::string& text) {
  const std::string kept = oneLine(key);
  std::erase_if(texts_, [&](const auto& each) { return each.first == kept; });
  texts_.emplace_back(kept, oneLine(text));
}

std::string KeptTexts::stored() const {
  std::size_t bytes = 0;
  auto first = texts_.end();
  while (first != texts_.begin()) {
    const auto& [key, text] = *std::prev(first);
    bytes += key.size() + text.size() + 2;
    if (bytes > mostBytes) break;
    --first;
  }
  std::string all;
  for (; first != texts_.end(); ++first) all += first->first + '\t' + first->second + '\n';
  return all;
}

std::string ImportMemory::keyOf(const char* what) const {
  return std::string(what) + ' ' + client_;
}

std::string ImportMemory::filesKey() const { return keyOf("Files") + ' ' + year_.first; }

KeptTexts ImportMemory::read(const std::string& key) const {
  return KeptTexts(host_.GetMiscOthInf(importSection, key, ""));
}

void ImportMemory::write(const std::string& key, const KeptTexts& texts, const std::string& year) {
  host_.SetMiscOthInf(importSection, key, texts.stored(), client_, year);
}

std::string ImportMemory::mapping(const std::string& headings) const {
  return read(keyOf(mappingsKey)).find(headings).value_or("");
}

std::unordered_map<std::string, long> ImportMemory::groups() const {
  auto ids = idsOf(read(keyOf(chosenGroups)));
  const MergedGroups merged(host_);
  for (auto& [name, id] : ids) id = merged.successor(id);
  return ids;
}

std::unordered_map<std::string, long> ImportMemory::ledgers() const {
  auto ids = idsOf(read(keyOf(meantLedgers)));
  const LinkedLedgers linked(host_);
  for (auto& [name, id] : ids) id = linked.successor(id);
  return ids;
}

std::optional<std::string> ImportMemory::imported(const std::string& file) const {
  return read(filesKey()).find(file);
}

void ImportMemory::keepIds(const char* what, const std::vector<std::pair<std::string, long>>& ids) {
  if (ids.empty()) return;
  KeptTexts texts = read(keyOf(what));
  for (const auto& [name, id] : ids) texts.keep(name, std::to_string(id));
  write(keyOf(what), texts);
}

void ImportMemory::keep(const Additions& additions) {
  KeptTexts known = read(keyOf(mappingsKey));
  known.keep(additions.headings, additions.mapping);
  write(keyOf(mappingsKey), known);
  keepIds(chosenGroups, additions.groups);
  keepIds(meantLedgers, additions.ledgers);
  if (additions.file.empty()) return;
  KeptTexts files = read(filesKey());
  files.keep(additions.file, additions.note);
  write(filesKey(), files, year_.first);
}

}  // namespace quillet
