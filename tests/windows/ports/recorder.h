// An object by name that writes down how it is called: the member, and each argument with its type.
#pragma once

#include <string>
#include <vector>

#include "fakes/named_object.h"

namespace quillet::fakes {

class Recorder : public MemberTable {
 public:
  // As "ConQuery(String 'flush tables')"; a value that is set as "helpid = String '2-2'".
  std::vector<std::string> calls;
  void answers(const std::string& member, const Variant& answer) {
    add(member, [answer](const Call&) { return answer; });
  }
  // It does not know the member any more.
  void forget(const std::string& member) { forgotten_.push_back(member); }

 protected:
  std::string spelling(const std::string& name) const override;
  Variant called(const Call& call) override;

 private:
  std::vector<std::string> forgotten_;
};

// "Long 5", "ref Boolean 1", "ref Array of String from 1 [ 'a', 'b' ]".
std::string shown(const VARIANT& value);

// From now on the class of that name makes the object; null: it makes none any more.
void serve(const std::string& progId, IDispatch* object);

// An object with one member, which answers the same value whenever it is asked.
Pointer<IDispatch> holding(const std::string& member, const Variant& value);

}  // namespace quillet::fakes
