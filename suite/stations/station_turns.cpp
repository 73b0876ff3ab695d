#include "suite/stations/station_turns.h"

#include <utility>

#include "data/errors.h"

namespace quillet::suite {

StationTurns::StationTurns(Database& database) : database_(database), turn_(database) {
  turn_.open();
  known_ = turn_.read();
}

void StationTurns::look() { note(turn_.read()); }

void StationTurns::note(const TurnCount& count) {
  const TurnCount before = std::exchange(known_, count);
  if (count == before) return;
  movement_.any = true;
  movement_.masters = movement_.masters || count.masters != before.masters;
  if (onMoved) onMoved();
}

RecordsetPtr StationTurns::query(const std::string& sql) {
  if (!tape_.running()) look();
  std::size_t answer = 0;
  RecordsetPtr rows = database_.query(sql, answer);
  tape_.read(sql, answer);
  return rows;
}

std::size_t StationTurns::answerTo(const std::string& sql) {
  std::size_t answer = 0;
  database_.query(sql, answer);
  return answer;
}

bool StationTurns::stillTrue() {
  return tape_.again([&](const std::string& sql) { return answerTo(sql); },
                     [](const std::string&) {});
}

void StationTurns::take() {
  const TurnCount before = known_;
  note(turn_.take());
  if (before.acts != known_.acts && !stillTrue()) {
    throw RunTimeError(changedMeanwhile,
                       "The books were changed by somebody else at the same moment. What is shown "
                       "now is as they stand; please look, and do it again.",
                       "Stations");
  }
}

bool StationTurns::takeAgain(const std::function<void(const std::string& sql)>& write) {
  note(turn_.take());
  return tape_.again([&](const std::string& sql) { return answerTo(sql); }, write);
}

void StationTurns::pass(bool masters) {
  turn_.pass(masters);
  passed_ = {known_.acts + 1, known_.masters + (masters ? 1 : 0), known_.presence};
  passing_ = true;
}

void StationTurns::stored() {
  tape_.stored();
  if (std::exchange(passing_, false)) known_ = passed_;
}

}  // namespace quillet::suite
