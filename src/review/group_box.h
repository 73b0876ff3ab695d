// The box of a review in which a group is typed, with the groups that there are below it.
#pragma once

#include "controls/lookup_list.h"
#include "host/context.h"
#include "import/proposals.h"

namespace quillet {

class GroupBox {
 public:
  GroupBox(Context& context, TextBox& box, Grid& list);

  void offer(const KnownBooks& books);
  // The text of another row, unless a person is typing.
  void show(const std::string& group);
  // The group in the box; 0 when it names none, which a message says.
  long typed();

 private:
  Context& context_;
  TextBox& box_;
  LookupList groups_;
};

}  // namespace quillet
