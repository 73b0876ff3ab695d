// The editor's entry fields: one line at a time is entered, altered or deleted.
#include <algorithm>

#include "books/amount.h"
#include "data/names.h"
#include "data/sql.h"
#include "data/text.h"
#include "editor/frmcrtb.h"
#include "host/meant_name.h"
#include "ports/busy.h"

namespace quillet {
namespace {

// The first of the ordered capitals that begins with the text, counted from 1; 0 for none.
int firstMatch(const std::vector<std::string>& capitals, const std::string& text) {
  const std::string wanted = beginningKey(text);
  if (wanted.empty()) return 0;
  const auto at = std::lower_bound(capitals.begin(), capitals.end(), wanted);
  if (at == capitals.end() || at->compare(0, wanted.size(), wanted) != 0) return 0;
  return static_cast<int>(at - capitals.begin()) + 1;
}

// "DR" or "CR" for a side typed in full or by its first letter, "" for anything else.
std::string sideOf(std::string_view typed) {
  const std::string side = upperCase(trimmed(typed));
  if (side == "D" || side == "DR") return "DR";
  if (side == "C" || side == "CR") return "CR";
  return {};
}

void enterIsTab(Form& form, Key& key) {
  if (key != keys::Enter) return;
  key = keys::none;
  form.focusNext();
}

}  // namespace

// --- beginning and ending an entry --------------------------------------------------------------

void frmcrtb::clearEntry() {
  emptyFields();
  putBack();
}

void frmcrtb::emptyFields() {
  for (TextBox* box : {&txtpart, &txtgroup, &txtamount, &txtdrcr}) box->setText("");
  altered_.reset();
  hint("");
}

void frmcrtb::leaveEntry() {
  leaving_ = true;
  clearEntry();
  focus(vsfm);
  leaving_ = false;
}

void frmcrtb::MNUINSERT_CLICK() {
  trap("MNUINSERT_CLICK", [&] {
    leaveEntry();
    focus(txtpart);
  });
}

void frmcrtb::MNUALTER_CLICK() {
  trap("MNUALTER_CLICK", [&] {
    const Entry* selected = selectedEntry();
    if (!selected || !hasTable()) return;
    // Leaving an entry may read the lines anew.
    const Entry entry = *selected;
    const YearLine altered = *selectedLine();
    leaveEntry();
    altered_ = altered;
    alteredGroup_ = entry.group;
    txtpart.setText(entry.particular);
    txtgroup.setText(entry.group);
    txtamount.setText(context_.host->formatgen(altered.line.amount, "###0.00"));
    txtdrcr.setText(altered.line.isCredit() ? "CR" : "DR");
    focus(txtpart);
    hint("Altering the selected line. Esc leaves it as it was.");
  });
}

void frmcrtb::MNUDELETE_CLICK() {
  trap("MNUDELETE_CLICK", [&] {
    const int row = vsfm.current();
    if (row == 0) return;
    const Entry entry = *selectedEntry();
    const Answer answer = context_.MsgBox("Do you want to delete the selected record?",
                                          Buttons::YesNo, Icon::none, Answer::No, "Delete");
    if (answer != Answer::Yes) return;
    leaveEntry();
    if (!nothingTakenOut()) return;
    trap("MNUDELETE_CLICK", [&] {
      for (const Year year : {current, previous}) {
        if (!entry.line[year]) continue;
        context_.change("delete from " + tableOf(year) + " where code_no='" + client_ + "' and " +
                        rowOf(year, *entry.line[year]));
      }
    });
    showStored();
    if (vsfm.current() == 0) vsfm.setCurrent(std::min(row, vsfm.rows()));
  });
}

// The line being altered may have been changed or taken away meanwhile.
void frmcrtb::followAltered() {
  if (!altered_ || !takenOut_.lines.empty()) return;
  const std::vector<Line>& lines = lines_[altered_->year];
  const auto found = std::find_if(lines.begin(), lines.end(),
                                  [&](const Line& line) { return isSame(line, altered_->line); });
  if (found != lines.end()) {
    altered_->line = *found;
  } else {
    leaveEntry();
    hint("The line that was being altered is no longer there.");
  }
}

// --- the drop-down lists ------------------------------------------------------------------------

void frmcrtb::follow(TextBox& box, Grid& list) {
  list.setCurrent(firstMatch(&list == &vsfp ? ledgerKeys_ : groupKeys_, box.text()));
}

void frmcrtb::moveList(TextBox& box, Grid& list, Key& key) {
  if (key != keys::Up && key != keys::Down) return;
  list.act(key);
  key = keys::none;
  if (list.current() > 0) pickFromList(box, list);
}

void frmcrtb::pickFromList(TextBox& box, Grid& list) {
  if (list.current() == 0) return;
  box.setText(list.cell(list.current(), 0));
  box.selectAll();
}

bool frmcrtb::knownGroup(const std::string& name) const {
  return std::binary_search(groupKeys_.begin(), groupKeys_.end(), nameKey(name));
}

std::string frmcrtb::enteredName(const Grid& list, const std::string& typed) const {
  const std::vector<std::string>& keys = &list == &vsfp ? ledgerKeys_ : groupKeys_;
  std::string name = cleanedName(typed);
  const auto [first, last] = std::equal_range(keys.begin(), keys.end(), nameKey(name));
  if (first == last) return name;
  const auto listed = [&](auto at) {
    return list.cell(static_cast<int>(at - keys.begin()) + 1, 0);
  };
  for (auto at = first; at != last; ++at) {
    if (listed(at) == typed) return typed;
  }
  return equalIgnoringCase(listed(first), name) ? name : listed(first);
}

void frmcrtb::TXTPART_GOTFOCUS() {
  trap("TXTPART_GOTFOCUS", [&] {
    vsfp.setVisible(true);
    txtpart.selectAll();
    TXTPART_CHANGE();
  });
}

void frmcrtb::TXTPART_CHANGE() {
  trap("TXTPART_CHANGE", [&] {
    if (!altered_) hint("");
    follow(txtpart, vsfp);
  });
}

void frmcrtb::TXTPART_KEYDOWN(Key& key) {
  trap("TXTPART_KEYDOWN", [&] { moveList(txtpart, vsfp, key); });
}

void frmcrtb::TXTPART_KEYPRESS(Key& key) {
  trap("TXTPART_KEYPRESS", [&] { enterIsTab(*this, key); });
}

void frmcrtb::TXTPART_LOSTFOCUS() {
  trap("TXTPART_LOSTFOCUS", [&] {
    vsfp.setVisible(false);
    if (leaving_) return;
    txtpart.setText(enteredName(vsfp, txtpart.text()));
    if (txtpart.text().empty()) {
      context_.MsgBox("Please specify Particulars.", Buttons::OK, Icon::information);
    }
  });
}

void frmcrtb::TXTGROUP_GOTFOCUS() {
  trap("TXTGROUP_GOTFOCUS", [&] {
    vsfg.setVisible(true);
    txtgroup.selectAll();
    TXTGROUP_CHANGE();
  });
}

void frmcrtb::TXTGROUP_CHANGE() {
  trap("TXTGROUP_CHANGE", [&] { follow(txtgroup, vsfg); });
}

void frmcrtb::TXTGROUP_KEYDOWN(Key& key) {
  trap("TXTGROUP_KEYDOWN", [&] { moveList(txtgroup, vsfg, key); });
}

void frmcrtb::TXTGROUP_KEYPRESS(Key& key) {
  trap("TXTGROUP_KEYPRESS", [&] { enterIsTab(*this, key); });
}

void frmcrtb::TXTGROUP_LOSTFOCUS() {
  trap("TXTGROUP_LOSTFOCUS", [&] {
    vsfg.setVisible(false);
    if (leaving_) return;
    txtgroup.setText(enteredName(vsfg, txtgroup.text()));
    const std::string typed = txtgroup.text();
    if (typed.empty()) {
      context_.MsgBox("Specify a Group.", Buttons::OK, Icon::information);
      return;
    }
    if (knownGroup(typed)) return;
    // The beginning of a name stands for the name that the list shows for it.
    if (firstMatch(groupKeys_, typed) > 0) {
      txtgroup.setText(vsfg.cell(firstMatch(groupKeys_, typed), 0));
    } else {
      context_.MsgBox("Group does not Exist.", Buttons::OK, Icon::information);
    }
  });
}

// --- amount and side ----------------------------------------------------------------------------

void frmcrtb::TXTAMOUNT_GOTFOCUS() {
  trap("TXTAMOUNT_GOTFOCUS", [&] { txtamount.selectAll(); });
}

void frmcrtb::TXTAMOUNT_KEYPRESS(Key& key) {
  trap("TXTAMOUNT_KEYPRESS", [&] { enterIsTab(*this, key); });
}

void frmcrtb::TXTAMOUNT_LOSTFOCUS() {
  trap("TXTAMOUNT_LOSTFOCUS", [&] {
    if (leaving_ || trimmed(txtamount.text()).empty()) return;
    if (const auto amount = typedAmount(txtamount.text())) {
      txtamount.setText(plainAmount(*context_.host, *amount));
    } else {
      hint(notAnAmount(txtamount.text()));
    }
  });
}

void frmcrtb::TXTDRCR_GOTFOCUS() {
  trap("TXTDRCR_GOTFOCUS", [&] {
    txtdrcr.selectAll();
    // A line that stays in its group keeps its side: a debtor in credit is not turned round by
    // altering its amount.
    if (altered_ && equalIgnoringCase(txtgroup.text(), alteredGroup_)) return;
    const auto row = context_.query(
        "select mast_gunder.ggid from mast_gunder,mast_allgrp where mast_allgrp.allgrp='" +
        context_.host->escaped(txtgroup.text()) + "' and mast_allgrp.gid = mast_gunder.gid");
    if (row->EOF_()) return;
    const long grandGroup = row->integer("GGID");
    if (grandGroup == 1 || grandGroup == 4) txtdrcr.setText("DR");
    if (grandGroup == 2 || grandGroup == 3) txtdrcr.setText("CR");
    txtdrcr.selectAll();
  });
}

void frmcrtb::TXTDRCR_VALIDATE(bool& cancel) {
  trap("TXTDRCR_VALIDATE", [&] {
    if (leaving_ || txtdrcr.text().empty()) return;
    const std::string side = sideOf(txtdrcr.text());
    cancel = side.empty();
    if (cancel) {
      hint("The side is D for debit or C for credit.");
    } else {
      txtdrcr.setText(side);
    }
  });
}

void frmcrtb::TXTDRCR_KEYPRESS(Key& key) {
  trap("TXTDRCR_KEYPRESS", [&] {
    if (key != keys::Enter) return;
    key = keys::none;
    saveLine();
  });
}

// --- what was typed -----------------------------------------------------------------------------

std::optional<frmcrtb::TypedLine> frmcrtb::checkedEntry() {
  const std::string side = sideOf(txtdrcr.text());
  if (side.empty()) {
    context_.MsgBox("Only 'C' or 'c' and 'D' or 'd' are allowed.");
    return std::nullopt;
  }
  const std::string particular = enteredName(vsfp, txtpart.text());
  const std::string group = enteredName(vsfg, txtgroup.text());
  const double amount = typedAmount(txtamount.text()).value_or(Money()).rupees();
  if (particular.empty() || group.empty() || amount == 0) {
    context_.MsgBox("Cannot save the entry due to invalid data.");
    return std::nullopt;
  }
  if (!knownGroup(group)) {
    context_.MsgBox("Group does not exist.", Buttons::OK, Icon::information);
    return std::nullopt;
  }
  return TypedLine{particular, group, side == "CR" ? -amount : amount};
}

long frmcrtb::particularId(const std::string& name) {
  const long id = context_.host->GetMax_MastPartId(name);
  if (id == 0) {
    context_.MsgBox("Failed to Create Master [" + name + "].", Buttons::OK, Icon::information);
    return 0;
  }
  if (!ledgerMeant(*context_.host, context_.dialogs, name, id)) {
    focus(txtpart);
    hint(chooseAnotherName);
    return 0;
  }
  addToLedgerList(context_.host->GetPart_MastPartId(id));
  return id;
}

void frmcrtb::addToLedgerList(const std::string& name) {
  const std::string key = nameKey(name);
  const auto at = std::lower_bound(ledgerKeys_.begin(), ledgerKeys_.end(), key);
  if (at != ledgerKeys_.end() && *at == key) return;
  vsfp.insertRow(static_cast<int>(at - ledgerKeys_.begin()) + 1, {name});
  ledgerKeys_.insert(at, key);
}

long frmcrtb::groupId(const std::string& name) {
  const auto rows = context_.query("SELECT ALLID FROM MAST_ALLGRP WHERE ALLGRP='" +
                                   context_.host->escaped(name) + "'");
  for (; !rows->EOF_(); rows->MoveNext()) {
    const long id = rows->integer("AllId");
    const auto known = groupNames_.find(id);
    if (known == groupNames_.end() || sameName(known->second, name)) return id;
  }
  context_.MsgBox("Group does not exist.", Buttons::OK, Icon::information);
  return 0;
}

}  // namespace quillet
