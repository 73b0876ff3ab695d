#include "suite/preferences.h"

#include <algorithm>

#include "data/text.h"

namespace quillet::suite {
namespace {

constexpr const char* preferencesSection = "Settings";

constexpr Preference::Value groupings[] = {{"written", "As it is"},
                                           {"none", "None: 1234567.50"},
                                           {"thousands", "Thousands: 1,234,567.50"},
                                           {"lakhs", "Lakhs: 12,34,567.50"}};
constexpr Preference::Value themes[] = {
    {"system", "As the system"}, {"light", "Light"}, {"dark", "Dark"}};
constexpr Preference::Value orientations[] = {
    {"automatic", "As the report needs it"}, {"portrait", "Portrait"}, {"landscape", "Landscape"}};

}  // namespace

std::string Preference::in(const Settings& settings) const {
  const std::string kept = settings.get(preferencesSection, key);
  const auto found = std::ranges::find_if(
      values, [&](const Value& value) { return equalIgnoringCase(value.kept, kept); });
  return found == values.end() ? values.front().kept : found->kept;
}

void Preference::keep(Settings& settings, const std::string& value) const {
  settings.set(preferencesSection, key, value);
}

namespace preferences {

const Preference grouping{"Grouping", groupings};
const Preference theme{"Theme", themes};
const Preference orientation{"PrintOrientation", orientations};

}  // namespace preferences

}  // namespace quillet::suite
