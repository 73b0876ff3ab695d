#include "review/row_boxes.h"

#include <algorithm>
#include <array>

#include "data/names.h"
#include "review/frmimport.h"

namespace quillet {
namespace {

// Those that a person gives to rows, in the order in which a key goes through them.
constexpr std::array kinds{RowKind::ledger, RowKind::skipped, RowKind::total, RowKind::heading,
                           RowKind::parent};
constexpr std::size_t nameLength = 100;

int placeOf(RowKind kind) {
  const auto found = std::find(kinds.begin(), kinds.end(), kind);
  return found == kinds.end() ? -1 : static_cast<int>(found - kinds.begin());
}

}  // namespace

RowBoxes::RowBoxes(frmimport& form, Context& context, ImportReview& review, ReviewRows& rows)
    : form_(form), context_(context), review_(review), rows_(rows), groups_(form.vsfg) {
  for (const RowKind kind : kinds) form.cbokind.addItem(std::string(nameOf(kind)));
  form.txtgroup.setMaxLength(nameLength);
  groups_.attach(form.txtgroup);
  form.txtgroup.KeyPress = [this](Key& key) {
    if (key != keys::Enter) return;
    key = keys::none;
    setGroup(rows_.chosen());
  };
  form.cbokind.Click = [this] { kindChosen(); };
  form.vsfi.RowColChange = [this] {
    rows_.arrived();
    show();
  };
  form.vsfi.KeyPress = [this](Key& key) {
    if (key != keys::Enter) return;
    key = keys::none;
    form_.mnugroup.Click();
  };
  form.vsfi.DblClick = [this] { form_.mnugroup.Click(); };
  form.mnukind.Click = [this] { nextKind(); };
  form.mnugroup.Click = [this] {
    if (form_.txtgroup.focusable()) form_.focus(form_.txtgroup);
  };
  for (Control* command :
       {static_cast<Control*>(&form.mnunearest), static_cast<Control*>(&form.cmdnearest)}) {
    command->Click = [this] { turnNearest(); };
  }
  for (Control* command :
       {static_cast<Control*>(&form.mnuconfirm), static_cast<Control*>(&form.cmdconfirm)}) {
    command->Click = [this] { confirm(); };
  }
  form.cmdgroupall.Click = [this] { setGroup(rows_.withoutGroup()); };
}

void RowBoxes::offerGroups() {
  NameList names;
  for (const auto& [id, name] : review_.books().known.groupNames) names.append(name, id);
  names.sort();
  groups_.fill(std::move(names));
}

void RowBoxes::show() {
  const ReviewRow* row = rows_.current();
  const bool ofSource = row && !row->isGone();
  const bool isLine = ofSource && row->line;
  form_.cbokind.setEnabled(ofSource);
  form_.cbokind.setChosen(ofSource ? placeOf(row->row->kind) + 1 : 0);
  form_.txtgroup.setEnabled(isLine);
  if (form_.active() != &form_.txtgroup) form_.txtgroup.setText(isLine ? row->line->group : "");
  groups_.hide();
  const auto choice = ofSource ? review_.choices().find(row->row->number) : review_.choices().end();
  const bool usesNearest =
      choice != review_.choices().end() && choice->second.usesNearest.value_or(false);
  const bool near = isLine && (row->line->nearest.id != 0 || usesNearest);
  form_.cmdnearest.setEnabled(near);
  form_.mnunearest.setEnabled(near);
  form_.cmdconfirm.setEnabled(isLine);
  form_.mnuconfirm.setEnabled(isLine);
  form_.mnukind.setEnabled(ofSource);
  form_.mnugroup.setEnabled(isLine);
  form_.lblquestion.setCaption(row ? form_.vsfi.cell(form_.vsfi.current(), form_.vsfi.cols() - 1)
                                   : "");
}

void RowBoxes::setKind(RowKind kind) {
  review_.choose(rows_.chosen(), [&](RowChoice& choice) { choice.kind = kind; });
  form_.reviewed();
}

void RowBoxes::kindChosen() {
  if (form_.cbokind.chosen() == 0) return;
  setKind(kinds.at(static_cast<std::size_t>(form_.cbokind.chosen() - 1)));
}

void RowBoxes::nextKind() {
  const ReviewRow* row = rows_.current();
  if (!row || row->isGone()) return;
  // What cannot be read is skipped first.
  const int place = std::max(0, placeOf(row->row->kind));
  setKind(kinds.at(static_cast<std::size_t>(place + 1) % kinds.size()));
}

// The nearest known ledger first, then a new one.
void RowBoxes::turnNearest() {
  review_.choose(rows_.chosen(), [](RowChoice& choice) {
    choice.usesNearest = !choice.usesNearest.value_or(false);
  });
  form_.reviewed();
}

void RowBoxes::confirm() {
  review_.choose(rows_.chosen(), [](RowChoice& choice) { choice.confirmed = !choice.confirmed; });
  form_.reviewed();
}

long RowBoxes::groupTyped() {
  const std::string typed = form_.txtgroup.text();
  const NameList::Entry* group = groups_.names().find(typed);
  if (!group) group = groups_.names().beginning(typed);
  if (group) return group->id;
  context_.MsgBox(cleanedName(typed).empty() ? "Specify a Group." : "Group does not Exist.",
                  Buttons::OK, Icon::information);
  return 0;
}

void RowBoxes::setGroup(const std::vector<int>& rows) {
  if (rows.empty()) return;
  const long group = groupTyped();
  if (group == 0) return;
  form_.focus(form_.vsfi);
  review_.choose(rows, [&](RowChoice& choice) { choice.group = group; });
  form_.reviewed();
}

}  // namespace quillet
