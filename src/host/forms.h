// The public class of the module: through it the host says which client and trial balance to work
// on and obtains the two entry forms. Members stand in slot order.
#pragma once

#include <string>

#include "host/context.h"

namespace quillet {

class Forms {
 public:
  explicit Forms(Environment& environment);

  /* 0 */ std::string MyDllVersion() const;
  // The single instances, created on first use; null when creating one fails.
  /* 1 */ Form* ObjCreate();
  /* 2 */ Form* ObjThird();
  /* 3 */ void VClCode(const std::string& code);
  /* 4 */ void VFATbl(const std::string& table);
  /* 5 */ void VFDate(const std::string& firstDate);
  /* 6 */ void VSDate(const std::string& secondDate);

  Context& context() { return context_; }

 private:
  Context context_;
};

}  // namespace quillet
