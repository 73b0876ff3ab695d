#include "suite/calc_spreadsheet.h"

#include <stdexcept>

#include "data/sql.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t batchSize = 65'536;

}  // namespace

CalcOptions CalcOptions::standard() {
  std::error_code ignored;
  const fs::path folder = fs::read_symlink("/proc/self/exe", ignored).parent_path();
  const fs::path installed = folder.parent_path() / "libexec/quillet/quillet-calc";
  return {fs::exists(installed, ignored) ? installed : folder / "quillet-calc"};
}

Workbook& CalcSpreadsheet::Open(const std::string& path) {
  if (!helper_) {
    if (options_.waiting) options_.waiting();
    helper_.emplace(options_.program, std::vector<std::string>{}, options_.limit);
    helper_->whileWaiting(options_.waiting);
  }
  sheets_ = ask({"open", path});
  return *this;
}

void CalcSpreadsheet::Quit() {
  if (!helper_) return;
  ask({"quit"});
  helper_->finish();
  helper_.reset();
}

void CalcSpreadsheet::Cells(int worksheet, int row, int column, const std::string& text) {
  gather({"text", std::to_string(worksheet), std::to_string(row), std::to_string(column), text});
}

void CalcSpreadsheet::Cells(int worksheet, int row, int column, double number) {
  gather({"number", std::to_string(worksheet), std::to_string(row), std::to_string(column),
          sqlNumber(number).text()});
}

void CalcSpreadsheet::gather(const CalcLine& line) {
  gathered_ += calcText(line);
  if (gathered_.size() >= batchSize) sendGathered();
}

void CalcSpreadsheet::sendGathered() {
  if (!helper_) throw std::runtime_error("No workbook is open");
  helper_->send(gathered_);
  gathered_.clear();
}

std::vector<std::string> CalcSpreadsheet::ask(const CalcLine& command) {
  gathered_ += calcText(command);
  sendGathered();
  CalcLine answer = calcLine(helper_->receiveLine());
  const bool done = answer.front() == "ok";
  answer.erase(answer.begin());
  if (!done) throw std::runtime_error(answer.empty() ? "No answer" : answer.front());
  return answer;
}

TemplateMaker::TemplateMaker(const CalcOptions& options, const fs::path& program)
    : lines_(program / exportTemplate), statements_(program / statementsTemplate) {
  if (fs::exists(lines_) && fs::exists(statements_)) return;
  try {
    helper_.emplace(options.program,
                    std::vector<std::string>{"--templates", lines_.string(), statements_.string()},
                    options.limit);
  } catch (const std::runtime_error&) {
    // Without the helper there are no templates; finish() says so.
  }
}

bool TemplateMaker::finish() {
  if (helper_) helper_->finish();
  helper_.reset();
  return fs::exists(lines_) && fs::exists(statements_);
}

}  // namespace quillet::suite
