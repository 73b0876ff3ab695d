#include "editor/entry_fields.h"

#include <algorithm>

#include "books/amount.h"
#include "books/debit_names.h"
#include "data/names.h"
#include "data/text.h"
#include "editor/frmcrtb.h"
#include "host/meant_name.h"

namespace quillet {
namespace {

// What Mast_Part.Particular and Mast_AllGrp.ALLGRP hold.
constexpr int nameLength = 100;
constexpr int amountLength = 20;

// "DR" or "CR" for a side typed in full or by its first letter, "" for anything else.
std::string sideOf(std::string_view typed) {
  const std::string side = upperCase(trimmed(typed));
  if (side == "D" || side == "DR") return "DR";
  if (side == "C" || side == "CR") return "CR";
  return {};
}

// What was typed as a name: as the list has it where that differs by more than case.
std::string enteredName(const NameList& names, const std::string& typed) {
  const std::string name = cleanedName(typed);
  const NameList::Entry* known = names.find(typed);
  if (!known) return name;
  return known->name != typed && equalIgnoringCase(known->name, name) ? name : known->name;
}

std::string takes(const std::string& key, const NameList::Entry& name) {
  return key + " takes \"" + name.name + '"';
}

}  // namespace

EntryFields::EntryFields(frmcrtb& form, OpenBooks& books)
    : form_(form), books_(books), ledgers_(form.vsfp), groups_(form.vsfg), lookUp_(form, books) {
  for (TextBox* name : {&form.txtpart, &form.txtgroup}) name->setMaxLength(nameLength);
  ledgers_.attach(form.txtpart);
  groups_.attach(form.txtgroup);
  form.txtpart.Change = [this] { TXTPART_CHANGE(); };
  form.txtpart.KeyPress = [this](Key& key) { TXTPART_KEYPRESS(key); };
  form.txtgroup.Change = [this] { TXTGROUP_CHANGE(); };
  form.txtgroup.KeyPress = [this](Key& key) { TXTGROUP_KEYPRESS(key); };
  form.txtpart.LostFocus = [this] { TXTPART_LOSTFOCUS(); };
  form.txtgroup.LostFocus = [this] { TXTGROUP_LOSTFOCUS(); };
  form.txtpart.Overflow = [this] { form_.hint("A ledger name holds at most 100 characters."); };
  form.txtgroup.Overflow = [this] { form_.hint("A group name holds at most 100 characters."); };

  form.txtamount.setMaxLength(amountLength);
  form.txtamount.setRightAligned(true);
  form.txtamount.Overflow = [this] { form_.hint("An amount holds at most 20 characters."); };
  form.txtamount.GotFocus = [this] { form_.txtamount.selectAll(); };
  form.txtamount.KeyPress = [this](Key& key) {
    if (key != keys::Enter) return;
    key = keys::none;
    form_.focusNext();
  };
  form.txtamount.LostFocus = [this] { TXTAMOUNT_LOSTFOCUS(); };
  form.txtdrcr.setMaxLength(2);
  form.txtdrcr.GotFocus = [this] { TXTDRCR_GOTFOCUS(); };
  form.txtdrcr.Validate = [this](bool& cancel) { TXTDRCR_VALIDATE(cancel); };
}

// --- beginning and ending an entry --------------------------------------------------------------

bool EntryFields::contains(const Control* control) const {
  return control == &form_.txtpart || control == &form_.txtgroup || control == &form_.txtamount ||
         control == &form_.txtdrcr;
}

TwoYears::Year EntryFields::year() const {
  return altered_ ? altered_->year : books_.years.yearInView();
}

// Whoever is typing when another station takes the year goes on in the list, where keys do no harm.
void EntryFields::enable() {
  const bool enabled = books_.years.hasTable() && !books_.locked(year());
  if (!enabled && contains(form_.active())) {
    const ScopedFlag unchecked = leaving();
    form_.focus(form_.vsfm);
  }
  for (TextBox* box : {&form_.txtpart, &form_.txtgroup, &form_.txtamount, &form_.txtdrcr}) {
    box->setEnabled(enabled);
  }
}

void EntryFields::goOnIn(Control& field) {
  if (untouched()) return;
  const std::string side = form_.txtdrcr.text();
  const ScopedFlag unchecked = leaving();
  form_.focus(field);
  form_.txtdrcr.setText(side);
}

void EntryFields::empty() {
  for (TextBox* box : {&form_.txtpart, &form_.txtgroup, &form_.txtamount, &form_.txtdrcr}) {
    box->setText("");
  }
  altered_.reset();
  enable();
  lookUp_.forget();
  form_.hint("");
}

bool EntryFields::untouched() const {
  const auto empty = [](const std::string& text) { return text.empty(); };
  return !altered_ && std::ranges::all_of(fields().texts, empty);
}

EntryFields::Fields EntryFields::fields() const {
  return {
      {form_.txtpart.text(), form_.txtgroup.text(), form_.txtamount.text(), form_.txtdrcr.text()},
      altered_,
      alteredGroup_,
      lookUp_.found(form_.txtpart.text())};
}

void EntryFields::restore(const Fields& fields) {
  const auto& [part, group, amount, side] = fields.texts;
  form_.txtpart.setText(part);
  form_.txtgroup.setText(group);
  form_.txtamount.setText(amount);
  form_.txtdrcr.setText(side);
  altered_ = fields.altered;
  alteredGroup_ = fields.alteredGroup;
  enable();
  lookUp_.forget();
  if (fields.ledger != 0) lookUp_.know(part, fields.ledger);
}

void EntryFields::hideLists() {
  ledgers_.hide();
  groups_.hide();
}

void EntryFields::alter(const Entry& entry, const YearLine& line) {
  altered_ = line;
  enable();
  alteredGroup_ = entry.group;
  lookUp_.know(entry.particular, line.line.partId);
  form_.txtpart.setText(entry.particular);
  form_.txtgroup.setText(entry.group);
  form_.txtamount.setText(plainAmount(books_.host(), line.line.amount));
  form_.txtdrcr.setText(line.line.side());
}

// An altered line keeps its group whatever its ledger is called.
void EntryFields::lookLedgerUp() {
  lookUp_.lookUp(enteredName(ledgers_.names(), form_.txtpart.text()), !altered_);
}

// --- what the hint says -------------------------------------------------------------------------

void EntryFields::say(const std::string& text) { form_.hint(text.empty() ? standingHint() : text); }

// What holds as long as nothing else is to be said.
std::string EntryFields::standingHint() const {
  const std::string ledger = form_.txtpart.text();
  if (lookUp_.isNew(ledger)) {
    const NameList::Entry* alike = ledgers_.offered();
    const bool left = form_.active() != &form_.txtpart;
    return "New ledger \"" + ledger + "\"" + (alike ? " beside \"" + alike->name + "\"" : "") +
           (left ? ". Shift+Tab goes back to it." : ".");
  }
  return altered_ ? "Altering the selected line. Esc leaves it as it was." : "";
}

void EntryFields::TXTPART_CHANGE() {
  ledgers_.typed();
  const NameList::Entry* offered = ledgers_.offered();
  say(offered ? takes("Right", *offered) + ", Enter keeps what is typed." : "");
}

void EntryFields::TXTGROUP_CHANGE() {
  groups_.typed();
  const NameList::Entry* offered = groups_.offered();
  const bool begun = groups_.names().beginning(form_.txtgroup.text()) != nullptr;
  say(offered && !begun ? takes("Right", *offered) + "." : "");
}

// --- going on -----------------------------------------------------------------------------------

void EntryFields::TXTPART_KEYPRESS(Key& key) {
  if (key != keys::Enter) return;
  key = keys::none;
  lookLedgerUp();
  if (lookUp_.proposes()) {
    form_.focus(form_.txtamount);
  } else {
    form_.focusNext();
  }
}

void EntryFields::takeBack(Key& key) {
  const bool back = key == keys::BackTab && form_.active() == &form_.txtgroup;
  if (!back || !lookUp_.isNew(form_.txtpart.text()) || !form_.txtgroup.text().empty()) return;
  key = keys::none;
  const ScopedFlag givenUp = leaving();
  form_.focus(form_.txtpart);
}

// Enter and Tab lead back to a group that does not exist; whoever clicks elsewhere is let go.
void EntryFields::TXTGROUP_KEYPRESS(Key& key) {
  if (key != keys::Enter && key != keys::Tab) return;
  key = keys::none;
  form_.focusNext();
  const std::string typed = form_.txtgroup.text();
  if (!typed.empty() && !groups_.names().find(typed)) form_.focus(form_.txtgroup);
}

// --- leaving a field ----------------------------------------------------------------------------

// A side-step, such as to the bar that finds lines, checks nothing: the entry goes on afterwards.
bool EntryFields::leftForGood() const {
  return !leaving_ && !untouched() && form_.active() && form_.active()->causesValidation;
}

void EntryFields::TXTPART_LOSTFOCUS() {
  ledgers_.hide();
  if (!leftForGood()) return;
  form_.txtpart.setText(enteredName(ledgers_.names(), form_.txtpart.text()));
  if (form_.txtpart.text().empty()) refuse("Please specify Particulars.");
  lookLedgerUp();
  say("");
}

void EntryFields::TXTGROUP_LOSTFOCUS() {
  groups_.hide();
  if (!leftForGood()) return;
  form_.txtgroup.setText(enteredName(groups_.names(), form_.txtgroup.text()));
  const std::string typed = form_.txtgroup.text();
  if (typed.empty()) {
    refuse("Specify a Group.");
  } else if (!groups_.names().find(typed)) {
    // The beginning of a name stands for the name that the list shows for it.
    if (const NameList::Entry* begun = groups_.names().beginning(typed)) {
      form_.txtgroup.setText(begun->name);
    } else {
      refuse("Group does not Exist.");
    }
  }
}

void EntryFields::TXTAMOUNT_LOSTFOCUS() {
  TextBox& box = form_.txtamount;
  if (leaving_) return;
  say("");
  if (trimmed(box.text()).empty()) return;
  if (const auto amount = typedAmount(box.text())) {
    box.setText(plainAmount(books_.host(), *amount));
  } else {
    form_.hint(notAnAmount(box.text()));
  }
}

void EntryFields::TXTDRCR_GOTFOCUS() {
  TextBox& side = form_.txtdrcr;
  side.selectAll();
  // A line that stays in its group keeps its side: a debtor in credit is not turned round by
  // altering its amount.
  if (altered_ && equalIgnoringCase(form_.txtgroup.text(), alteredGroup_)) return;
  const std::string group = form_.txtgroup.text();
  const long grandGroup = grandGroupOf(books_.host(), group);
  const bool isTaken = grandGroup == 2 && isUsuallyDebit(form_.txtpart.text(), group);
  if (grandGroup == 1 || grandGroup == 4 || isTaken) {
    side.setText("DR");
  } else if (grandGroup == 2 || grandGroup == 3) {
    side.setText("CR");
  }
  side.selectAll();
}

void EntryFields::TXTDRCR_VALIDATE(bool& cancel) {
  TextBox& box = form_.txtdrcr;
  if (leaving_ || box.text().empty()) return;
  const std::string side = sideOf(box.text());
  cancel = side.empty();
  if (cancel) {
    form_.hint("The side is D for debit or C for credit.");
  } else {
    box.setText(side);
  }
}

// --- what was typed -----------------------------------------------------------------------------

std::optional<TypedLine> EntryFields::checked() {
  const std::string side = sideOf(form_.txtdrcr.text());
  if (side.empty()) {
    books_.context.MsgBox("Only 'C' or 'c' and 'D' or 'd' are allowed.");
    return std::nullopt;
  }
  const std::string particular = enteredName(ledgers_.names(), form_.txtpart.text());
  const std::string group = enteredName(groups_.names(), form_.txtgroup.text());
  const Money amount = typedAmount(form_.txtamount.text()).value_or(Money());
  if (particular.empty() || group.empty() || amount.isZero()) {
    books_.context.MsgBox("Cannot save the entry due to invalid data.");
    return std::nullopt;
  }
  if (!groups_.names().find(group)) {
    refuseGroup();
    return std::nullopt;
  }
  const long partId = ledgerId(particular);
  const long allId = partId == 0 ? 0 : groupId(group);
  if (allId == 0) return std::nullopt;
  return TypedLine{{partId, allId}, side == "CR" ? -amount : amount};
}

long EntryFields::ledgerId(const std::string& name) {
  const long id = books_.host().GetMax_MastPartId(name);
  if (id == 0) {
    refuse("Failed to Create Master [" + name + "].");
    return 0;
  }
  if (!ledgerMeant(books_.host(), books_.context.dialogs, name, id)) {
    form_.focus(form_.txtpart);
    form_.hint(chooseAnotherName);
    return 0;
  }
  lookUp_.know({}, 0);
  const std::string known = books_.host().GetPart_MastPartId(id);
  if (!ledgers_.names().find(known)) ledgers_.add(known, id);
  return id;
}

long EntryFields::groupId(const std::string& name) {
  for (const long id : groupIds(books_.host(), name)) {
    if (!books_.groups.contains(id) || sameName(books_.groups.name(id), name)) return id;
  }
  refuseGroup();
  return 0;
}

void EntryFields::refuseGroup() {
  refuse("Group does not exist.");
  form_.focus(form_.txtgroup);
}

void EntryFields::refuse(const std::string& text) {
  books_.context.MsgBox(text, Buttons::OK, Icon::information);
}

}  // namespace quillet
