// One late-bound call of an object of ours: what the caller hands over, in the caller's order.
#pragma once

#include <ole2.h>

#include <cstddef>
#include <string>
#include <vector>

#include "windows/com/variant.h"

namespace quillet::windows {

class Call {
 public:
  // Throws when the arguments have names, which nothing here knows.
  Call(WORD flags, const DISPPARAMS& parameters);

  // A property is set; `value` then is what to.
  bool sets() const { return sets_; }
  const VARIANT& value() const { return *value_; }

  // Besides the value. Arguments left out at the end do not count.
  std::size_t count() const { return arguments_.size(); }
  bool has(std::size_t at) const { return at < count() && !isNull(*arguments_[at]); }
  const VARIANT& operator[](std::size_t at) const { return *arguments_.at(at); }

 private:
  bool sets_ = false;
  const VARIANT* value_ = nullptr;
  std::vector<const VARIANT*> arguments_;
};

// An argument or value that has to be there: Null and an object are a wrong type, Empty is "" or 0.
std::string textArgument(const VARIANT& value);
int numberArgument(const VARIANT& value);
double realArgument(const VARIANT& value);
bool truthArgument(const VARIANT& value);

}  // namespace quillet::windows
