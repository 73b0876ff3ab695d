// What a person prefers to see, chosen on the settings page and kept with the settings: each
// preference has a key and the values that it can take, the first of which is the usual one.
#pragma once

#include <span>
#include <string>

#include "suite/settings.h"

namespace quillet::suite {

struct Preference {
  struct Value {
    const char* kept;   // as the settings hold it
    const char* shown;  // as a person reads it
  };
  const char* key;
  std::span<const Value> values;

  // What the settings hold, the usual value where they hold none of these.
  std::string in(const Settings& settings) const;
  void keep(Settings& settings, const std::string& value) const;
};

namespace preferences {

// How figures are divided when they are painted: "written" leaves them as they are, "none",
// "thousands", "lakhs".
extern const Preference grouping;
// "system", "light", "dark".
extern const Preference theme;
// How printed sheets lie: "automatic", "portrait", "landscape".
extern const Preference orientation;

}  // namespace preferences

}  // namespace quillet::suite
