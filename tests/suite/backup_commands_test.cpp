// What a person does from the menu.
#include "suite/backup/backup_commands.h"

#include <fstream>

#include "suite/backup/backup_place.h"
#include "suite/backup/unpacker.h"
#include "support/practice.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;

class CommandsTest : public support::PracticeTest {
 protected:
  support::TemporaryFolder temporary;
  backup::BackupCommands commands{practice};
  fs::path file = temporary.path() / "mine.tar.zst";

  // As a dialog gives it back.
  void backUpTo(const fs::path& named) {
    dialogs.queueFile(named.string());
    commands.backUp();
  }
};

TEST_F(CommandsTest, BackUpWhereAPersonChooses) {
  dialogs.queueFile(std::nullopt);
  commands.backUp();
  EXPECT_EQ(messages().size(), 0U);
  const std::string time = practice.environment().clock().now();
  EXPECT_NE(dialogs.takePrompts().at(0).find(backup::stampOf(time) + ".tar.zst"),
            std::string::npos);
  for (const char* name : {"mine", "mine.zst", "mine.tar.zst"}) {
    backUpTo(temporary.path() / name);
    EXPECT_NE(messages().at(0).find("was made"), std::string::npos) << name;
    EXPECT_GT(backup::verify(file), 0U);
    fs::remove(file);
  }
  backUpTo(file);
  dialogs.queueAnswer(Answer::No);
  const auto before = fs::last_write_time(file);
  backUpTo(file);
  EXPECT_EQ(fs::last_write_time(file), before);
  backUpTo(temporary.path() / "missing" / "x");
  const Rows rows = asked();
  EXPECT_EQ(rows.at(1).at(3), "No");
  EXPECT_NE(rows.at(2).at(0).find("was not made"), std::string::npos);
}

TEST_F(CommandsTest, RestoreAsksFirstAndClosesTheForms) {
  backUpTo(file);
  messages();
  Settings(practice.folder().settings()).set("Server", "Host", "server");
  dialogs.takePrompts();
  for (const bool back : {true, false}) {
    back ? commands.backUp() : commands.restore();
    EXPECT_NE(messages().at(0).find("database server"), std::string::npos);
    EXPECT_TRUE(dialogs.takePrompts().empty()) << "no file is asked for";
  }
  Settings(practice.folder().settings()).set("Server", "Host", "");
  std::ofstream(temporary.path() / "letter.tar.zst") << "Dear";
  practice.forms().ObjThird()->show();
  messages();
  dialogs.queueFile((temporary.path() / "letter.tar.zst").string());
  commands.restore();
  EXPECT_NE(messages().at(0).find("not a backup"), std::string::npos);
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    dialogs.queueFile(file.string());
    dialogs.queueAnswer(answer);
    commands.restore();
    EXPECT_EQ(asked().at(0).at(3), "No");
    EXPECT_EQ(commands.chosen(), answer == Answer::Yes ? file : fs::path());
    EXPECT_EQ(context().openForms.active() == nullptr, answer == Answer::Yes);
  }
}

TEST_F(CommandsTest, NothingIsWrittenInTheMiddleOfAnAct) {
  const Act act(context().openForms.acts);
  EXPECT_THROW(commands.write(file), std::runtime_error);
  EXPECT_FALSE(fs::exists(file));
}

}  // namespace
}  // namespace quillet::suite
