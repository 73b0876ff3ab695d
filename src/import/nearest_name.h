// Names that are nearly the same: but for case, blanks, punctuation and "and", or but for a letter
// or two. Made once for tens of thousands of names, then asked for thousands.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/names.h"

namespace quillet {

class NearestNames {
 public:
  enum class Distance {
    same,   // sameName of data/names.h
    alike,  // but for punctuation, blanks, "and" for "&", "A/c", "M/s"
    near,   // but for a letter or two
    none
  };
  struct Found {
    Distance distance = Distance::none;
    NamedId name;
  };

  explicit NearestNames(std::vector<NamedId> names);

  // The one written just so first, then the first of the nearest.
  Found find(std::string_view name) const;

 private:
  struct Key {
    std::u32string letters;
    std::size_t name = 0;
  };
  std::vector<std::size_t> candidates(const std::u32string& letters) const;

  std::vector<NamedId> names_;
  std::vector<std::u32string> letters_;
  std::unordered_map<std::string, std::size_t> same_;
  std::unordered_map<std::string, std::size_t> alike_;
  std::unordered_map<std::u32string, std::vector<std::size_t>> pieces_;
};

}  // namespace quillet
