// What is done at the journal.
#pragma once

#include "property/editor_acts.h"

namespace quillet::support {

class JournalActs : public EditorActs {
 protected:
  void openJournal() {
    if (unloaded_ || stale_) return;
    if (!editor().famLines.visible()) toLines();
    draft_.reset();
    journalOf_ = whereInView();
    const auto press = [this] {
      if (journal()) journal()->close();
      editor().click(editor().mnujournal);
    };
    carryOut(
        {.what = "journal", .press = press, .posts = journalOf_, .unloaded = &journalUnloaded_});
  }

  void passVoucher() {
    toList();
    long last = 0;
    for (const auto& [where, each] : world_) {
      if (tableOf(where) != tableOf(journalOf_) || each.vouchers.empty()) continue;
      last = std::max(last, each.vouchers.rbegin()->first);
    }
    const Voucher voucher = drawVoucher();
    const auto like = drawStored();
    if (like && draw(3) == 0 && pickVoucher(like->first)) {
      // Typed over, and still a voucher of its own.
      journal()->click(draw(2) == 0 ? journal()->cmdcopy : journal()->cmdreverse);
    } else {
      journal()->click(journal()->cmdadd);
    }
    // What could not be read when the journal was opened is read now.
    require(journal()->Frame2.visible(), "no voucher can be begun");
    journalUnloaded_ = false;
    updateVoucher("pass", last + 1, {}, voucher);
  }

  void modifyVoucher() {
    const auto drawn = drawStored();
    if (!drawn) return;
    const auto& [number, old] = *drawn;
    Paise total = 0;
    for (const auto& [pair, amount] : old.lines) total += amount;
    const Voucher voucher = total == 0 && draw(4) == 0 ? old : drawVoucher();
    openVoucher(number);
    require(journal()->Frame2.visible(), "the voucher does not open");
    updateVoucher("modify", number, old, voucher);
  }

  void eraseVoucher() {
    const auto drawn = drawStored();
    if (!drawn) return;
    const auto erase = [this, number = drawn->first] {
      if (pickVoucher(number)) journal()->press(keys::Delete);
    };
    const auto again = [this, erase] {
      journal()->LOADGRID();
      erase();
    };
    const auto change = [drawn, where = journalOf_](World& world) {
      world[where].post(drawn->second, -1);
      world[where].vouchers.erase(drawn->first);
    };
    carryOut({.what = "delete voucher " + std::to_string(drawn->first),
              .press = erase,
              .change = change,
              .again = again,
              .posts = journalOf_,
              .voucher = drawn->first});
  }

  void printJournal() {
    if (journalUnloaded_ || stale_) return;
    toList();
    transcript_ += "  print the journal\n";
    checkJournalPrintouts();
  }

  void closeJournal() {
    const auto press = [this] {
      journal()->close();
      require(!journal(), "the journal does not close");
    };
    carryOut({.what = "close the journal", .press = press, .posts = journalOf_});
    journalUnloaded_ = false;
  }

  // Opening the journal posts what is left.
  void finishVouchers() {
    failing_ = -1;
    while (!halfPosted_.empty()) {
      if (journal()) closeJournal();
      if (halfPosted_.empty()) return;
      where_ = halfPosted_.begin()->first;
      openYear();
      openJournal();
    }
  }

 private:
  Voucher drawVoucher() {
    Voucher voucher;
    const int year = journalOf_.year + draw(2);
    const int month = year == journalOf_.year ? 4 + draw(9) : 1 + draw(3);
    const auto two = [](int number) { return std::to_string(100 + number).replace(0, 1, "-"); };
    voucher.date = std::to_string(year) + two(month) + two(1 + draw(28));
    if (draw(2) == 0) voucher.narration = "Being " + std::to_string(draw(99));
    Paise total = 0;
    for (int count = 1 + draw(3); count > 0; --count) {
      auto& [pair, amount] = voucher.lines.emplace_back(drawLine(world_[journalOf_].lines));
      // What is there is often taken out whole.
      amount = amount != 0 && draw(2) == 0 ? -amount : drawAmount();
      total += amount;
    }
    if (total != 0) voucher.lines.emplace_back(drawPair(), -total);
    if (voucher.lines.size() == 1) voucher.lines.emplace_back(drawPair(), -voucher.lines[0].second);
    return voucher;
  }

  void toList() {
    frmjrnl& form = *journal();
    if (!form.Frame2.visible()) return;
    transcript_ += "  cancel the entry\n";
    form.click(form.cmdcancel);
    require(form.Frame1.visible(), "cancelling does not lead back to the list");
    look();
  }

  void fillVoucher(const Voucher& voucher) {
    frmjrnl& form = *journal();
    require(form.focus(form.txtdt), "the focus does not reach the date");
    form.txtdt.clear();
    const std::string& date = voucher.date;
    for (const char c : date.substr(8, 2) + date.substr(5, 2) + date.substr(0, 4)) {
      form.press(static_cast<Key>(c));
    }
    const int count = static_cast<int>(voucher.lines.size());
    while (form.GETROWS() > count) form.click(form.cmdremove);
    while (form.GETROWS() < count) form.LOADCONTROLS();
    for (int line = 0; line < count; ++line) {
      const auto& [pair, amount] = voucher.lines[static_cast<std::size_t>(line)];
      form.focus(form.cboside[line]);
      form.cboside[line].choose(amount > 0 ? 2 : 1);
      type(form.txtledger[line], pair.first);
      form.press(keys::Tab);
      type(form.txtgroup[line], pair.second);
      type(amount > 0 ? form.txtdramt[line] : form.txtcramt[line], plain(amount));
    }
    type(form.txtnarr, voucher.narration);
  }

  void updateVoucher(const std::string& what, long number, const Voucher& old,
                     const Voucher& voucher) {
    fillVoucher(voucher);
    checkBalances(voucher, number);
    const auto press = [=, this] {
      if (journal()->Frame1.visible()) {
        journal()->LOADGRID();
        openVoucher(number);
        if (journal()->Frame1.visible()) return;  // the opening failed
        fillVoucher(voucher);
      }
      journal()->click(journal()->cmdupdate);
    };
    const auto change = [=, where = journalOf_](World& world) {
      world[where].post(old, -1);
      world[where].vouchers[number] = voucher;
      world[where].post(voucher, 1);
    };
    carryOut({.what = what + " voucher " + std::to_string(number),
              .press = press,
              .change = change,
              .posts = journalOf_,
              .voucher = number});
  }

  bool pickVoucher(long number) {
    frmjrnl& form = *journal();
    form.focus(form.vsf);
    form.vsf.setCurrent(form.vsf.findId(number));
    return form.vsf.current() > 0;
  }

  void openVoucher(long number) {
    pickVoucher(number);
    journal()->press(keys::Enter);
  }

  std::optional<std::pair<long, Voucher>> drawStored() {
    const auto& vouchers = world_[journalOf_].vouchers;
    if (journalUnloaded_ || stale_ || vouchers.empty()) return {};
    toList();
    return oneOf(vouchers);
  }
};

}  // namespace quillet::support
