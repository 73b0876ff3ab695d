// Reads one sheet of a workbook. Formulas are not looked at: their stored values count.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "import/sheet_builder.h"
#include "suite/sheets/cell_formats.h"
#include "suite/sheets/shared_texts.h"
#include "suite/sheets/workbook_parts.h"

namespace quillet::suite {

// What its sheets share.
struct WorkbookContent {
  WorkbookParts parts;
  SharedTexts texts;
  CellFormats formats;
};

class Worksheet : public XmlElements {
 public:
  Worksheet(const WorkbookContent& content, SourceSheet& sheet, SourceBudget& budget)
      : content_(content), sheet_(sheet), builder_(sheet, budget) {}

  // After the last element.
  void finish();

 private:
  struct Place {
    int row = 0;
    int column = 0;
  };
  void begin(std::string_view name, const XmlAttributes& attributes) override;
  void end(std::string_view name) override;
  void text(std::string_view text) override;

  void beginRow(const XmlAttributes& attributes);
  void beginCell(const XmlAttributes& attributes);
  void hideColumns(const XmlAttributes& attributes);
  void merge(std::string_view area);
  void endCell();
  SourceCell cell();
  void readNumber(SourceCell& cell);
  static Place placeOf(std::string_view reference);

  const WorkbookContent& content_;
  SourceSheet& sheet_;
  SheetBuilder builder_;

  int row_ = -1;
  bool rowIsHidden_ = false;
  bool inCell_ = false;
  int column_ = -1;
  int style_ = 0;
  std::string type_;
  std::string value_;
  bool inValue_ = false;
  bool isFormula_ = false;
  RichTextReader inline_;

  std::vector<Place> zeros_;  // formulas whose stored value is nothing
  bool anyCalculated_ = false;
};

}  // namespace quillet::suite
