// The spreadsheet application, started for one use.
#pragma once

#include <memory>

#include "ports/ports.h"
#include "windows/host/late_workbook.h"

namespace quillet::windows {

class LateSpreadsheet : public Spreadsheet {
 public:
  LateSpreadsheet();
  // Quits also after a failure.
  ~LateSpreadsheet() override;
  LateSpreadsheet(const LateSpreadsheet&) = delete;
  LateSpreadsheet& operator=(const LateSpreadsheet&) = delete;

  Workbook& Open(const std::string& path) override;
  void Quit() override;

 private:
  Late application_;
  std::unique_ptr<LateWorkbook> workbook_;
};

}  // namespace quillet::windows
