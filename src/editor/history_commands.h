// The editor's ways into the history of the year in view, where the host keeps one.
#pragma once

#include "editor/open_books.h"

namespace quillet {

class EntryFields;
class frmcrtb;

class HistoryCommands {
 public:
  HistoryCommands(frmcrtb& form, OpenBooks& books, EntryFields& entry);

  void setButtons();

 private:
  YearOfClient yearInView() const;
  void MNUTAKEBACK_CLICK();
  void show(void (BooksHistory::*window)(const YearOfClient& year));

  frmcrtb& form_;
  OpenBooks& books_;
  EntryFields& entry_;
};

}  // namespace quillet
