#include "suite/act_keeper.h"

#include <stdexcept>
#include <utility>

#include "host/error_log.h"

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
  log_.cause = [this] { return cause(); };
  log_.onClockBehind = [this](const std::string& text) { tell(text); };
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
  log_.cause = {};
  log_.onClockBehind = {};
  context_ = nullptr;
  unit_.follow([] { return false; });
  unit_.onKept = {};
}

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
    watchDisk();
  } catch (const std::exception& error) {
    context_->openForms.onError("suite\tACT_ENDED", error);
  }
}

void ActKeeper::endUnit() {
  const bool keptPart = keptPart_;
  const auto takenBack = unit_.end();
  if (!takenBack) return;
  tellTakenBack(*takenBack, keptPart);
  try {
    unit_.renewConnection();
  } catch (const std::exception& error) {
    tell(sentence(error.what()) + " Whatever is done next tries to connect again.");
  }
  // Nobody is to enter twice what may stand: nothing is shown again to be saved.
  if (takenBack->uncertain) context_->kept();
  context_->takenBack();
  unit_.end();
}

void ActKeeper::tellTakenBack(const UnitOfWork::TakenBack& takenBack, bool keptPart) {
  context_->openForms.onError("suite\tACT_TAKEN_BACK", std::runtime_error(takenBack.reason));
  // What the act's procedures trapped follows from this.
  trapped_.clear();
  tell((takenBack.uncertain
            ? "It is not known whether the last step was stored. Please look before you enter it "
              "again. "
        : keptPart ? "What followed the last message or question was not stored; what came before "
                     "it stands. "
                   : "Nothing of the last step was stored; everything is as it was before. ") +
       sentence(takenBack.reason) + inLog);
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
