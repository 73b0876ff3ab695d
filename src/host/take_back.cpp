#include "host/take_back.h"

namespace quillet {

std::optional<std::string> takeBackLast(Context& context, const YearOfClient& year) {
  BooksHistory* const history = context.environment.history();
  if (!history) return std::nullopt;
  const BooksHistory::TakenBack end = history->takeBackLast(year);
  if (end.done) return end.told;
  context.MsgBox(end.told, Buttons::OK, Icon::information, Answer::Yes, "Take Back");
  return std::nullopt;
}

}  // namespace quillet
