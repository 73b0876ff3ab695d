#include "suite/act_keeper.h"

#include <stdexcept>
#include <utility>

namespace quillet::suite {
namespace {

constexpr const char* inLog = " It stands in the error log.";

// A reason as a sentence.
std::string sentence(std::string text) {
  if (!text.empty() && text.back() != '.' && text.back() != '!') text += '.';
  return text;
}

}  // namespace

ActKeeper::ActKeeper(UnitOfWork& unit, FileRemoval& removal, DiskWatch& disk, Notices& notices,
                     Clock& clock)
    : unit_(unit), removal_(removal), disk_(disk), notices_(notices), clock_(clock) {}

ActKeeper::~ActKeeper() { leave(); }

void ActKeeper::follow(Context& context) {
  leave();
  context_ = &context;
  Acts& acts = context.openForms.acts;
  unit_.follow([&acts] { return acts.running(); });
  unit_.onKept = [this, &context] {
    stored_ = true;
    context.kept();
  };
  acts.onEnded = [this] { ended(); };
}

void ActKeeper::leave() {
  if (context_ == nullptr) return;
  context_->openForms.acts.onEnded = {};
  context_ = nullptr;
  unit_.follow([] { return false; });
  unit_.onKept = {};
}

void ActKeeper::trapped(const std::string& where, const std::exception& error) {
  const std::string text = (where.empty() ? std::string() : where + ": ") +
                           "what was asked for was not done, or not wholly. " +
                           sentence(error.what()) + inLog;
  if (context_ == nullptr || !context_->openForms.acts.running()) return tell(text);
  if (trapped_.empty()) trapped_ = text;
}

void ActKeeper::ended() noexcept {
  try {
    endAct();
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
  const std::optional<std::string> reason = unit_.end();
  if (!reason) return;
  // What the act's procedures trapped follows from this.
  trapped_.clear();
  tellTakenBack(*reason);
  try {
    unit_.renewConnection();
  } catch (const std::exception& error) {
    tell(sentence(error.what()) + " Whatever is done next tries to connect again.");
  }
  context_->takenBack();
  unit_.end();
}

void ActKeeper::tellTakenBack(const std::string& reason) {
  context_->openForms.onError("suite\tACT_TAKEN_BACK", std::runtime_error(reason));
  trapped_.clear();
  tell("Nothing of the last step was stored; everything is as it was before. " + sentence(reason) +
       inLog);
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
