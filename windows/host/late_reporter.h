// The suite's report component in the host's process.
#pragma once

#include "ports/ports.h"
#include "windows/com/late.h"

namespace quillet::windows {

class LateReporter : public Reporter {
 public:
  LateReporter();

  void WinModeReport(bool windowMode) override;
  void NewReport() override;
  void printtext(const std::string& text) override;
  void CreateTable(int firstColumn, int columns) override;
  // All ten go by reference with the types that the reporter declares; what it writes into them
  // comes back. The arrays are indexed as the columns of the table are numbered.
  void WriteToReport(std::vector<std::string>& values, std::vector<Align>& alignments,
                     std::vector<long>& widths, std::vector<std::string>& before,
                     std::vector<std::string>& after, bool& heading, std::string& rules,
                     std::string& emphasis, std::string& last, std::string& printed) override;
  void ShowReport() override;

 private:
  Late reporter_;
  long firstColumn_ = 1;
};

}  // namespace quillet::windows
