#include "journey/steps.h"

#include <fstream>
#include <stdexcept>

namespace quillet::journey {

std::string trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\r");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

Split split(const std::string& text, char separator) {
  const auto at = text.find(separator);
  if (at == std::string::npos) return {text, {}};
  return {text.substr(0, at), trimmed(text.substr(at + 1))};
}

std::vector<Step> readSteps(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw std::runtime_error(file + " cannot be read.");
  std::vector<Step> steps;
  for (std::string line; std::getline(stream, line);) {
    const auto [verb, rest] = split(trimmed(line));
    if (verb.empty() || verb == "#") continue;
    if (verb == "|") {
      steps.at(steps.size() - 1).expected.push_back(rest);
    } else {
      steps.push_back({trimmed(line), verb, rest, {}});
    }
  }
  return steps;
}

}  // namespace quillet::journey
