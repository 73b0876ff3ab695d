// Looks for words, in capitals or not.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillet {

// The words of a search: a text that holds them all is found.
class WordSearch {
 public:
  explicit WordSearch(std::string_view text);
  bool finds(std::string_view text) const;
  // The same for a text that is a nameKey already.
  bool findsIn(std::string_view key) const;
  bool empty() const { return words_.empty(); }

 private:
  std::vector<std::string> words_;
};

}  // namespace quillet
