#include "remote/reporter.h"

#include <memory>
#include <utility>

#include "data/errors.h"
#include "remote/kept.h"
#include "windows/com/array.h"

namespace quillet::fakes {
namespace {

constexpr long typeMismatch = 13;

// The types of the ten arguments, which all come by reference.
constexpr VARTYPE argumentTypes[] = {VT_ARRAY | VT_VARIANT,
                                     VT_ARRAY | VT_I2,
                                     VT_ARRAY | VT_I4,
                                     VT_ARRAY | VT_BSTR,
                                     VT_ARRAY | VT_BSTR,
                                     VT_BOOL,
                                     VT_BSTR,
                                     VT_BSTR,
                                     VT_BSTR,
                                     VT_BSTR};

// Without the printer's codes, each an Escape and a letter.
std::string printed(const std::string& cell) {
  std::string text;
  for (std::size_t i = 0; i < cell.size(); ++i) {
    if (cell[i] == '\x1b') {
      ++i;
    } else {
      text += cell[i];
    }
  }
  return text;
}

std::string rowOf(const Call& call) {
  for (std::size_t i = 0; i < std::size(argumentTypes); ++i) {
    if (call[i].vt != (argumentTypes[i] | VT_BYREF)) {
      throw RunTimeError(typeMismatch, "Argument " + std::to_string(i + 1) + " is of another type.",
                         "WriteToReport");
    }
  }
  std::string row;
  bool first = true;
  for (const VARIANT& cell : windows::ArrayView<VARIANT>(*call[0].pparray)) {
    if (!std::exchange(first, false)) row += '\t';
    row += printed(windows::asText(cell));
  }
  return row;
}

Variant joined(const std::vector<std::string>& lines) {
  std::string all;
  for (const std::string& line : lines) all += line + '\n';
  return Variant(all);
}

}  // namespace

Pointer<IDispatch> makeReporter() {
  auto* const reporter = new MemberTable;
  const auto lines = std::make_shared<std::vector<std::string>>();
  reporter->addValue("WinModeReport", Variant(false));
  reporter->add("NewReport", [lines](const Call&) {
    lines->clear();
    return Variant();
  });
  reporter->add("printtext", [lines](const Call& call) {
    const std::string line = printed(call.text(0));
    if (!line.empty()) lines->push_back(line);
    return Variant();
  });
  reporter->add("CreateTable", [](const Call& call) {
    call.integer(0);
    call.integer(1);
    return Variant();
  });
  reporter->add("WriteToReport", [lines](const Call& call) {
    lines->push_back(rowOf(call));
    return Variant();
  });
  reporter->add("ShowReport", [lines](const Call&) {
    kept().report = *lines;
    return Variant();
  });
  return Pointer<IDispatch>::attach(reporter);
}

Pointer<IDispatch> makeStockForms() {
  auto* const form = new MemberTable;
  form->add("LoadData", [](const Call& call) {
    kept().stock.push_back("LoadData " + call.text(1) + " " + call.text(2));
    return Variant();
  });
  form->add("Show", [](const Call& call) {
    kept().stock.push_back("Show " + call.text(0));
    return Variant();
  });
  auto* const forms = new MemberTable;
  forms->add("ObjTrade",
             [trade = Pointer<IDispatch>::attach(form)](const Call&) { return Variant(trade); });
  return Pointer<IDispatch>::attach(forms);
}

Pointer<IDispatch> makeKept() {
  auto* const object = new MemberTable;
  object->add("Report", [](const Call&) { return joined(kept().report); });
  object->add("Stock", [](const Call&) { return joined(kept().stock); });
  return Pointer<IDispatch>::attach(object);
}

}  // namespace quillet::fakes
