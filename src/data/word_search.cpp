#include "data/word_search.h"

#include <algorithm>
#include <sstream>

#include "data/names.h"

namespace quillet {

WordSearch::WordSearch(std::string_view text) {
  std::istringstream words(nameKey(text));
  for (std::string word; words >> word;) words_.push_back(word);
}

bool WordSearch::finds(std::string_view text) const {
  return words_.empty() || findsIn(nameKey(text));
}

bool WordSearch::findsIn(std::string_view key) const {
  return std::all_of(words_.begin(), words_.end(), [&](const std::string& word) {
    return key.find(word) != std::string_view::npos;
  });
}

}  // namespace quillet
