// The client grid: the register's clients under the columns that a person set up, searched as one
// types, filtered by status and group.
//
// Typing works in the grid as in the search box; arrows, Enter and the rest stay the grid's. The
// filters and the columns are settings of the suite (data/client_columns.h).
#pragma once

#include <string>
#include <vector>

#include "controls/basic_controls.h"
#include "controls/choice.h"
#include "controls/grid.h"
#include "controls/layout.h"
#include "controls/text_box.h"
#include "home/client_list.h"
#include "host/context.h"

namespace quillet {

class ClGrd : public Grid {
 public:
  ClGrd(Form& form, const std::string& name, Context& context);

  // Reads the register and shows the clients of that status and group; "" for all. A filter that
  // would hide every client is dropped.
  void LoadClList(const std::string& status, const std::string& group);
  // The same with the filters of the settings, when register or settings are not as they were read.
  // The current client, the search and the order stay.
  void refresh();
  // What the last of these two has to tell, "" for nothing.
  const std::string& notice() const { return notice_; }
  // Without clients and search, as before the first reading.
  void empty();
  // Puts the cursor on the client chosen last, on the first one when that is not shown.
  void SelectLastClient();

  int Row() const { return current(); }
  // "Code" and "Name" are always 0 and 1, whichever columns are shown.
  std::string TextMatrix(int row, int column) const;

  // Puts the cursor on the client. A search or a filter that hides it is dropped.
  void showClient(const std::string& code);
  // What is said while the register is empty; Enter and a click then run EmptyClick.
  void setEmptyRegisterText(std::string text);

  // The search text; a new one goes to the first client found.
  void search(const std::string& text);
  // Puts column widths that a person dragged into the settings.
  void keepWidths();
  bool searching() const { return !txtsearch.text().empty(); }

  bool keepsWidths() const override { return true; }
  LayoutItem arrangement();

  TextBox txtsearch;
  ComboBox cbostatus;
  ComboBox cbogrpcode;
  Button cmdclients;
  Button cmdcolumns;
  Label lblcount;

 private:
  // The settings of the list.
  struct Setup {
    std::string status;
    std::string group;
    std::string columns;
    bool operator==(const Setup&) const = default;
  };
  Setup storedSetup() const;
  void remember(const char* key, const std::string& value, std::string Setup::*read);

  // The client that the cursor is on; to be asked before the list is read anew.
  std::string currentCode() const { return TextMatrix(current(), 0); }
  void showList(const std::string& status, const std::string& group, const std::string& current);
  void showColumns();
  void showClients(const std::string& current);
  bool setCurrentClient(const std::string& code);
  void choose();
  // Takes the filters that leave any client and says what became of the others.
  void takeFilters(const std::string& status, const std::string& group);
  // The filter as the list writes it, "" when no client answers to it.
  std::string fillFilter(ComboBox& box, std::size_t column, const std::string& wanted);
  void filterChosen();
  void dialogShown();
  void typed(Key& key);
  void movedFromSearch(Key& key);

  Context& context_;
  ClientList clients_;  // their positions are the ids of the rows
  std::vector<client_columns::Shown> columns_;
  Setup setup_;  // as the settings were read or written last
  std::string status_;
  std::string group_;
  std::string notice_;
  std::string emptyRegister_ = "There are no clients in the register.";
};

}  // namespace quillet
