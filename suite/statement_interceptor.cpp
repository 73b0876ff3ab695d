#include "suite/statement_interceptor.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "data/errors.h"

namespace quillet::suite {
namespace {

bool contains(const std::string& text, const std::string& part) {
  return std::search(text.begin(), text.end(), part.begin(), part.end(),
                     [](unsigned char a, unsigned char b) {
                       return std::tolower(a) == std::tolower(b);
                     }) != text.end();
}

}  // namespace

void StatementInterceptor::pass(const std::string& sql) {
  if (recording_) recorded_.push_back(sql);
  if (failing_ && contains(sql, *failing_) && spared_-- == 0) {
    const std::string text =
        "A statement with \"" + *std::exchange(failing_, std::nullopt) + "\" was made to fail.";
    unit_.failed(error_, text);
    throw RunTimeError(error_, text, "MariaDB");
  }
}

void StatementInterceptor::execute(const std::string& sql) {
  pass(sql);
  unit_.execute(sql);
}

RecordsetPtr StatementInterceptor::query(const std::string& sql) {
  pass(sql);
  return unit_.query(sql);
}

void StatementInterceptor::record(bool on) {
  recording_ = on;
  recorded_.clear();
}

std::vector<std::string> StatementInterceptor::take() { return std::exchange(recorded_, {}); }

}  // namespace quillet::suite
