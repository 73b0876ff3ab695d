#include "app/start_questions.h"

#include <iostream>

#include "suite/server_password.h"

namespace quillet::app {
namespace {

using Examination = suite::ExaminationPolicy;
using Choice = Examination::Choice;

Examination::Choice ask(Dialogs& dialogs, const Examination::Obstacle& obstacle) {
  const std::string told =
      "The practice was not closed properly the last time, so its database is examined before it is"
      " opened. The examination has not come to its end: " +
      obstacle.reason + ". This does not mean that anything is damaged.\n\n";
  if (!obstacle.mayOpen) {
    const Answer answer = dialogs.MsgBox(
        {told + "Try again?", "Quillet", Buttons::YesNo, Icon::question, Answer::Yes});
    return answer == Answer::Yes ? Choice::wait : Choice::leave;
  }
  const Answer answer = dialogs.MsgBox(
      {told +
           "Go on examining it?\n\nYes examines it further, No opens it without, Cancel leaves it"
           " as it is.",
       "Quillet", Buttons::YesNoCancel, Icon::question, Answer::Yes});
  if (answer == Answer::Yes) return Choice::wait;
  return answer == Answer::No ? Choice::openUnexamined : Choice::leave;
}

}  // namespace

suite::StartPolicy askingPolicy(Dialogs& dialogs) {
  suite::StartPolicy policy;
  policy.examination.undecided = [&dialogs](const Examination::Obstacle& obstacle) {
    return ask(dialogs, obstacle);
  };
  policy.makeLostTables = [&dialogs](const std::string& loss) {
    return dialogs.MsgBox({loss + "\n\nGo on without, with empty tables in their place?", "Quillet",
                           Buttons::YesNo, Icon::exclamation, Answer::No}) == Answer::Yes;
  };
  policy.askPassword = [&dialogs](const std::string& prompt) { return dialogs.password(prompt); };
  policy.mayKeepPassword = [&dialogs](const std::string& whose) {
    return dialogs.MsgBox({"Keep the password of " + whose + " in the keyring of this desktop?",
                           "Quillet", Buttons::YesNo, Icon::question, Answer::Yes}) == Answer::Yes;
  };
  policy.putSettingsBack = [&dialogs](const std::string& loss) {
    return dialogs.MsgBox({loss + "\n\nThe books were not touched. Take the settings of the last"
                                  " start?",
                           "Quillet", Buttons::YesNo, Icon::question, Answer::Yes}) == Answer::Yes;
  };
  return policy;
}

suite::StartPolicy scriptPolicy() {
  suite::StartPolicy policy;
  policy.askPassword = suite::askAtTerminal;
  policy.examination.undecided = [](const Examination::Obstacle& obstacle) {
    if (!obstacle.mayOpen) return Choice::leave;
    std::cerr << "quillet: The database is opened without having been examined to the end: "
              << obstacle.reason << ".\n";
    return Choice::openUnexamined;
  };
  return policy;
}

}  // namespace quillet::app
