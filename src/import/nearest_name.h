// Names that are nearly the same: but for case, blanks, punctuation and "and", or but for a letter.
// Made once for tens of thousands of names, then asked for thousands.
#pragma once

#include <cstdint>
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
    near,   // but for a letter
    none
  };
  struct Found {
    Distance distance = Distance::none;
    NamedId name;
  };

  explicit NearestNames(std::vector<NamedId> names);

  // The one written just so first, then the first of the nearest. What was asked is kept: each
  // choice in a review asks for the same names again.
  Found find(std::string_view name) const;

 private:
  // A name with one letter left out, as a number; names that share one differ in a letter.
  struct Reduced {
    std::uint64_t hash = 0;
    std::uint32_t name = 0;
    auto operator<=>(const Reduced&) const = default;
  };
  static std::vector<std::uint64_t> reductionsOf(std::u32string_view letters);

  struct Place {
    Distance distance = Distance::none;
    std::size_t name = 0;
  };
  Place search(std::string_view name) const;

  std::vector<NamedId> names_;
  std::unordered_map<std::string, std::size_t> same_;
  std::unordered_map<std::string, std::size_t> alike_;
  std::vector<Reduced> reduced_;
  mutable std::unordered_map<std::string, Place> asked_;
};

// The same text for names that are alike.
std::string alikeKey(std::string_view name);

}  // namespace quillet
