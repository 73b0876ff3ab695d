#include "view/access_keys.h"

#include <algorithm>
#include <vector>

#include "data/text.h"
#include "view/form_controls.h"
#include "view/layout_rules.h"

namespace quillet::view {
namespace {

using Deed = AccessKeys::Deed;
using Meaning = AccessKeys::Meaning;

void gather(const LayoutItem& node, char32_t key, std::vector<Meaning>& meanings) {
  Control* control = node.control;
  if (control && hasPlace(node)) {
    const bool command = dynamic_cast<Button*>(control) || dynamic_cast<Toggle*>(control);
    if (control->focusable() && accessKey(node.label) == key) {
      meanings.push_back({Deed::focus, control});
    } else if (command && control->clickable() && accessKey(control->caption()) == key) {
      meanings.push_back({Deed::click, control});
    }
  }
  for (const LayoutItem& child : node.children) gather(child, key, meanings);
}

std::vector<Meaning> meaningsOf(const Form& form, char32_t key) {
  std::vector<Meaning> meanings;
  for (MenuEntry* entry : menuEntries(form)) {
    if (entry->parent() || !entry->clickable() || accessKey(entry->caption()) != key) continue;
    meanings.push_back({isHeading(*entry) ? Deed::openMenu : Deed::click, entry});
  }
  gather(form.arrangement(), key, meanings);
  return meanings;
}

}  // namespace

Meaning AccessKeys::press(const Form& form, char32_t character) {
  const char32_t key = upperCase(character);
  const std::vector<Meaning> meanings = key == 0 ? std::vector<Meaning>{} : meaningsOf(form, key);
  const bool again = key_ == key;
  key_ = key;
  if (meanings.empty()) return {};
  auto found = meanings.begin();
  if (again && meanings.size() > 1) {
    const auto last = std::find_if(meanings.begin(), meanings.end(), [&](const Meaning& each) {
      return each.control->id() == last_;
    });
    if (last != meanings.end() && last + 1 != meanings.end()) found = last + 1;
  }
  last_ = found->control->id();
  Meaning meaning = *found;
  if (meanings.size() > 1 && meaning.deed == Deed::click) meaning.deed = Deed::focus;
  return meaning;
}

}  // namespace quillet::view
