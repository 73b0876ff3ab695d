// The name of the firm whose practice it is, as it stands at the head of every report. On a server
// it is the same at every station; a data folder has it in its settings.
#pragma once

#include <string>

#include "controls/text_box.h"
#include "ports/ports.h"
#include "suite/settings.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class FirmName {
 public:
  // Both outlive it.
  FirmName(Settings& settings, UnitOfWork& unit) : settings_(settings), unit_(unit) {}

  std::string get() const;
  void set(const std::string& name) const;
  // Keeps the name that was typed. One that is too long is refused with a message; the box has the
  // focus then, and false is returned.
  bool keep(Dialogs& dialogs, TextBox& box) const;

 private:
  Settings& settings_;
  UnitOfWork& unit_;
};

}  // namespace quillet::suite
