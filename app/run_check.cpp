#include "app/run_check.h"

#include <unistd.h>

#include <iostream>

#include "app/new_folder.h"
#include "app/start_questions.h"
#include "suite/backup/restore.h"
#include "suite/check/backup_first.h"
#include "suite/check/check_report.h"
#include "suite/clocks.h"
#include "suite/headless_front_end.h"
#include "suite/history/pruning.h"
#include "suite/queued_dialogs.h"
#include "suite/stations/sole_use.h"
#include "suite/text_report.h"

namespace quillet::app {
namespace {

namespace check = suite::check;

constexpr int sound = 0;
constexpr int unsound = 1;
constexpr int impossible = 2;

// A folder that is not there is not made for the sake of being examined.
std::filesystem::path folderToCheck(const std::filesystem::path& named) {
  const auto path = named.empty() ? suite::DataFolder::standard() : named;
  suite::backup::finishRestore(path);
  if (!suite::DataFolder::isThere(path)) {
    throw std::runtime_error("There is no data folder " + path.string() + ".");
  }
  return folderToOpen(path);
}

// A line that moves, for a person at a terminal.
class MovingLine {
 public:
  explicit MovingLine(std::string text) : text_(std::move(text)) {}
  ~MovingLine() {
    if (moves_) std::cerr << "\r\x1B[K" << std::flush;
  }
  MovingLine(const MovingLine&) = delete;
  MovingLine& operator=(const MovingLine&) = delete;

  bool operator()(long done, long total) const {
    if (moves_) std::cerr << '\r' << text_ << ' ' << done << " of " << total << std::flush;
    return true;
  }

 private:
  std::string text_;
  bool moves_ = isatty(STDERR_FILENO) != 0;
};

check::Examination examine(suite::Practice& practice) {
  const MovingLine line("Examining the books:");
  return check::examineBooks(practice, std::cref(line));
}

bool confirmed(const Options& options) {
  if (options.yes) return true;
  if (isatty(STDIN_FILENO) == 0) {
    std::cerr << "quillet: nobody is there to confirm; say --yes to mend\n";
    return false;
  }
  std::cout << "Do you want to mend what can be mended? [y/N] " << std::flush;
  std::string answer;
  std::getline(std::cin, answer);
  return answer == "y" || answer == "Y" || answer == "yes";
}

void mend(suite::Practice& practice, bool backedUp) {
  const MovingLine line("Mending the books:");
  std::cout << check::summaryOf(check::mendBooks(
                   practice, [&] { return check::backUpFirst(practice, backedUp); },
                   std::cref(line)))
            << '\n';
}

// As a script opens it; sets `unexamined` where the database was not examined to its end.
suite::StartPolicy noting(bool& unexamined) {
  using Examination = suite::ExaminationPolicy;
  suite::StartPolicy policy = scriptPolicy();
  policy.examination.undecided =
      [&unexamined, decide = policy.examination.undecided](const Examination::Obstacle& obstacle) {
        const Examination::Choice choice = decide(obstacle);
        unexamined = choice == Examination::Choice::openUnexamined;
        return choice;
      };
  return policy;
}

int checkFolder(const Options& options) {
  suite::QueuedDialogs dialogs;
  suite::HeadlessFrontEnd frontEnd(dialogs);
  suite::SystemClock clock;
  bool unexamined = false;
  suite::Practice practice(suite::DataFolder::open(folderToCheck(options.data)), frontEnd, clock,
                           noting(unexamined));
  if (options.mend) suite::refuseOtherStations(practice.database(), "Mending");
  check::Examination examination = examine(practice);
  std::cout << suite::textOf(check::reportOf(examination, practice.service()));
  if (options.mend && unexamined) {
    throw std::runtime_error("Nothing is mended in a database that was not examined to its end.");
  }
  if (options.mend && examination.mendable() > 0 && confirmed(options)) {
    mend(practice, options.backedUp);
    examination = examine(practice);
    std::cout << '\n' << suite::textOf(check::reportOf(examination, practice.service()));
  }
  return examination.clean() ? sound : unsound;
}

}  // namespace

int runCheck(const Options& options) {
  try {
    return checkFolder(options);
  } catch (const std::exception& error) {
    std::cerr << "quillet: " << error.what() << '\n';
    return impossible;
  }
}

int runPrune(const Options& options) {
  try {
    const std::optional<Date> before = readDate(options.before);
    if (!before) throw std::runtime_error("\"" + options.before + "\" is no day: 2018-03-31");
    suite::QueuedDialogs dialogs;
    suite::HeadlessFrontEnd frontEnd(dialogs);
    suite::SystemClock clock;
    suite::Practice practice(suite::DataFolder::open(folderToCheck(options.data)), frontEnd, clock,
                             scriptPolicy());
    const suite::Pruned pruned = suite::pruneHistory(
        practice.database(), practice.environment().actLog(), clock.today(), *before, options.file);
    std::cout << pruned.rows << " rows and " << pruned.acts << " acts went to "
              << options.file.string() << ".\n";
    return sound;
  } catch (const std::exception& error) {
    std::cerr << "quillet: " << error.what() << '\n';
    return impossible;
  }
}

}  // namespace quillet::app
