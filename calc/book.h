// A workbook that is open in LibreOffice. Cells are collected and written together, as texts
// and numbers: a ledger's name never becomes a formula.
#pragma once

#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "calc/office.h"

namespace quillet::calc {

// A cell that shows an error, as "#N/A".
struct CellError {
  std::string shown;
};
// What a template is made of. A column without a heading gets it with its cells.
struct TemplateColumn {
  const char* heading;
  sal_Int32 width;  // hundredths of a millimetre
  bool amount = false;
};
struct TemplateSheet {
  const char* name;
  std::vector<TemplateColumn> columns;
};
using Value = std::variant<std::monostate, double, std::string, CellError>;
using SheetRef = uno::Reference<com::sun::star::sheet::XSpreadsheet>;

class Book {
 public:
  // An existing file, of the kind that LibreOffice calls so, else of the one that it finds out.
  // Throws std::runtime_error when it is no workbook.
  Book(const Office& office, const std::string& path, const std::string& kind = {});
  // A new one with one sheet.
  explicit Book(const Office& office);
  ~Book();
  Book(const Book&) = delete;
  Book& operator=(const Book&) = delete;

  std::vector<std::string> sheets() const;
  // Rows and columns count from 1, sheets from 0.
  void set(int sheet, int row, int column, Value value);
  // Everything from the first cell to the last one in use.
  std::vector<std::vector<Value>> values(int sheet) const;

  void save();
  void saveAs(const std::string& path);
  // As a workbook of zip and XML, to be read again by us.
  void convertTo(const std::string& path);
  // The same with the values of formulas as the file has them, to be done first. Stored errors are
  // lost: they become 0.
  void convertStored(const std::string& path);

  // The sheets of a template: their columns are ready for names and amounts.
  void makeSheets(const std::vector<TemplateSheet>& sheets);

 private:
  SheetRef sheet(int index) const;
  void formatColumn(const SheetRef& sheet, int index, const TemplateColumn& column,
                    sal_Int32 amountFormat);
  void writeGathered();
  void store(const std::string& path, const char* kind);

  uno::Reference<com::sun::star::sheet::XSpreadsheetDocument> document_;
  std::map<int, std::map<std::pair<int, int>, Value>> gathered_;  // sheet, row and column
};

}  // namespace quillet::calc
