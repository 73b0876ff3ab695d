// A spreadsheet application with one workbook. It takes a value as such a program does: what is no
// text by its cell's format becomes a number or a formula.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ports/recorder.h"

namespace quillet::fakes {

struct FakeSpreadsheet {
  struct Cell {
    std::string format = "General";
    std::string holds;  // "text x", "number 1", "formula =1"; "" when empty
    bool operator==(const Cell&) const = default;
  };

  FakeSpreadsheet();
  ~FakeSpreadsheet();
  FakeSpreadsheet(const FakeSpreadsheet&) = delete;
  FakeSpreadsheet& operator=(const FakeSpreadsheet&) = delete;

  std::vector<std::string> sheets{"Notes", "TB"};
  std::string fails;                          // the member that fails
  bool blocks = true;                         // whether a worksheet has Range
  std::map<std::pair<int, int>, Cell> cells;  // of "TB", by row and column
  std::vector<std::string> calls;             // of the application and the workbook

  std::string holds(int row, int column) const;

 private:
  Pointer<IDispatch> application();
  Pointer<IDispatch> workbook();
  Pointer<IDispatch> worksheet(const std::string& name);
  Pointer<IDispatch> range(int top, int left, int bottom, int right);
  Pointer<IDispatch> rangeAt(const std::string& address);
  Variant values(int top, int left, int bottom, int right);
  void take(int top, int left, int bottom, int right, const VARIANT& value);
  void takeOne(Cell& cell, const VARIANT& value);
  // Written down, and failing when it is told to.
  MemberTable::Member step(const std::string& member, MemberTable::Member body);
  void failAt(const std::string& member) const;
};

}  // namespace quillet::fakes
