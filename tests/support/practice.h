// A practice for tests: the module on a real embedded database in a folder of its own, which
// disappears with the process. The database starts once; every test begins with empty tables, fresh
// settings and a module just started.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "controls/grid.h"
#include "controls/text_box.h"
#include "suite/client_register.h"
#include "suite/clocks.h"
#include "suite/headless_front_end.h"
#include "suite/queued_dialogs.h"
#include "suite/standalone_environment.h"
#include "support/failing_deed.h"

namespace quillet::support {

// A folder under the system's temporary folder, removed with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// How many table numbers the practice of the tests has; few, because emptying tables takes time.
inline constexpr long tableNumbers = 6;

// Queued answers, or those that a test works out when it is asked.
struct Answers : suite::QueuedDialogs {
  std::function<Answer(const Message&)> answering;
  Answer MsgBox(const Message& message) override {
    if (answering && message.buttons != Buttons::OK) queueAnswer(answering(message));
    return QueuedDialogs::MsgBox(message);
  }
};

struct Line {
  std::string ledger;
  std::string group;
  double amount;  // debit positive, credit negative
};

class PracticeTest : public ::testing::Test {
 protected:
  PracticeTest();
  // Fails the test when a question found no answer or an answer was left over.
  void TearDown() override;

  suite::Practice& practice;
  Answers& dialogs;
  suite::HeadlessFrontEnd& frontEnd;
  suite::FixedClock& clock;

  Context& context() { return practice.context(); }
  suite::Service& host() { return practice.service(); }

  using Texts = std::vector<std::string>;
  using Rows = std::vector<Texts>;

  // As a person does it: to the field, over what stands there, key by key.
  static void type(TextBox& box, const std::string& text);
  // Where the focus is; "\r" is Enter, "\b" Backspace.
  static void press(Form& form, const std::string& keys);
  // The shown cells of the grid's shown rows.
  static Rows shown(const Grid& grid);

  // Straight to the database, not recorded.
  void exec(const std::string& sql);
  // Rows as texts; null reads "NULL".
  Rows rows(const std::string& sql);
  // The first cell of the first row, "" when there is no row.
  std::string value(const std::string& sql);
  // Rows and keys that the database has looked at so far.
  long rowsRead();

  void addClient(const std::string& code, const std::string& name);
  // The ids of a group (made under the primary group `gid` when new) and of a ledger.
  long group(const std::string& name, long gid = 1, bool predefined = false);
  long ledger(const std::string& name);
  // Registers the year beginning on 1 April of `firstYear` under the next free number and fills its
  // trial balance; returns its table's name.
  std::string addYear(const std::string& client, int firstYear,
                      const std::vector<Line>& lines = {});
  // Makes it the client and year in work.
  void select(const std::string& client, int firstYear);

  // Statements of the module since the last call.
  std::vector<std::string> statements() { return host().statements().take(); }
  // Lines of the error log since the last call.
  std::vector<std::string> log();
  // Where they were trapped: form and procedure, separated by a tab.
  std::vector<std::string> trapped();
  // Texts of the messages since the last call.
  std::vector<std::string> messages();
  // The messages since the last call: text, buttons, icon and the answer proposed.
  Rows asked();
  // The report shown last.
  const suite::Document& document() { return practice.environment().lastReport().value(); }
  // The texts of its table; no rows where none was shown.
  Rows printed(bool withHeadings = true);

  // The rows of every table that the module changes.
  Rows books();

  // Once for each statement of the deed and each continuation: arranges, lets that statement fail,
  // goes on with the continuation, compares. Unanswered questions are those of `act`.
  void failEachStatement(const FailingDeed& deed);

 private:
  std::size_t logSeen_ = 0;
};

}  // namespace quillet::support
