// The deletion form as the home form opens it, and what follows from a deletion for the rest of the
// module: an editor open on the year closes, and the year is no longer the one in work.
#pragma once

#include <functional>
#include <string>

#include "books/registry.h"
#include "deletion/frmdelwhatinTB.h"
#include "host/context.h"

namespace quillet {

class third;

class YearRemoval {
 public:
  YearRemoval(third& form, Context& context) : form_(form), context_(context), deletion_(context) {}

  using Removed = std::function<void(const frmdelwhatinTB& deletion)>;
  // Opens the deletion form in the home form's mode. `removed` runs when it has closed and anything
  // was deleted, if only by a try that failed.
  void open(const RegisteredYear& year, Removed removed);

 private:
  void takeOutOfWork(const RegisteredYear& year);

  third& form_;
  Context& context_;
  frmdelwhatinTB deletion_;
};

// An editor left open on the year would write its next line into what was removed.
void closeEditorOf(Context& context, const std::string& client, const std::string& table);

}  // namespace quillet
