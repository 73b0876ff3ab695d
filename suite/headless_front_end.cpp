#include "suite/headless_front_end.h"

namespace quillet::suite {

void HeadlessFrontEnd::progressText(const std::string& text) {
  progress = text;
  ++updates;
}

void HeadlessFrontEnd::progressBar(long doneSteps, long totalSteps) {
  done = doneSteps;
  total = totalSteps;
  ++updates;
}

void HeadlessFrontEnd::showClient(const std::string& code, const std::string&) { client = code; }

int HeadlessFrontEnd::popup(const std::vector<std::string>& entries) {
  menu = entries;
  if (popups_.empty()) return 0;
  const int position = popups_.front();
  popups_.pop_front();
  return position;
}

}  // namespace quillet::suite
