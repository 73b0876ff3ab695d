// The client grid: the register's clients under the columns that a person set up, searched as one
// types, filtered by status and group.
//
// Typing works in the grid as in the search box; arrows, Enter and the rest stay the grid's. The
// filters and the columns are settings of the suite (data/client_columns.h).
#pragma once

#include <string>
#include <vector>

#include "controls/choice.h"
#include "controls/grid.h"
#include "controls/layout.h"
#include "controls/simple.h"
#include "controls/text_box.h"
#include "home/client_list.h"
#include "host/context.h"

namespace quillet {

class ClGrd : public Grid {
 public:
  ClGrd(Form& form, const std::string& name, Context& context);

  // Reads the register and shows the clients of that status and group; "" for all.
  void LoadClList(const std::string& status, const std::string& group);
  // Puts the cursor on the client chosen last, on the first one when that is not shown.
  void SelectLastClient();

  int Row() const { return current(); }
  // "Code" and "Name" are always 0 and 1, whichever columns are shown.
  std::string TextMatrix(int row, int column) const;

  // Reads settings again that the set-up dialogs may have changed.
  void refreshSetup();
  // The search text; a new one goes to the first client found.
  void search(const std::string& text);
  // Puts column widths that a person dragged into the settings.
  void keepWidths();
  bool searching() const { return !txtsearch.text().empty(); }

  Node arrangement();

  TextBox txtsearch;
  ComboBox cbostatus;
  ComboBox cbogrpcode;
  Button cmdcolumns;
  Label lblcount;

 private:
  void showColumns();
  void showClients();
  void fillFilter(ComboBox& box, std::size_t column, const char* all, const std::string& chosen);
  void filterChosen();
  void typed(Key& key);
  void movedFromSearch(Key& key);

  Context& context_;
  ClientList clients_;
  std::vector<client_columns::Shown> columns_;
  std::vector<std::size_t> shown_;  // positions of the clients in the rows
  std::string setup_;               // the column setting that columns_ stands for
  std::string status_;
  std::string group_;
};

}  // namespace quillet
