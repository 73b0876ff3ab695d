// An open workbook of a spreadsheet application. Its cells are written when it is saved.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "ports/ports.h"
#include "windows/com/late.h"
#include "windows/host/sheet_cells.h"

namespace quillet::windows {

class LateWorkbook : public Workbook {
 public:
  explicit LateWorkbook(Late workbook);
  // A workbook that is still open is closed, and what was not saved is lost.
  ~LateWorkbook() override;
  LateWorkbook(const LateWorkbook&) = delete;
  LateWorkbook& operator=(const LateWorkbook&) = delete;

  const std::vector<std::string>& Worksheets() const override { return names_; }
  void Cells(int worksheet, int row, int column, const std::string& text) override;
  void Cells(int worksheet, int row, int column, double number) override;
  void Save() override;
  void Close() override;

 private:
  Late workbook_;
  std::vector<Late> sheets_;
  std::vector<std::string> names_;
  std::map<int, SheetCells> written_;  // by worksheet
};

}  // namespace quillet::windows
