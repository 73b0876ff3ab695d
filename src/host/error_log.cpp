#include "host/error_log.h"

#include <fstream>

#include "data/paths.h"
#include "host/context.h"

namespace quillet {
namespace {

constexpr long invalidCall = 5;

std::string oneLine(std::string text) {
  for (char& c : text) {
    if (c == '\t' || c == '\n' || c == '\r') c = ' ';
  }
  return text;
}

}  // namespace

TrappedError trapped(const std::exception& error) {
  if (const auto* known = dynamic_cast<const RunTimeError*>(&error)) {
    return {known->number(), known->what(), known->source()};
  }
  return {invalidCall, error.what(), "Quillet"};
}

void logError(const Context& context, const TrappedError& error) {
  if (error.number == 0) return;
  std::ofstream log(below(context.host->ExePath(), "\\TalLog.log"), std::ios::app);
  log << context.clock.now() << '\t' << error.number << '\t' << oneLine(error.description) << '\t'
      << oneLine(error.source) << '\t' << context.errorLocation << '\n';
}

}  // namespace quillet
