#include "review/row_boxes.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "review/frmimport.h"

namespace quillet {
namespace {

// Those that a person gives to rows, in the order in which a key goes through them.
constexpr std::array kinds{RowKind::ledger, RowKind::skipped, RowKind::total, RowKind::heading,
                           RowKind::parent};

int placeOf(RowKind kind) {
  const auto found = std::find(kinds.begin(), kinds.end(), kind);
  return found == kinds.end() ? -1 : static_cast<int>(found - kinds.begin());
}

}  // namespace

RowBoxes::RowBoxes(frmimport& form, Context& context, ImportReview& review, ReviewRows& rows)
    : form_(form), review_(review), rows_(rows), group_(context, form.txtgroup, form.vsfg) {
  for (const RowKind kind : kinds) form.cbokind.addItem(std::string(nameOf(kind)));
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
  form.vsfi.SelChange = [this] { show(); };
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

void RowBoxes::offerGroups() { group_.offer(review_.books().known); }

bool RowBoxes::isNear(const ReviewRow& row) const {
  if (!row.line) return false;
  const auto choice = review_.choices().find(row.row->number);
  const bool used = choice != review_.choices().end() && choice->second.usesNearest.value_or(false);
  return used || row.line->nearest.id != 0;
}

// Text and kind are those of the current row; a command is there for any of the rows it is for.
void RowBoxes::show() {
  const ReviewRow* row = rows_.current();
  const bool ofSource = row && !row->isGone();
  const auto chosen = rows_.chosenRows();
  const auto any = [&](const auto& is) { return std::any_of(chosen.begin(), chosen.end(), is); };
  const bool anyLine = any([](const ReviewRow* each) { return each->line != nullptr; });
  const bool anyNear = any([this](const ReviewRow* each) { return isNear(*each); });
  form_.cbokind.setEnabled(!chosen.empty());
  form_.cbokind.setChosen(ofSource ? placeOf(row->row->kind) + 1 : 0);
  form_.mnukind.setEnabled(!chosen.empty());
  form_.txtgroup.setEnabled(anyLine);
  form_.mnugroup.setEnabled(anyLine);
  group_.show(ofSource && row->line ? row->line->group : "");
  form_.cmdnearest.setEnabled(anyNear);
  form_.mnunearest.setEnabled(anyNear);
  form_.cmdconfirm.setEnabled(anyLine);
  form_.mnuconfirm.setEnabled(anyLine);
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
  const auto chosen = rows_.chosenRows();
  if (chosen.empty()) return;
  // What cannot be read is skipped first.
  const int place = std::max(0, placeOf(chosen.front()->row->kind));
  setKind(kinds.at(static_cast<std::size_t>(place + 1) % kinds.size()));
}

// The nearest known ledger first, then a new one; of several rows the first decides.
void RowBoxes::turnNearest() {
  std::vector<int> near;
  for (const ReviewRow* row : rows_.chosenRows()) {
    if (isNear(*row)) near.push_back(row->row->number);
  }
  std::optional<bool> uses;
  review_.choose(near, [&](RowChoice& choice) {
    if (!uses) uses = !choice.usesNearest.value_or(false);
    choice.usesNearest = uses;
  });
  form_.reviewed();
}

// A row that may be a sum becomes what it was taken for; of the others the first decides.
void RowBoxes::confirm() {
  std::map<RowKind, std::vector<int>> doubtful;
  std::vector<int> others;
  for (const ReviewRow* row : rows_.chosenRows()) {
    const bool asked = !row->row->question.empty();
    (asked ? doubtful[row->row->kind] : others).push_back(row->row->number);
  }
  for (const auto& [kind, rows] : doubtful) {
    review_.choose(rows, [&](RowChoice& choice) { choice.kind = kind; });
  }
  std::optional<bool> confirmed;
  if (!others.empty()) {
    review_.choose(others, [&](RowChoice& choice) {
      if (!confirmed) confirmed = !choice.confirmed;
      choice.confirmed = *confirmed;
    });
  }
  form_.reviewed();
}

void RowBoxes::setGroup(const std::vector<int>& rows) {
  if (rows.empty()) return;
  const long group = group_.typed();
  if (group == 0) return;
  form_.focus(form_.vsfi);
  review_.choose(rows, [&](RowChoice& choice) { choice.group = group; });
  form_.reviewed();
}

}  // namespace quillet
