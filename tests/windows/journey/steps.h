// A journey as it is written: a verb and the rest on each line; "#" begins a comment.
#pragma once

#include <string>
#include <vector>

namespace quillet::journey {

struct Step {
  std::string line;
  std::string verb;
  std::string rest;
  std::vector<std::string> expected;  // the lines after it that begin with "|"
};

std::vector<Step> readSteps(const std::string& file);

// Without spaces at both ends; the first word and what follows it.
std::string trimmed(const std::string& text);
struct Split {
  std::string first;
  std::string rest;
};
Split split(const std::string& text, char separator = ' ');

}  // namespace quillet::journey
