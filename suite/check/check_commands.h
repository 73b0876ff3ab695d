// Examining and mending the books as a person does it from the window.
#pragma once

#include "suite/check/books_check.h"
#include "suite/standalone_environment.h"

namespace quillet::suite::check {

class CheckCommands {
 public:
  explicit CheckCommands(Practice& practice) : practice_(practice) {}

  // Shows the report. True when there is something to mend, which is to be offered when the report
  // has been read.
  bool examine();
  // Asks, mends, and shows what is left. Refused while forms show books, which they would go on
  // showing.
  void offerMending();

 private:
  Examination examineWithProgress();
  void mend();
  void tell(const std::string& text, Icon icon);

  Practice& practice_;
  std::size_t mendable_ = 0;
};

}  // namespace quillet::suite::check
