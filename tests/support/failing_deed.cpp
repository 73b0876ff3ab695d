#include "support/failing_deed.h"

#include "data/text.h"
#include "support/practice.h"

namespace quillet::support {
namespace {

// The statements before it stay in effect, or the whole act is taken back.
enum class Failure { ofItsOwn, diskFull };

// A read needs no room on the disk, and a flush does not reach it.
bool writes(const std::string& sql) {
  const std::string command = upperCase(sql.substr(0, 6));
  return command != "SELECT" && !command.starts_with("FLUSH");
}

}  // namespace

void PracticeTest::failEachStatement(const FailingDeed& deed) {
  const auto begin = [&] {
    dialogs.clear();
    if (deed.arrange) deed.arrange();
    log();
    statements();
  };
  const auto result = [&] { return deed.result ? deed.result() : Rows{}; };

  begin();
  deed.act();
  const std::vector<std::string> whole = statements();
  const Rows usual = result();
  ASSERT_EQ(log(), std::vector<std::string>{}) << deed.what;
  ASSERT_GT(whole.size(), deed.behind) << deed.what;

  // The statement of that number fails, then the continuation.
  const auto failAt = [&](std::size_t i, Failure failure, const Continuation& next,
                          const Rows& expected) {
    begin();
    const Rows before = books();
    const bool diskFull = failure == Failure::diskFull;
    host().statements().failNext("", static_cast<long>(i), diskFull ? 1021 : 1105);
    frontEnd.notices().close();
    const unsigned long act = context().openForms.acts.number();
    deed.act();
    const bool oneAct = context().openForms.acts.number() == act + 1;
    const std::vector<std::string> sent = statements();
    ASSERT_GT(sent.size(), i);
    EXPECT_EQ(sent[i], whole[i]);
    const std::vector<std::string> lines = log();
    ASSERT_GE(lines.size(), 1U);
    EXPECT_NE(lines[0].find('\t' + deed.place), std::string::npos) << lines[0];
    EXPECT_EQ(frontEnd.notices().open().size(), 1U);
    EXPECT_FALSE(frontEnd.busy);
    if (diskFull) {
      // An act before it, and what was told to be done, stand.
      if (oneAct) {
        EXPECT_EQ(books(), before);
      }
    } else {
      if (deed.stops) {
        EXPECT_EQ(sent.size(), i + 1);
      }
      EXPECT_EQ(lines.size(), 1U);
      if (deed.check) deed.check();
    }
    ASSERT_EQ(dialogs.takeFailure().value_or(""), "");
    dialogs.clear();
    if (next.act) {
      next.act();
      EXPECT_EQ(log(), std::vector<std::string>{});
      EXPECT_EQ(result(), expected);
    }
    if (next.check) next.check();
    ASSERT_EQ(dialogs.takeFailure().value_or(""), "");
  };
  std::vector<Continuation> all = deed.next;
  if (all.empty()) all.push_back({"nothing else", {}});
  for (const Continuation& next : all) {
    Rows expected = usual;
    if (next.instead) {
      begin();
      next.instead();
      expected = result();
    }
    // One failure is enough to read.
    for (std::size_t i = 0; i + deed.behind < whole.size() && !HasFailure(); ++i) {
      SCOPED_TRACE(deed.what + ", failing at " + std::to_string(i + 1) + " of " +
                   std::to_string(whole.size()) + ": " + whole[i] + ", then " + next.what);
      failAt(i, Failure::ofItsOwn, next, expected);
      if (!HasFailure() && !next.check && writes(whole[i])) {
        SCOPED_TRACE("the disk being full");
        failAt(i, Failure::diskFull, next, expected);
      }
    }
  }
  dialogs.clear();
}

}  // namespace quillet::support
