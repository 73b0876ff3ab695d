// What a person is told quietly: a line in the windows that stays until it is closed. It tells what
// was not done, and when.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quillet::suite {

class Notices {
 public:
  // `time` reads "hh:mm"; the text is one or more sentences.
  void add(const std::string& time, const std::string& text);
  // Those not closed yet, oldest first, with their times; texts that repeat stand once, at the last
  // time.
  const std::vector<std::string>& open() const { return open_; }
  void close();

  // A view's hook.
  std::function<void()> onChanged;

 private:
  std::vector<std::string> texts_;
  std::vector<std::string> open_;
};

}  // namespace quillet::suite
