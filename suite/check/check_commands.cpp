#include "suite/check/check_commands.h"

#include <algorithm>
#include <functional>

#include "controls/form.h"
#include "suite/check/backup_first.h"
#include "suite/check/check_report.h"

namespace quillet::suite::check {
namespace {

constexpr const char* checkTitle = "Check the Books";

class ShownSteps {
 public:
  ShownSteps(FrontEnd& frontEnd, const std::string& text) : frontEnd_(frontEnd) {
    frontEnd_.showProgress(true);
    frontEnd_.progressText(text);
  }
  ~ShownSteps() { frontEnd_.showProgress(false); }
  ShownSteps(const ShownSteps&) = delete;
  ShownSteps& operator=(const ShownSteps&) = delete;

  bool operator()(long done, long total) const {
    frontEnd_.progressBar(done, total);
    return !frontEnd_.progressStopped();
  }

 private:
  FrontEnd& frontEnd_;
};

// What shows books may not go on showing what was mended behind it.
bool showsBooks(Practice& practice) {
  const auto& open = practice.context().openForms.open();
  return std::ranges::any_of(open, [&](const Form* form) { return form->name() != "third"; });
}

}  // namespace

bool CheckCommands::examine() {
  if (practice_.context().openForms.acts.running()) return false;
  try {
    const Examination examination = examineWithProgress();
    // Of half an examination nothing is offered.
    mendable_ = examination.complete ? examination.mendable() : 0;
    practice_.frontEnd().showReport(reportOf(examination, practice_.service()));
  } catch (const std::exception& error) {
    mendable_ = 0;
    tell(std::string("The books could not be examined.\n") + error.what(), Icon::critical);
  }
  return mendable_ > 0;
}

Examination CheckCommands::examineWithProgress() {
  const ShownSteps steps(practice_.frontEnd(), "Examining the books....");
  return examineBooks(practice_, std::cref(steps));
}

void CheckCommands::offerMending() {
  if (practice_.context().openForms.acts.running()) return;
  if (showsBooks(practice_)) {
    return tell("To have the books mended, close every window but the first and check them again.",
                Icon::information);
  }
  const std::string backup =
      isBackedUpThere(practice_)
          ? "The books are on a database server, and backups are made there. "
            "Answer Yes only if they were backed up."
          : "A backup is made before.";
  Message question{"Do you want to mend what can be mended?\n\n" + backup, checkTitle,
                   Buttons::YesNo, Icon::question};
  question.defaultAnswer = Answer::No;
  if (practice_.frontEnd().dialogs().MsgBox(question) == Answer::Yes) mend();
}

void CheckCommands::mend() {
  try {
    Mending mending;
    {
      const ShownSteps steps(practice_.frontEnd(), "Mending the books....");
      mending = mendBooks(
          practice_, [this] { return backUpFirst(practice_, true); }, std::cref(steps));
    }
    tell(summaryOf(mending), mending.failed.empty() ? Icon::information : Icon::exclamation);
  } catch (const std::exception& error) {
    return tell(std::string("The books were not mended.\n") + error.what(), Icon::critical);
  }
  examine();
}

void CheckCommands::tell(const std::string& text, Icon icon) {
  practice_.frontEnd().dialogs().MsgBox({text, checkTitle, Buttons::OK, icon});
}

}  // namespace quillet::suite::check
