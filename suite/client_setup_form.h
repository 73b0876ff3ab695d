// Which columns the client list shows, in which order and how wide.
#pragma once

#include <vector>

#include "controls/basic_controls.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "data/client_columns.h"
#include "suite/settings.h"

namespace quillet::suite {

class frmClSetup : public Form {
 public:
  frmClSetup(OpenForms& openForms, Settings& settings);

  Grid vsf{*this, "vsf"};  // columns "Show" (tick), "Column", "Width"
  Button cmdup{*this, "cmdup", "Move &Up"};
  Button cmddown{*this, "cmddown", "Move &Down"};
  Button cmddefault{*this, "cmddefault", "De&fault"};
  Button cmdok{*this, "cmdok", "&OK"};
  Button cmdcancel{*this, "cmdcancel", "&Cancel"};

  LayoutItem layout() override;

 protected:
  void load() override;

 private:
  void show(const std::vector<client_columns::Shown>& columns);
  void edited(int row, int column);
  void move(int by);
  void enableMoves();
  void save();

  Settings& settings_;
};

}  // namespace quillet::suite
