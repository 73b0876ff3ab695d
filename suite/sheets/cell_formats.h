// The formats of a workbook's cells, as far as they say something about trial balances.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "import/number_format.h"
#include "suite/sheets/xml_stream.h"

namespace quillet::suite {

class CellFormats : public XmlElements {
 public:
  struct Format {
    bool bold = false;
    int indent = 0;
    const NumberFormat* number = nullptr;
  };
  CellFormats();

  // An unknown style is plain.
  Format of(int style) const;

 private:
  struct Style {
    int number = 0;
    int font = 0;
    int indent = 0;
  };
  void begin(std::string_view name, const XmlAttributes& attributes) override;
  void end(std::string_view name) override;

  std::map<int, NumberFormat> numbers_;
  std::vector<bool> fontIsBold_;
  std::vector<Style> styles_;
  std::string list_;  // the list of formats that is being read
  int depth_ = 0;
};

}  // namespace quillet::suite
