#include "import/nearest_name.h"

#include <algorithm>

#include "data/text.h"
#include "import/heading_words.h"

namespace quillet {
namespace {

constexpr std::size_t shortest = 4;  // letters of a name that may be one letter off

// Words that are written in several ways, or left out.
std::string_view usualWord(std::string_view word) {
  if (word == "LIMITED") return "LTD";
  if (word == "PRIVATE") return "PVT";
  if (word == "COMPANY") return "CO";
  if (word == "ACCOUNT" || word == "AC" || word == "MS" || word == "AND") return "";
  return word;
}

std::string digitsIn(std::string_view text) {
  std::string digits;
  std::copy_if(text.begin(), text.end(), std::back_inserter(digits),
               [](char c) { return c >= '0' && c <= '9'; });
  return digits;
}

}  // namespace

std::string alikeKey(std::string_view name) {
  std::string words = plainWords(name);
  // "A/c" and "M/s" are two words by now.
  if (words.starts_with("M S ")) words.erase(0, 4);
  if (words.ends_with(" A C")) words.resize(words.size() - 4);
  words = replacedAll(words, " A C ", " ");
  std::string key;
  for (std::size_t at = 0; at < words.size();) {
    const std::size_t end = std::min(words.find(' ', at), words.size());
    key += usualWord(std::string_view(words).substr(at, end - at));
    at = end + 1;
  }
  return key.empty() ? nameKey(name) : key;
}

std::vector<std::uint64_t> NearestNames::reductionsOf(std::u32string_view letters) {
  constexpr std::uint64_t base = 0x9E3779B97F4A7C15U;
  const std::size_t count = letters.size();
  // What the letters after each place add to a number that the letters before it began.
  std::vector<std::uint64_t> after(count + 1, 0);
  std::vector<std::uint64_t> power(count + 1, 1);
  for (std::size_t i = 0; i < count; ++i) power[i + 1] = power[i] * base;
  for (std::size_t i = count; i-- > 0;) {
    after[i] = letters[i] * power[count - 1 - i] + after[i + 1];
  }
  std::vector<std::uint64_t> reductions;
  std::uint64_t before = 0;
  for (std::size_t i = 0; i < count; ++i) {
    reductions.push_back(before * power[count - 1 - i] + after[i + 1]);
    before = before * base + letters[i];
  }
  reductions.push_back(before);
  return reductions;
}

NearestNames::NearestNames(std::vector<NamedId> names) : names_(std::move(names)) {
  for (std::size_t i = 0; i < names_.size(); ++i) {
    const std::string& name = names_[i].name;
    same_.emplace(nameKey(name), i);
    const std::string key = alikeKey(name);
    if (!alike_.emplace(key, i).second) continue;
    for (const std::uint64_t hash : reductionsOf(charactersOf(key))) {
      reduced_.push_back({hash, static_cast<std::uint32_t>(i)});
    }
  }
  std::sort(reduced_.begin(), reduced_.end());
}

NearestNames::Found NearestNames::find(std::string_view name) const {
  const auto [asked, isNew] = asked_.try_emplace(std::string(name));
  if (isNew) asked->second = search(name);
  const Place place = asked->second;
  return place.distance == Distance::none ? Found{} : Found{place.distance, names_[place.name]};
}

NearestNames::Place NearestNames::search(std::string_view name) const {
  if (const auto same = same_.find(nameKey(name)); same != same_.end()) {
    return {Distance::same, same->second};
  }
  const std::string key = alikeKey(name);
  if (const auto alike = alike_.find(key); alike != alike_.end()) {
    return {Distance::alike, alike->second};
  }
  const std::u32string letters = charactersOf(key);
  if (letters.size() < shortest) return {};
  // Numbers tell names apart, in one figure too.
  const std::string digits = digitsIn(key);
  for (const std::uint64_t hash : reductionsOf(letters)) {
    auto at = std::lower_bound(reduced_.begin(), reduced_.end(), Reduced{hash, 0});
    for (; at != reduced_.end() && at->hash == hash; ++at) {
      if (digitsIn(names_[at->name].name) == digits) return {Distance::near, at->name};
    }
  }
  return {};
}

}  // namespace quillet
