#include "windows/host/kept_settings.h"

#include <map>
#include <memory>
#include <utility>

#include "windows/host/offered.h"

namespace quillet::windows {
namespace {

// Beside whatever else the host keeps.
std::string ours(const std::string& section) { return "Quillet" + section; }

}  // namespace

// Each setting is read once: the columns of a grid are looked up whenever it is drawn.
view::KeptPlaces::Store keptSettings(ServiceObject& host) {
  using Key = std::pair<std::string, std::string>;
  const auto known = std::make_shared<std::map<Key, std::string>>();
  const auto get = [&host, known](const std::string& section, const std::string& key) {
    const auto [entry, isNew] = known->try_emplace({section, key});
    if (isNew) ifOffered([&] { entry->second = host.GetSettingINI(ours(section), key, {}); });
    return entry->second;
  };
  const auto set = [&host, known](const std::string& section, const std::string& key,
                                  const std::string& value) {
    (*known)[{section, key}] = value;
    ifOffered([&] { host.SaveSettingINI(ours(section), key, value); });
  };
  return {get, set};
}

}  // namespace quillet::windows
