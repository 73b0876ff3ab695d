// Backing up and restoring as a person does it from the window.
#pragma once

#include <filesystem>
#include <string>

#include "suite/standalone_environment.h"

namespace quillet::suite::backup {

class BackupCommands {
 public:
  explicit BackupCommands(Practice& practice) : practice_(practice) {}

  // Each asks for the file and tells how it went.
  void backUp();
  // The backup is brought back by a program that is started anew, since the database starts once in
  // a process: this only chooses it, and closes the forms.
  void restore();
  // The backup that is to be brought back, empty for none.
  const std::filesystem::path& chosen() const { return chosen_; }

  // Without asking anything. Throws std::runtime_error in the middle of an act.
  void write(const std::filesystem::path& file);
  // Nothing else may be done at present: an act or one of these commands is under way.
  bool busy() const { return atWork_ || practice_.context().openForms.acts.running(); }

 private:
  // True, and a person was told, for books that are on a server.
  bool onServer(const std::string& instead);
  bool replaces(const std::filesystem::path& file);
  bool closeForms();
  void tell(const std::string& text, Icon icon);

  Practice& practice_;
  std::filesystem::path chosen_;
  bool atWork_ = false;
};

}  // namespace quillet::suite::backup
