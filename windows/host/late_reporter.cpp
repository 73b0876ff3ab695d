#include "windows/host/late_reporter.h"

#include <algorithm>

#include "windows/com/array.h"
#include "windows/com/text.h"

namespace quillet::windows {
namespace {

// An argument by reference for as long as the call runs, and what is in it afterwards.

class TextsArgument {
 public:
  TextsArgument(VARTYPE type, const std::vector<std::string>& texts, LONG first)
      : array_(type, {{texts.size(), first}}) {
    fill(array_, texts);
  }
  Variant reference() { return array_.reference(); }
  void read(std::vector<std::string>& texts) const { texts = textsIn(array_); }

 private:
  Array array_;
};

// Element is what the array holds of each Item.
template <class Element, class Item>
class NumbersArgument {
 public:
  NumbersArgument(VARTYPE type, const std::vector<Item>& items, LONG first)
      : array_(type, {{items.size(), first}}) {
    const ArrayView<Element> elements(array_.get());
    std::transform(items.begin(), items.end(), elements.begin(),
                   [](Item item) { return static_cast<Element>(item); });
  }
  Variant reference() { return array_.reference(); }
  void read(std::vector<Item>& items) const {
    const ArrayView<Element> elements(array_.get());
    items.resize(elements.size());
    std::transform(elements.begin(), elements.end(), items.begin(),
                   [](Element element) { return static_cast<Item>(element); });
  }

 private:
  Array array_;
};

class TextArgument {
 public:
  explicit TextArgument(const std::string& text) : value_(text) {}
  Variant reference() { return Variant::reference(value_.bstrVal); }
  void read(std::string& text) const { text = asText(value_); }

 private:
  Variant value_;
};

class TruthArgument {
 public:
  explicit TruthArgument(bool truth) : value_(truth) {}
  Variant reference() { return Variant::reference(VT_BOOL, &value_.boolVal); }
  void read(bool& truth) const { truth = asTruth(value_); }

 private:
  Variant value_;
};

}  // namespace

LateReporter::LateReporter() : reporter_(Late::create("PrjOrvoReporter.ClsMain")) {}

void LateReporter::WinModeReport(bool windowMode) { reporter_.put("WinModeReport", windowMode); }
void LateReporter::NewReport() { reporter_.call("NewReport"); }
void LateReporter::printtext(const std::string& text) { reporter_.call("printtext", text); }

void LateReporter::CreateTable(int firstColumn, int columns) {
  firstColumn_ = firstColumn;
  reporter_.call("CreateTable", firstColumn, columns);
}

void LateReporter::WriteToReport(std::vector<std::string>& values, std::vector<Align>& alignments,
                                 std::vector<long>& widths, std::vector<std::string>& before,
                                 std::vector<std::string>& after, bool& heading, std::string& rules,
                                 std::string& emphasis, std::string& last, std::string& printed) {
  TextsArgument cells(VT_VARIANT, values, firstColumn_);
  NumbersArgument<SHORT, Align> sides(VT_I2, alignments, firstColumn_);
  NumbersArgument<LONG, long> characters(VT_I4, widths, firstColumn_);
  TextsArgument codesBefore(VT_BSTR, before, firstColumn_);
  TextsArgument codesAfter(VT_BSTR, after, firstColumn_);
  TruthArgument repeats(heading);
  TextArgument masks[] = {TextArgument(rules), TextArgument(emphasis), TextArgument(last),
                          TextArgument(printed)};
  reporter_.call("WriteToReport", cells.reference(), sides.reference(), characters.reference(),
                 codesBefore.reference(), codesAfter.reference(), repeats.reference(),
                 masks[0].reference(), masks[1].reference(), masks[2].reference(),
                 masks[3].reference());
  cells.read(values);
  sides.read(alignments);
  characters.read(widths);
  codesBefore.read(before);
  codesAfter.read(after);
  repeats.read(heading);
  masks[0].read(rules);
  masks[1].read(emphasis);
  masks[2].read(last);
  masks[3].read(printed);
}

void LateReporter::ShowReport() { reporter_.call("ShowReport"); }

}  // namespace quillet::windows
