// Queued answers in place of a person.
#include <gtest/gtest.h>

#include <stdexcept>

#include "suite/queued_dialogs.h"

namespace quillet::suite {
namespace {

const Message question{"Sure?", "Delete", Buttons::YesNo, Icon::question, Answer::No};
const Message notice{"Done.", "", Buttons::OK, Icon::information, Answer::OK};

TEST(QueuedDialogs, AnswersInOrderAndRecordsWhatWasAsked) {
  QueuedDialogs dialogs;
  dialogs.queueAnswer(Answer::Yes);
  dialogs.queueAnswer(Answer::OK);
  EXPECT_EQ(dialogs.MsgBox(question), Answer::Yes);
  EXPECT_EQ(dialogs.MsgBox(notice), Answer::OK) << "takes the OK that was queued";
  EXPECT_EQ(dialogs.MsgBox(notice), Answer::OK) << "and needs none";
  EXPECT_EQ(dialogs.left(), 0U);
  const auto asked = dialogs.takeMessages();
  ASSERT_EQ(asked.size(), 3U);
  EXPECT_EQ(asked[0].message.text, "Sure?");
  EXPECT_EQ(asked[0].answer, Answer::Yes);
  EXPECT_TRUE(dialogs.takeMessages().empty());
  dialogs.queueAnswer(Answer::No);
  dialogs.MsgBox(notice);
  EXPECT_EQ(dialogs.MsgBox(question), Answer::No) << "a notice leaves it to the question";
}

TEST(QueuedDialogs, AFileOrPasswordThatIsNotQueuedIsAFailureThatIsKept) {
  QueuedDialogs dialogs;
  EXPECT_THROW(dialogs.saveFile("*", "a.xls"), std::runtime_error);
  EXPECT_THROW(dialogs.password("Password"), std::runtime_error);
  EXPECT_TRUE(dialogs.takeFailure().has_value());
}

TEST(QueuedDialogs, FilesAndPasswordsAreQueuedOrCancelled) {
  QueuedDialogs dialogs;
  dialogs.queueFile("/tmp/x.xls");
  dialogs.queueFile(std::nullopt);
  EXPECT_EQ(dialogs.saveFile("Excel Files|*.xls", "ORVO_TB.xls"), "/tmp/x.xls");
  EXPECT_EQ(dialogs.saveFile("Excel Files|*.xls", "ORVO_TB.xls"), std::nullopt);
  EXPECT_EQ(dialogs.takePrompts(), (std::vector<std::string>{"ORVO_TB.xls", "ORVO_TB.xls"}));
}

}  // namespace
}  // namespace quillet::suite
