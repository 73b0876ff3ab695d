// A deed at the keys with one of its statements failing, the comparison after it, and what the acts
// of a day are drawn from.
#pragma once

#include <random>

#include "data/text.h"
#include "property/screen.h"

namespace quillet::support {

inline constexpr const char* ledgers[] = {"Cash", "Loan", "Rent Paid", "Stock", "Wages"};

class Deeds : public Screen {
 protected:
  struct Draft {
    Pair pair;
    Paise amount = 0;
    Where where;
    std::optional<Entry> altered = {};
    std::string side() const { return amount > 0 ? "D" : "C"; }
    std::string text() const {
      return pair.first + ", " + pair.second + ", " + plain(amount) + " " + side();
    }
  };

  // Carries out the deed, with the statement of the act's number failing, and compares.
  void carryOut(const Deed& deed) {
    transcript_ += "  " + deed.what;
    const bool mayPutBack = undone_.has_value();
    const World before = undone_.value_or(world_), stood = world_;
    const Sent sent = send(deed);
    const bool failed = sent.failed;
    World after = before, begun = before;  // with what was imported when the deed had failed
    deed.change(after);
    const World done = after;
    std::vector<World> candidates{after};
    // A repetition is to leave what was imported before it too.
    if (imported_ && (!deed.repeats || after[where_].lines.empty())) {
      addImport(before, candidates, begun, failed);
    }
    if (failed || deed.lenient) candidates.push_back(begun);
    if (undone_ && deed.looksOnly) candidates.push_back(stood);
    checkTables(before, candidates, deed, failed);
    // What was typed stays until it is saved.
    const bool kept = failed && deed.saves && !editor().txtpart.text().empty();
    const bool decided = (world_ == candidates[0] && !kept) || world_ == begun;
    if (decided || (!failed && !(deed.looksOnly && world_ == stood))) {
      undone_.reset();
    } else if (deed.saves) {
      undone_ = begun;
    }
    stale_ = (stale_ && !sent.reloads) ||
             (failed && upperCase(sent.failedStatement).starts_with("SELECT"));
    if (failed && deed.saves && !kept) draft_.reset();
    if (deed.unloaded) *deed.unloaded = failed;
    if (failed) failed_ = {deed, candidates[0]};
    // All but the import was done, which the editor offers again.
    if (failed && imported_ && world_ == done && !deed.unloaded) {
      failed_->first.saves = false;
      failed_->first.again = [this] { editor().click(editor().mnurefresh); };
    }
    remember(stood, mayPutBack);
    look();
  }

  void carryOutWithoutFailure(const Deed& deed) {
    const int failing = std::exchange(failing_, -1);
    carryOut(deed);
    failing_ = failing;
  }

  void look() {
    checkScreen();
    if (failed_ || draft_ || stale_ || journal() || !editor().visible()) return;
    frmcrtb& form = editor();
    same("the fields", {{"", "", "", ""}},
         {{form.txtpart.text(), form.txtgroup.text(), form.txtamount.text(), form.txtdrcr.text()}});
  }

  // The deed that failed, once more.
  void repeat() {
    if (!failed_) return;
    auto again = *std::exchange(failed_, std::nullopt);
    Deed& deed = again.first;
    if (deed.posts && !journal()) return;
    deed.what += ", again";
    deed.repeats = true;
    if (deed.again) deed.press = deed.again;
    deed.change = [&](World& world) { world = again.second; };
    carryOut(deed);
    if (!failed_) draft_.reset();
  }

  int draw(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

  template <typename Many>
  const auto& oneOf(const Many& all) {
    return *std::next(all.begin(), draw(static_cast<int>(all.size())));
  }

  Pair drawPair() {
    const std::string& group = oneOf(groups).first;
    // A few ledgers more than there are, so that some are made on the way.
    const int at = draw(8);
    return {at < 5 ? ledgers[at] : "Maker\\ " + std::to_string(at), group};
  }

  // Often the same few amounts, so that balances meet zero.
  Paise drawAmount() {
    const Paise size = draw(2) == 0 ? 10 * (1 + draw(3)) : 1 + draw(100'000'000);
    return draw(2) == 0 ? size : -size;
  }

  // Often one that is there.
  Entry drawLine(const Lines& lines) {
    return !lines.empty() && draw(2) == 0 ? oneOf(lines) : Entry{drawPair(), 0};
  }

  std::string transcript_;  // what was done, a line for each deed
  std::optional<Draft> draft_;
  std::optional<std::pair<Deed, World>> failed_;  // and what it was to leave
  bool importing_ = false;                        // the answer to the question, if it is asked
  bool imported_ = false;
  int failing_ = -1;  // the number of the statement that fails
  std::mt19937 random_;

 private:
  struct Sent {
    bool failed, reloads;
    std::string failedStatement;
  };

  Sent send(const Deed& deed) {
    imported_ = false;
    statements();
    log();
    dialogs.takeMessages();
    if (failing_ >= 0) host().statements().failNext("", failing_);
    deed.press();
    host().statements().failNext("\nno statement holds this");
    const std::vector<std::string> all = statements(), lines = log();
    Sent sent{.failed = !lines.empty(), .reloads = false, .failedStatement = ""};
    const auto number = static_cast<std::size_t>(failing_);
    if (sent.failed && number < all.size()) sent.failedStatement = all[number];
    transcript_ += (sent.failed ? "; fails at: " + sent.failedStatement : "") + "\n";
    for (const std::string& text : messages()) transcript_ += "    \"" + text + "\"\n";
    require(lines.size() <= (failing_ >= 0 ? 1U : 0U),
            "the error log says " + ::testing::PrintToString(lines));
    require(!dialogs.takeFailure(), "a question was not answered");
    require(!frontEnd.busy, "the busy indicator stays");
    failing_ = -1;
    sent.reloads = std::ranges::any_of(all, [&](const std::string& sql) {
      return sql.starts_with(journal() ? "Select *  from JRNL_" : "Select * From TAB_") &&
             sql != sent.failedStatement;
    });
    return sent;
  }

  void addImport(const World& before, std::vector<World>& candidates, World& begun, bool failed) {
    const World after = candidates[0];
    const auto from = yearBefore();
    require(from && !after.at(*from).lines.empty(), "the import of nothing was proposed");
    const Lines &made = after.at(where_).lines, &imported = after.at(*from).lines;
    require(made.empty() || (failed && before.at(where_).lines.empty()), "the import was proposed");
    candidates[0][where_].lines = imported;
    for (const auto& [pair, amount] : made) candidates[0][where_].enter(pair, amount);
    if (!made.empty()) begun[where_].lines = imported;
    if (made.empty() && failed) candidates.push_back(after);
  }
};

}  // namespace quillet::support
