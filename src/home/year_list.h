// The years of the chosen client in the home form's grid, and what is done with the one chosen
// there: it is opened in the editor, printed or deleted.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "books/registry.h"
#include "host/context.h"

namespace quillet {

class frmdelwhatinTB;
class third;

class YearList {
 public:
  YearList(third& form, Context& context);

  // Reads the years and shows them, the last one chosen; without any, says so.
  void show();
  // The same with that year or row chosen.
  void showAt(const YearKeys& year);
  void showAt(int row);
  // The same with the chosen year, none when it is there no more. Whoever is at work in the form
  // goes on where they were, and what is said there stays.
  void refresh();

  // The chosen year; nothing is done when there is none.
  const YearKeys* chosen() const;
  // The registry's row of the chosen year; nothing when somebody deleted it meanwhile, which a
  // message says.
  std::optional<RegisteredYear> findChosen();
  void open();
  void print();
  void remove();
  // The commands on the history of the chosen year, where the host keeps one.
  void offerHistory(bool offered);

 private:
  void showHistory(void (BooksHistory::*window)(const YearOfClient& year));
  void load();
  void tellRemoved(const frmdelwhatinTB& deletion, const std::string& year);

  third& form_;
  Context& context_;
  std::vector<YearKeys> years_;  // their positions from 1 are the ids of the rows
};

}  // namespace quillet
