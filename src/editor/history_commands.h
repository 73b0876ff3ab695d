// The editor's ways into the history of the year in view, where the host keeps one.
#pragma once

#include "editor/open_books.h"

namespace quillet {

class frmcrtb;

class HistoryCommands {
 public:
  HistoryCommands(frmcrtb& form, OpenBooks& books);

  void setButtons();

 private:
  void show(void (BooksHistory::*window)(const YearOfClient& year));

  frmcrtb& form_;
  OpenBooks& books_;
};

}  // namespace quillet
