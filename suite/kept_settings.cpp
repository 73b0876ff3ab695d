#include "suite/kept_settings.h"

#include <filesystem>

#include "suite/atomic_file.h"
#include "suite/server_settings.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;
using State = Settings::State;

std::string placeOf(const ServerAddress& server) {
  return server.place() + ", database " + server.database;
}

}  // namespace

KeptSettings::KeptSettings(const DataFolder& folder) : folder_(folder) {
  if (Settings::stateOf(folder.keptSettings()) == State::whole)
    kept_.emplace(folder.keptSettings());
}

bool KeptSettings::nameServer() const { return kept_ && serverIn(*kept_); }

std::string KeptSettings::loss() const {
  const std::string file = folder_.settings().string();
  switch (Settings::stateOf(folder_.settings())) {
    case State::missing:
      return "The settings of the practice are gone: there is no file " + file + ".";
    case State::unreadable:
      return "The settings of the practice cannot be read: the file " + file + '.';
    case State::empty:
      return "The settings of the practice are lost: the file " + file + " is empty.";
    case State::foreign:
      return "The settings of the practice are lost: the file " + file + " does not begin with \"" +
             Settings::firstLine + "\".";
    case State::cut:
      // Settings that no program of this version has written yet have no last line.
      if (!kept_) break;
      return "The settings of the practice are cut off: the file " + file +
             " does not hold the line \"" + Settings::lastLine + "\".";
    case State::whole:
      break;
  }
  if (!nameServer() || serverIn(Settings(folder_.settings()))) return {};
  return "The books of the practice are on a server (" + placeOf(*serverIn(*kept_)) +
         "), but the file " + file + " names none any more.";
}

bool KeptSettings::areOffered() const {
  return kept_ && Settings::stateOf(folder_.settings()) != State::unreadable;
}

bool KeptSettings::isReadable() const {
  const State state = Settings::stateOf(folder_.settings());
  return state == State::whole || state == State::cut;
}

std::string KeptSettings::remedy() const {
  if (Settings::stateOf(folder_.settings()) == State::unreadable) {
    return "The books were not touched. Make the file your own and readable, as with: chmod u+rw.";
  }
  if (!kept_) {
    return "The books were not touched. Bring settings.ini back from a backup. If there is none, "
           "and"
           " the books have always been in this folder, make that file with the one line \"" +
           std::string(Settings::firstLine) + "\".";
  }
  return "The books were not touched. Copy the file " + folder_.keptSettings().string() +
         ", which holds the settings of the last start, to settings.ini." +
         (isReadable() ? " If settings.ini is as you want it, remove that file instead." : "");
}

void KeptSettings::putBack() const {
  std::error_code ignored;
  fs::rename(folder_.settings(), folder_.settings().string() + ".bad", ignored);
  writeAtomically(folder_.settings(), kept_->text());
}

void KeptSettings::keep(const Settings& settings) const {
  if (!kept_ || kept_->text() != settings.text()) {
    writeAtomically(folder_.keptSettings(), settings.text());
  }
}

}  // namespace quillet::suite
