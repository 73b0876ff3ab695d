#include "suite/act_keeper.h"

#include <stdexcept>
#include <utility>

#include "data/errors.h"
#include "host/error_log.h"
#include "suite/stations/writing_procedures.h"

namespace quillet::suite {
namespace {

constexpr const char* inLog = " It stands in the error log.";

// A reason as a sentence.
std::string sentence(std::string text) {
  if (!text.empty() && text.back() != '.' && text.back() != '!') text += '.';
  return text;
}

}  // namespace

ActKeeper::ActKeeper(UnitOfWork& unit, ActLog& log, FileRemoval& removal, DiskWatch& disk,
                     Notices& notices, Clock& clock)
    : unit_(unit), log_(log), removal_(removal), disk_(disk), notices_(notices), clock_(clock) {}

ActKeeper::~ActKeeper() { leave(); }

void ActKeeper::follow(Context& context) {
  leave();
  context_ = &context;
  Acts& acts = context.openForms.acts;
  unit_.follow([&acts] { return acts.running(); });
  unit_.onKept = [this, &context] {
    stored_ = keptPart_ = true;
    context.kept();
  };
  acts.onEnded = [this] { ended(); };
  if (unit_.turns() != nullptr) {
    acts.onProcedure = [this](const std::string& form, const std::string& procedure) {
      begins(form, procedure);
    };
  }
  log_.cause = [this] { return cause(); };
  log_.onWrongClock = [this](const std::string& text) { tell(text); };
  log_.lookAtClocks();
}

ActCause ActKeeper::cause() const {
  const Acts& acts = context_->openForms.acts;
  ActCause cause;
  cause.form = acts.running() ? acts.name().form : std::string();
  cause.command = acts.running() ? acts.name().command : std::string();
  cause.client = context_->clientCode;
  cause.table = context_->table;
  cause.secondDate = context_->secondDate;
  return cause;
}

void ActKeeper::leave() {
  if (context_ == nullptr) return;
  context_->openForms.acts.onEnded = {};
  context_->openForms.acts.onProcedure = {};
  log_.cause = {};
  log_.onWrongClock = {};
  context_ = nullptr;
  unit_.follow([] { return false; });
  unit_.onKept = {};
}

// --- other stations ------------------------------------------------------------------------------

void ActKeeper::begins(const std::string& form, const std::string& procedure) {
  if (!context_->openForms.acts.running() || !isWriting(form, procedure)) return;
  unit_.beginWriting();
  readAnew();
  showMovement();
}

// After a time without a connection.
void ActKeeper::readAnew() {
  if (std::exchange(unread_, false)) context_->openForms.booksMoved(true);
}

void ActKeeper::showMovement() {
  const StationTurns::Movement movement = unit_.turns()->movement();
  if (movement.any) context_->openForms.booksMoved(movement.masters);
  const std::string node = unit_.turns()->elsewhere();
  if (node.empty()) return;
  tell("Another station works on the node " + node +
       " of the cluster, and this one on another. Nothing is lost by it, but what the one stores"
       " the other may see late. Name the same servers in the same order at all stations, and start"
       " Quillet anew.");
}

bool ActKeeper::look() {
  if (context_ == nullptr || unit_.turns() == nullptr) return true;
  Acts& acts = context_->openForms.acts;
  if (acts.running()) return true;
  const Act act(acts);
  try {
    if (!unit_.answersSoon()) return false;
    unit_.turns()->look();
    readAnew();
    lost_ = false;
    return true;
  } catch (const RunTimeError& error) {
    return lookAgain(error.what());
  }
}

bool ActKeeper::lookAgain(const std::string& reason) {
  try {
    if (!unit_.renewConnectionSoon()) return false;
    unit_.turns()->look();
    readAnew();
    tell("The connection to the database server was lost, and is open again.");
    lost_ = false;
    return true;
  } catch (const std::exception& error) {
    if (std::exchange(lost_, true)) return false;
    context_->openForms.onError("suite\tCONNECTION", std::runtime_error(reason));
    // Nothing was asked for, so nothing was left undone.
    trapped_.clear();
    tell("The connection to the database server is lost. " + sentence(error.what()) +
         " It is tried again by and by, and with whatever is done next.");
    return false;
  }
}

// --- the end of an act ---------------------------------------------------------------------------

void ActKeeper::trapped(const std::string& where, const std::exception& error) {
  const bool nothing = dynamic_cast<const NothingDone*>(&error) != nullptr;
  const std::string text =
      (where.empty() ? std::string() : where + ": ") +
      (nothing ? "nothing was entered, everything is as it was before. "
               : "what was asked for was not done, or not wholly. ") +
      sentence(error.what()) +
      (nothing ? "" : " Please look at what is stored before you enter it again.") + inLog;
  if (context_ == nullptr || !context_->openForms.acts.running()) return tell(text);
  if (trapped_.empty()) trapped_ = text;
}

void ActKeeper::ended() noexcept {
  try {
    endAct();
    keptPart_ = false;
    if (!trapped_.empty()) tell(std::exchange(trapped_, {}));
  } catch (...) {
    // There is neither memory nor a place left to tell it.
  }
}

void ActKeeper::endAct() {
  try {
    endUnit();
    removeFiles();
    unit_.end();
    if (unit_.turns() != nullptr) showMovement();
    unit_.end();
    watchDisk();
  } catch (const std::exception& error) {
    context_->openForms.onError("suite\tACT_ENDED", error);
  }
}

void ActKeeper::endUnit() {
  const bool keptPart = keptPart_;
  auto takenBack = unit_.end();
  if (!takenBack) return;
  context_->openForms.onError("suite\tACT_TAKEN_BACK", std::runtime_error(takenBack->reason));
  std::optional<bool> stored = false;
  bool connected = true;
  try {
    unit_.renewConnection();
    if (takenBack->uncertain) stored = unit_.wasStored();
  } catch (const std::exception& error) {
    connected = false;
    // What keeps us out says more than that the connection is lost.
    takenBack->reason = sentence(error.what()) + " Whatever is done next tries to connect again.";
    if (takenBack->uncertain) stored.reset();
  }
  tellTakenBack(takenBack->reason, stored, keptPart);
  // Nobody is to enter twice what may stand: nothing is shown again to be saved.
  if (stored.value_or(takenBack->uncertain)) context_->kept();
  context_->takenBack();
  // Nothing could be read anew, and that was told.
  if (!connected) trapped_.clear();
  unread_ = !connected;
  unit_.end();
}

// `stored`: whether the act is stored all the same, when that is known.
void ActKeeper::tellTakenBack(const std::string& reason, std::optional<bool> stored,
                              bool keptPart) {
  // What the act's procedures trapped follows from this.
  trapped_.clear();
  tell((stored.value_or(false) ? "The last step was stored, though its answer was lost. "
        : !stored
            ? "It is not known whether the last step was stored. Please look before you enter it "
              "again. "
        : keptPart ? "What followed the last message or question was not stored; what came before "
                     "it stands. "
                   : "Nothing of the last step was stored; everything is as it was before. ") +
       sentence(reason) + inLog);
}

void ActKeeper::removeFiles() {
  const std::vector<std::string> left = removal_.carryOut();
  if (left.empty()) return;
  std::string names;
  for (const std::string& name : left) names += (names.empty() ? "" : ", ") + name;
  tell(
      "These files of a deleted year could not be removed and are tried again at the next start: " +
      names + ".");
}

void ActKeeper::watchDisk() {
  if (!std::exchange(stored_, false)) return;
  if (const auto warning = disk_.warning()) tell(*warning);
}

void ActKeeper::tell(const std::string& text) {
  const std::string now = clock_.now();
  notices_.add(now.size() < 16 ? now : now.substr(11, 5), text);
}

}  // namespace quillet::suite
