#include "review/group_box.h"

#include "data/names.h"

namespace quillet {
namespace {

constexpr std::size_t nameLength = 100;

}  // namespace

GroupBox::GroupBox(Context& context, TextBox& box, Grid& list)
    : context_(context), box_(box), groups_(list) {
  box.setMaxLength(nameLength);
  groups_.attach(box);
}

void GroupBox::offer(const KnownBooks& books) {
  NameList names;
  for (const auto& [id, name] : books.groupNames) names.append(name, id);
  names.sort();
  groups_.fill(std::move(names));
}

void GroupBox::show(const std::string& group) {
  if (box_.form().active() != &box_) box_.setText(group);
  groups_.hide();
}

long GroupBox::typed() {
  const std::string typed = box_.text();
  const NameList::Entry* group = groups_.names().find(typed);
  if (!group) group = groups_.names().beginning(typed);
  if (group) return group->id;
  context_.MsgBox(cleanedName(typed).empty() ? "Specify a Group." : "Group does not Exist.",
                  Buttons::OK, Icon::information);
  return 0;
}

}  // namespace quillet
