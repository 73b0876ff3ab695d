#include "suite/sheets/cell_formats.h"

#include <algorithm>

namespace quillet::suite {
namespace {

// Those that need not be written in a file, as far as they show no plain numbers.
struct BuiltIn {
  int first, last;
  const char* code;
};
constexpr BuiltIn builtIns[] = {{0, 0, "General"},         {9, 10, "0%"},
                                {14, 17, "dd-mm-yy"},      {18, 21, "h:mm"},
                                {22, 22, "dd-mm-yy h:mm"}, {27, 31, "yyyy-mm-dd"},
                                {32, 33, "h:mm"},          {34, 36, "yyyy-mm-dd"},
                                {45, 47, "mm:ss"},         {50, 54, "yyyy-mm-dd"},
                                {55, 56, "yyyy-mm-dd"},    {57, 58, "yyyy-mm-dd"}};

}  // namespace

CellFormats::CellFormats() {
  for (const BuiltIn& builtIn : builtIns) {
    for (int id = builtIn.first; id <= builtIn.last; ++id) {
      numbers_.emplace(id, NumberFormat(builtIn.code));
    }
  }
}

CellFormats::Format CellFormats::of(int style) const {
  Format format;
  format.number = &numbers_.at(0);
  if (style < 0 || static_cast<std::size_t>(style) >= styles_.size()) return format;
  const Style& found = styles_[static_cast<std::size_t>(style)];
  const auto font = static_cast<std::size_t>(found.font);
  format.bold = font < fontIsBold_.size() && fontIsBold_[font];
  format.indent = found.indent;
  if (const auto number = numbers_.find(found.number); number != numbers_.end()) {
    format.number = &number->second;
  }
  return format;
}

void CellFormats::begin(std::string_view name, const XmlAttributes& attributes) {
  ++depth_;
  if (depth_ == 2) list_ = name;
  if (list_ == "numFmts" && name == "numFmt") {
    numbers_.insert_or_assign(attributes.number("numFmtId"),
                              NumberFormat(attributes.get("formatCode")));
  } else if (list_ == "fonts" && name == "font") {
    fontIsBold_.push_back(false);
  } else if (list_ == "fonts" && name == "b" && !fontIsBold_.empty()) {
    fontIsBold_.back() = attributes.flag("val", true);
  } else if (list_ == "cellXfs" && name == "xf") {
    styles_.push_back({attributes.number("numFmtId"), attributes.number("fontId"), 0});
  } else if (list_ == "cellXfs" && name == "alignment" && !styles_.empty()) {
    styles_.back().indent = std::clamp(attributes.number("indent"), 0, 250);
  }
}

void CellFormats::end(std::string_view /*name*/) { --depth_; }

}  // namespace quillet::suite
