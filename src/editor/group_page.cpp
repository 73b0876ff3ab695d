#include "editor/group_page.h"

#include <algorithm>

#include "books/amount.h"
#include "books/trial_balance.h"
#include "editor/frmcrtb.h"
#include "ports/busy.h"

namespace quillet {

GroupPage::GroupPage(frmcrtb& form, OpenBooks& books, LineSaver& saver)
    : form_(form), books_(books), saver_(saver) {
  for (Grid* grid : {&form.vsf1, &form.vsf2, &form.vsf3}) {
    grid->setColumns(
        {{.heading = "Particulars", .width = 30, .stretch = true},
         {.heading = "Amount (Rs.)", .align = Align::right, .width = 18, .numeric = true},
         {.heading = "Dr/Cr", .width = 6}});
  }
  form.vsf1.setEmptyText("Debit lines of the groups chosen above stand here.");
  form.vsf2.setEmptyText("Credit lines of the groups chosen above stand here.");
  form.vsf3.setEmptyText("Choose a group above: its lines stand here to be moved.");
  form.mnugroup.Click = [this] { MNUGROUP_CLICK(); };
  form.cbogroup.Click = [this] { showGroups(1); };
  form.cmdok.Click = [this] { form_.REFRESHTB(); };
  form.cmdadd.Click = [this] { showGroups(groupsShown_ + 1); };
  form.cmdless.Click = [this] { showGroups(groupsShown_ - 1); };
  form.cmdupdate.Click = [this] { CMDUPDATE_CLICK(); };
}

LayoutItem GroupPage::arrangement() {
  const LayoutItem choice = row({field("&Group", form_.cbogroup, 40), item(form_.lblgroup, 1),
                                 item(form_.cmdadd), item(form_.cmdless), item(form_.cmdok)});
  const LayoutItem move =
      row({named("Lines to move", item(form_.vsf3, 1)),
           column({field("T&o Group", form_.cbotgroup, 40), item(form_.cmdupdate), gap()}, 1)},
          1);
  return column(
      {choice,
       row({named("Debit lines", item(form_.vsf1, 1)), named("Credit lines", item(form_.vsf2, 1))},
           2),
       move},
      1);
}

void GroupPage::setButtons() {
  form_.cmdadd.setEnabled(form_.cbogroup.chosen() + groupsShown_ <= form_.cbogroup.size());
  form_.cmdless.setEnabled(groupsShown_ > 1);
  form_.cmdupdate.setEnabled(form_.vsf3.rows() > 0);
}

void GroupPage::reset() {
  clear();
  groupsShown_ = 1;
}

void GroupPage::clear() {
  for (ComboBox* groups : {&form_.cbogroup, &form_.cbotgroup}) groups->clearItems();
  for (Grid* grid : {&form_.vsf1, &form_.vsf2, &form_.vsf3}) grid->clearRows();
  transferable_.clear();
  form_.lblgroup.setCaption("");
}

void GroupPage::MNUGROUP_CLICK() {
  const bool show = !form_.famGroups.visible();
  form_.leaveEntry();
  form_.showPage(show ? form_.famGroups : form_.famLines);
  if (show) LOADGROUPSEXISTS();
  form_.focus(show ? static_cast<Control&>(form_.cbogroup) : form_.vsfm);
  form_.SETBUTTON();
}

void GroupPage::LOADGROUPSEXISTS() {
  form_.logErrors("LOADGROUPSEXISTS", [&] { choose(form_.cbogroup.chosenData()); });
}

// Shows this group, or the first when it has no lines: nothing is to be moved out of that one then.
void GroupPage::choose(long id) {
  long target = form_.cbotgroup.chosenData();
  clear();
  const TwoYears& years = books_.years;
  for (const NamedId& group :
       TrialBalance(books_.host(), years.books(years.yearInView())).groups()) {
    form_.cbogroup.addItem(group.name, group.id);
  }
  const int found = form_.cbogroup.findData(id);
  form_.cbogroup.setChosen(std::max(1, found));
  if (id != 0 && found == 0) target = 0;
  for (const auto& group : books_.groups.names().entries()) {
    form_.cbotgroup.addItem(group.name, group.id);
  }
  form_.cbotgroup.setChosen(form_.cbotgroup.findData(target));
  showGroups(groupsShown_);
}

// The chosen group and those that follow it in the list.
void GroupPage::showGroups(int count) {
  const int following = form_.cbogroup.size() - form_.cbogroup.chosen() + 1;
  groupsShown_ = std::clamp(count, 1, std::max(1, following));
  LOADGRIDS();
}

void GroupPage::LOADGRIDS() {
  form_.logErrors("LOADGRIDS", [&] {
    const Busy busy(books_.host());
    for (Grid* grid : {&form_.vsf1, &form_.vsf2, &form_.vsf3}) grid->clearRows();
    const int first = form_.cbogroup.chosen();
    for (int shown = 0; shown < groupsShown_ && first > 0; ++shown) {
      for (Grid* grid : {&form_.vsf1, &form_.vsf2}) {
        if (groupsShown_ == 1) continue;
        const int heading = grid->addRow({form_.cbogroup.items()[first + shown - 1]});
        grid->setRowEmphasised(heading, true);
      }
      LOADGRID1(form_.vsf1, form_.cbogroup.itemData(first + shown), debit);
      LOADGRID1(form_.vsf2, form_.cbogroup.itemData(first + shown), credit);
    }
    form_.lblgroup.setCaption(groupsShown_ == 1 ? ""
                                                : std::to_string(groupsShown_) + " groups shown");
    listForTransfer();
    form_.SETBUTTON();
  });
}

void GroupPage::LOADGRID1(Grid& grid, long groupId, long side) {
  form_.logErrors("LOADGRID1", [&] {
    TrialBalance books(books_.host(), books_.years.books(books_.years.yearInView()));
    for (const Line& line : books.linesOfGroup(groupId, side)) grid.addRow(cellsOf(line));
  });
}

std::vector<std::string> GroupPage::cellsOf(const Line& line) {
  return {books_.host().GetPart_MastPartId(line.partId), plainAmount(books_.host(), line.amount),
          line.side()};
}

// --- moving lines to another group --------------------------------------------------------------

// Whatever its side, a line of the group moves.
void GroupPage::listForTransfer() {
  form_.vsf3.clearRows();
  transferable_.clear();
  for (const Line& line : books_.years.lines(books_.years.yearInView())) {
    if (line.allId != form_.cbogroup.chosenData()) continue;
    transferable_.push_back(line);
    form_.vsf3.addRow(cellsOf(line), static_cast<long>(transferable_.size()));
  }
}

void GroupPage::CMDUPDATE_CLICK() {
  saver_.putBack();
  if (!saver_.mayChangeLines() || books_.refusesChange(books_.years.yearInView())) return;
  const long target = form_.cbotgroup.chosenData();
  if (target == 0 || target == form_.cbogroup.chosenData()) {
    books_.context.MsgBox("Please select a different Group.", Buttons::OK, Icon::information);
    return;
  }
  const Answer answer =
      books_.context.MsgBox("Are you sure you want to Transfer all the Particulars of " +
                                form_.cbogroup.text() + " to " + form_.cbotgroup.text(),
                            Buttons::YesNo, Icon::question, Answer::No);
  if (answer == Answer::Yes) transfer(target);
}

void GroupPage::transfer(long target) {
  const TwoYears::Year year = books_.years.yearInView();
  const long source = form_.cbogroup.chosenData();
  form_.logErrors("CMDUPDATE_CLICK", [&] {
    TrialBalance books(books_.host(), books_.years.books(year));
    for (int row = 1; row <= form_.vsf3.rows(); ++row) {
      books.moveTo(target, transferable_[form_.vsf3.rowId(row) - 1], books_.years.lines(year));
    }
  });
  form_.readStored();
  const std::vector<Line>& lines = books_.years.lines(year);
  const bool left = std::any_of(lines.begin(), lines.end(),
                                [&](const Line& line) { return line.allId == source; });
  choose(left ? source : target);
}

}  // namespace quillet
