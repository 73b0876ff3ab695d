// The spreadsheet application behind the export: LibreOffice Calc, controlled through the helper
// program quillet-calc. Cells are sent in batches and no cell waits for an answer.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ports/ports.h"
#include "suite/calc_lines.h"
#include "suite/helper_process.h"

namespace quillet::suite {

struct CalcOptions {
  std::filesystem::path program;  // the helper
  std::chrono::milliseconds limit{60'000};
  // Called before the helper starts and again and again while it keeps us waiting.
  std::function<void()> waiting = {};

  // The helper beside our own program.
  static CalcOptions standard();
};

class CalcSpreadsheet : public Spreadsheet, private Workbook {
 public:
  explicit CalcSpreadsheet(CalcOptions options) : options_(std::move(options)) {}

  // Starts LibreOffice at the first call. What fails throws std::runtime_error.
  Workbook& Open(const std::string& path) override;
  void Quit() override;

 private:
  const std::vector<std::string>& Worksheets() const override { return sheets_; }
  void Cells(int worksheet, int row, int column, const std::string& text) override;
  void Cells(int worksheet, int row, int column, double number) override;
  void Save() override { ask({"save"}); }
  void Close() override { ask({"close"}); }

  void gather(const CalcLine& line);
  void sendGathered();
  std::vector<std::string> ask(const CalcLine& command);

  CalcOptions options_;
  std::optional<HelperProcess> helper_;
  std::vector<std::string> sheets_;
  std::string gathered_;
};

// Makes the templates of the exports while other things go on. A file that is there stays.
class TemplateMaker {
 public:
  TemplateMaker(const CalcOptions& options, const std::filesystem::path& program);
  // Whether the templates are there now.
  bool finish();

 private:
  std::filesystem::path lines_;
  std::filesystem::path statements_;
  std::optional<HelperProcess> helper_;
};

// Where the templates are kept, below the program folder.
inline constexpr const char* exportTemplate = "Databases/ORVO_TB.xls";
inline constexpr const char* statementsTemplate = "Databases/ORVO_FS.xls";

}  // namespace quillet::suite
