// What is done at the editor.
#pragma once

#include "property/deeds.h"

namespace quillet::support {

class EditorActs : public Deeds {
 protected:
  void open() {
    where_ = oneOf(world_).first;
    openYear();
  }

  void openYear() {
    draft_.reset();
    const auto press = [this] {
      select(codes[where_.client], where_.year);
      editor().showYear(names[where_.client]);
    };
    // Whether the opening fails or not, it is this year's editor.
    carryOut({.what = "open " + said(where_), .press = press, .unloaded = &unloaded_});
  }

  void changeView() {
    const int index = draw(3);
    if (!editor().mnuyropts.enabled()) return;
    draft_.reset();
    click("view " + std::to_string(index), editor().mnuyrs[index], {.lenient = unloaded_});
  }

  void refresh() {
    const int index = draw(6);
    if (index < 4) {
      click("sort " + std::to_string(index + 1), editor().mnusortopt[index], {.looksOnly = true});
    } else {
      click("refresh", editor().mnurefresh, {.looksOnly = true});
    }
  }

  void turnPage() {
    MenuEntry& page = draw(2) == 0 ? editor().mnugroup : editor().mnushsumm;
    draft_.reset();
    click("page " + page.name(), page);
  }

  void toLines() {
    draft_.reset();
    const auto escape = [this] {
      frmcrtb& form = editor();
      if (form.famLines.visible()) form.focus(form.txtpart);
      form.press(keys::Escape);
      require(form.famLines.visible(), "Escape does not lead back to the lines");
    };
    carryOutWithoutFailure({.what = "escape", .press = escape});
  }

  void fill() {
    if (!editor().famLines.visible()) toLines();
    const Where where = whereInView();
    Draft draft{drawLine(world_[where].lines).first, draw(12) == 0 ? 0 : drawAmount(), where};
    if (!draft_) {
      const auto insert = [this] { editor().click(editor().mnuinsert); };
      if (draw(3) == 0) carryOutWithoutFailure({.what = "insert", .press = insert});
    } else if (draft_->altered) {
      // Typing on over a line being altered alters it.
      draft.altered = draft_->altered;
      draft.where = draft_->where;
    }
    typeDraft(draft);
    transcript_ += "  type " + draft.text() + "\n";
    look();
  }

  void enter() {
    fill();
    save();
  }

  void save() {
    if (!draft_ || !editor().famLines.visible()) return;
    const Draft draft = *draft_;
    if (openPairs(draft.where)) failing_ = -1;
    const auto press = [this] {
      editor().focus(editor().txtdrcr);
      editor().press(keys::Enter);
    };
    const auto change = [draft](World& world) {
      if (draft.amount == 0) return;
      if (draft.altered) world[draft.where].take(*draft.altered);
      world[draft.where].enter(draft.pair, draft.amount);
    };
    carryOut({.what = "save " + draft.text() + (draft.altered ? " for the line altered" : ""),
              .press = press,
              .change = change,
              .lenient = unloaded_,
              .looksOnly = draft.amount == 0,
              .saves = true,
              .about = {draft.pair, draft.altered ? draft.altered->first : draft.pair}});
    const bool refused = draft.amount == 0 || (unloaded_ && !editor().txtpart.text().empty());
    if (!failed_ && !refused) draft_.reset();
  }

  void alter() {
    const int row = drawRow();
    if (row == 0) return;
    editor().vsfm.setCurrent(row);
    const bool second = view() == 2 && shownAmount(row, current) == 0;
    const Where where = second ? *yearBefore() : whereInView();
    if (openPairs(where)) return;
    const Entry line{shownPair(row), shownAmount(row, second ? previous : current)};
    Draft draft{line.first, line.second, where, line};
    draft_ = draft;
    carryOutWithoutFailure(
        {.what = "alter " + draft.text(), .press = [this] { editor().click(editor().mnualter); }});
    if (draw(3) == 0) draft.pair.first = drawPair().first;
    if (draw(3) == 0) draft.pair.second = drawPair().second;
    if (draw(3) > 0) draft.amount = draw(2) == 0 ? -draft.amount : drawAmount();
    typeDraft(draft);
    if (draw(4) > 0) return save();
    look();
  }

  void remove() {
    const int row = drawRow();
    if (row == 0 || openPairs(where_) || (yearBefore() && openPairs(*yearBefore()))) return;
    const Pair pair = shownPair(row);
    std::map<Where, Entry> removed;
    for (const int year : {current, previous}) {
      if (!inView(year)) continue;
      removed[year == current ? where_ : *yearBefore()] = {pair, shownAmount(row, year)};
    }
    draft_.reset();
    const auto deleteRow = [this](int at) {
      editor().vsfm.setCurrent(at);
      editor().click(editor().mnudelete);
    };
    const auto deletePair = [this, pair, deleteRow] {
      for (int at = 1; at <= editor().vsfm.rows(); ++at) {
        if (shownPair(at) == pair) return deleteRow(at);
      }
    };
    const auto change = [removed](World& world) {
      for (const auto& [where, line] : removed) world[where].take(line);
    };
    carryOut({.what = "delete " + pair.first + ", " + pair.second,
              .press = [=] { deleteRow(row); },
              .change = change,
              .again = deletePair});
  }

  void transfer() {
    frmcrtb& form = editor();
    const Where where = whereInView();
    if (stale_ || unloaded_ || openPairs(where) || world_[where].lines.empty()) return;
    if (form.famSummary.visible()) toLines();
    draft_.reset();
    if (!form.famGroups.visible()) form.click(form.mnugroup);
    if (undone_) failing_ = -1;
    form.cbogroup.choose(1 + draw(form.cbogroup.size()));
    form.cbotgroup.choose(1 + draw(form.cbotgroup.size()));
    const std::string from = form.cbogroup.text(), to = form.cbotgroup.text();
    const auto change = [=](World& world) {
      for (const auto& [pair, amount] : std::exchange(world[where].lines, {})) {
        world[where].lines.emplace(Pair{pair.first, pair.second == from ? to : pair.second},
                                   amount);
      }
    };
    const auto again = [&form, from, to] {
      form.cbogroup.choose(std::max(1, form.cbogroup.find(from)));
      form.cbotgroup.choose(form.cbotgroup.find(to));
      if (form.cbogroup.text() == from) form.click(form.cmdupdate);
    };
    click("transfer " + from + " to " + to, form.cmdupdate, {.change = change, .again = again});
  }

 private:
  void click(const std::string& what, Control& control, Deed deed = {}) {
    deed.what = what;
    deed.press = [this, &control] { editor().click(control); };
    carryOut(deed);
  }

  void typeDraft(const Draft& draft) {
    draft_ = draft;
    type(editor().txtpart, draft.pair.first);
    type(editor().txtgroup, draft.pair.second);
    type(editor().txtamount, draft.amount == 0 ? "" : plain(draft.amount));
    type(editor().txtdrcr, draft.side());
  }

  // A row that can be altered or deleted, 0 where there is none.
  int drawRow() {
    if (!editor().famLines.visible()) toLines();
    const int rows = editor().vsfm.rows();
    return rows == 0 || stale_ || unloaded_ ? 0 : 1 + draw(rows);
  }

  // What a row of the grid shows of a year. The cells agree with the model.
  Paise shownAmount(int row, int year) {
    const int column = view() == 2 && year == previous ? 4 : 2;
    std::string digits = editor().vsfm.cell(row, column);
    std::erase(digits, '.');
    if (digits == "-") return 0;
    return editor().vsfm.cell(row, column + 1) == "DR" ? std::stoll(digits) : -std::stoll(digits);
  }

  Pair shownPair(int row) { return {editor().vsfm.cell(row, 0), editor().vsfm.cell(row, 1)}; }
};

}  // namespace quillet::support
