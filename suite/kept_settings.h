// The settings as they were when the practice was opened or closed last. Settings that were lost
// are noticed by them and put back: without them nobody could tell a practice whose books are on a
// server from one that has none yet.
#pragma once

#include <optional>
#include <string>

#include "suite/data_folder.h"
#include "suite/settings.h"

namespace quillet::suite {

class KeptSettings {
 public:
  explicit KeptSettings(const DataFolder& folder);

  // What is wrong with the settings of the folder, "" when nothing is: they are gone, empty, cut
  // off or somebody else's, or they name no server any more.
  std::string loss() const;
  // What a person does about it without us.
  std::string remedy() const;

  // Whether the practice was opened before.
  bool exist() const { return kept_.has_value(); }
  bool nameServer() const;
  // Whether they can take the place of what was lost. A file that cannot be read is not lost.
  bool areOffered() const;
  // Takes the place of the settings, which are kept beside as "settings.ini.bad".
  void putBack() const;
  void keep(const Settings& settings) const;

 private:
  bool isReadable() const;

  const DataFolder& folder_;
  std::optional<Settings> kept_;
};

}  // namespace quillet::suite
