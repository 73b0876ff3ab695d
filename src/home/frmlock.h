// Locks a client's year or unlocks it, and asks for the reason. Modal; the opener hands the year
// over with INITDATA and reads done() when the form has closed.
#pragma once

#include <optional>
#include <string>

#include "books/registry.h"
#include "controls/basic_controls.h"
#include "controls/form.h"
#include "controls/text_box.h"
#include "host/context.h"

namespace quillet {

class frmlock : public Form {
 public:
  explicit frmlock(Context& context);

  // Locks the year, or unlocks it when it is locked.
  void INITDATA(const std::string& client, const std::string& clientName, const YearKeys& keys);
  bool done() const { return done_; }
  // Whether it was to be unlocked.
  bool unlocks() const { return unlocks_; }

  LayoutItem layout() override;
  void takenBack() override { done_ = false; }

  Label lblsubject{*this, "lblsubject"};
  Label lbllock{*this, "lbllock"};  // what the lock does, or what it says
  TextBox txtreason{*this, "txtreason"};
  Button cmdok{*this, "cmdok"};
  Button cmdcancel{*this, "cmdcancel", "&Cancel"};

  void FORM_LOAD();
  void FORM_KEYPRESS(Key& key);
  void CMDOK_CLICK();
  void CMDCANCEL_CLICK();

 protected:
  void load() override { FORM_LOAD(); }

 private:
  // False, and a person was told, when another station was quicker.
  bool stands();

  Context& context_;
  std::string client_;
  YearKeys keys_;
  bool unlocks_ = false;
  bool done_ = false;
};

}  // namespace quillet
