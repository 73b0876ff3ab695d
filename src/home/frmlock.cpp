#include "home/frmlock.h"

#include "books/clients.h"
#include "books/locked_years.h"
#include "books/posting.h"
#include "data/text.h"
#include "home/year_removal.h"
#include "host/rights.h"
#include "host/year_lock.h"

namespace quillet {
namespace {

constexpr int reasonLength = 200;

}  // namespace

frmlock::frmlock(Context& context) : Form(context.openForms, "frmlock"), context_(context) {
  txtreason.setMaxLength(reasonLength);
  cmdok.Click = [this] { CMDOK_CLICK(); };
  cmdcancel.Click = [this] { CMDCANCEL_CLICK(); };
  KeyPress = [this](Key& key) { FORM_KEYPRESS(key); };
}

void frmlock::INITDATA(const std::string& client, const std::string& clientName,
                       const YearKeys& keys) {
  client_ = client;
  keys_ = keys;
  done_ = false;
  const auto lock = lockOf(context_, client, keys.second);
  unlocks_ = lock.has_value();
  setCaption(unlocks_ ? "Unlock Year" : "Lock Year");
  lblsubject.setCaption(subjectOf(clientName, client, keys.first, keys.second));
  lbllock.setCaption(lock ? "Locked: " + lockText(*lock)
                          : "Nothing of a locked year can be entered, altered, imported or "
                            "deleted.");
  cmdok.setCaption(unlocks_ ? "&Unlock" : "&Lock");
}

LayoutItem frmlock::layout() {
  return column({item(lblsubject), item(lbllock), field("&Reason", txtreason, 50, 1), gap(),
                 row({gap(), item(cmdok), item(cmdcancel)})});
}

void frmlock::FORM_LOAD() {
  context_.host->resize_for_resolution(*this);
  size.width = 0.6;
  size.height = 0.2;
  txtreason.setText("");
  focus(txtreason);
}

void frmlock::FORM_KEYPRESS(Key& key) {
  if (key == keys::Escape) {
    key = keys::none;
    CMDCANCEL_CLICK();
  } else if (key == keys::Enter && active() == &txtreason) {
    key = keys::none;
    click(cmdok);
  }
}

bool frmlock::stands() {
  const auto year = Registry(*context_.host).year(client_, keys_, YearSelect::home);
  const auto lock = lockOf(context_, client_, keys_.second);
  const bool elsewhere = lock && !lock->station.empty();
  if (year && !elsewhere && lock.has_value() == unlocks_) return true;
  if (!elsewhere || !refusedAsLocked(context_, client_, keys_)) {
    context_.MsgBox("The year was changed meanwhile. Please look at the list of years again.",
                    Buttons::OK, Icon::information);
  }
  close();
  return false;
}

void frmlock::CMDOK_CLICK() {
  const std::string reason(trimmed(txtreason.text()));
  if (reason.empty()) {
    context_.MsgBox(std::string("Please type the reason why the year is ") +
                        (unlocks_ ? "unlocked." : "locked."),
                    Buttons::OK, Icon::information);
    focus(txtreason);
    return;
  }
  if (!stands()) return;
  YearLocks& locks = *context_.environment.yearLocks();
  if (unlocks_) {
    if (!context_.host->CheckPass(right::unlockYear)) return;
    locks.unlock(client_, keys_.second, reason);
  } else {
    // What is left to be written into the year is written before.
    closeEditorOf(context_, client_, Registry(*context_.host).tableOf(client_, keys_));
    postAllMissing(*context_.host, context_.unposted);
    locks.lock(client_, keys_.second, reason);
  }
  done_ = true;
  close();
}

void frmlock::CMDCANCEL_CLICK() { close(); }

}  // namespace quillet
