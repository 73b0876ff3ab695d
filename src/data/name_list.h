// Names with their ids, ordered as a person reads them and searched while a name is typed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

class NameList {
 public:
  struct Entry {
    std::string name;
    long id;
    std::string key;
  };

  void clear() { entries_.clear(); }
  // Makes room for that many names.
  void reserve(std::size_t names) { entries_.reserve(names); }
  // Adds a name at the end; sort() follows the last one.
  void append(std::string name, long id);
  void sort();
  // Adds a name in its place.
  void insert(std::string name, long id);
  bool empty() const { return entries_.empty(); }

  const std::vector<Entry>& entries() const { return entries_; }
  // The entry written just so, else the first of the same name; null when there is none.
  const Entry* find(std::string_view name) const;
  const Entry* findId(long id) const;
  // The first entry that begins with the text; null when there is none or the text is empty.
  const Entry* beginning(std::string_view text) const;

  // Entries that begin with the text, then those that do so but for blanks and punctuation, then
  // those with a word inside that does. An empty text matches all.
  struct Matches {
    std::vector<const Entry*> entries;
    std::size_t beginning = 0;  // how many of them begin with the text
  };
  Matches matching(std::string_view text) const;

 private:
  std::vector<Entry>::const_iterator lowerBound(const std::string& key) const;

  std::vector<Entry> entries_;
};

}  // namespace quillet
