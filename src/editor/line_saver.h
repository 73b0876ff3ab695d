// Saves the line that the entry fields hold, and brings back what a save that failed has taken out:
// the next deed, in whatever year, begins with that.
#pragma once

#include <string>

#include "books/line_replacement.h"
#include "editor/entry_fields.h"
#include "editor/lines_grid.h"

namespace quillet {

class LineSaver {
 public:
  LineSaver(frmcrtb& form, OpenBooks& books, EntryFields& entry, LinesGrid& lines);

  void save();

  // Nothing is left out of the books by a save that failed.
  bool complete() const { return replacement_.complete(); }
  // Puts back what is; true when the books are as they were before the save.
  bool putBack();
  // For deeds that change the lines in another way, after which the line could not be put back:
  // says so when it is still out.
  bool mayChangeLines();
  // The host took back what the act had changed. What was typed, when that was a save.
  std::optional<EntryFields::Fields> takenBack();
  // The editor is closed. The lines are not read again: a year that was deleted would offer its
  // import.
  void close();

 private:
  void remember();
  void tellMoved();
  void showSaved(const YearLine& saved);
  void showFailure(TwoYears::Year year);
  bool writeBack();
  void tellMissing(const std::string& outcome);

  frmcrtb& form_;
  OpenBooks& books_;
  EntryFields& entry_;
  LinesGrid& lines_;
  LineReplacement replacement_;
  // As it was before the act of that number changed it.
  struct Before {
    unsigned long act = 0;
    LineReplacement::Left left;
    std::optional<EntryFields::Fields> saved;  // what the act saved, if it did
  };
  Before before_;
};

}  // namespace quillet
