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

  // Before the first question about the year: other stations only read it from now on, until
  // leave(), or until the deletion form has closed and what follows from that is done. A person is
  // asked whether to take it over from one that has it. False when not, and, after they were told,
  // when it is locked.
  bool take(const std::string& client, const YearKeys& year);
  void leave() { deletion_.hold.leave(); }

  using Removed = std::function<void(const frmdelwhatinTB& deletion)>;
  // Opens the deletion form in the home form's mode. `removed` runs when it has closed and anything
  // was deleted, if only by a try that failed.
  void open(const RegisteredYear& year, Removed removed);
  // The deletion form is open, or closing: what follows shows the years anew.
  bool runs() const { return runs_; }

 private:
  bool wantsToTakeOver(const std::string& client, const YearKeys& year, const YearLock& lock);
  void takeOutOfWork(const RegisteredYear& year);

  third& form_;
  Context& context_;
  frmdelwhatinTB deletion_;
  bool runs_ = false;
};

// Whatever happens meanwhile.
struct HoldUntilEnd {
  YearHold& hold;
  ~HoldUntilEnd() { hold.leave(); }
};

// An editor left open on the year would write its next line into what was removed.
void closeEditorOf(Context& context, const std::string& client, const std::string& table);

}  // namespace quillet
