#include "ports/spreadsheet.h"

#include <cstdio>
#include <cstdlib>

#include "data/errors.h"
#include "windows/com/array.h"

namespace quillet::fakes {
namespace {

bool isNumber(const std::string& text) {
  char* end = nullptr;
  std::strtod(text.c_str(), &end);
  return !text.empty() && *end == '\0';
}

}  // namespace

FakeSpreadsheet::FakeSpreadsheet() { serve("Excel.Application", application().get()); }
FakeSpreadsheet::~FakeSpreadsheet() { serve("Excel.Application", nullptr); }

std::string FakeSpreadsheet::holds(int row, int column) const {
  const auto found = cells.find({row, column});
  return found == cells.end() ? "" : found->second.holds;
}

void FakeSpreadsheet::failAt(const std::string& member) const {
  if (fails == member) throw RunTimeError(1004, member + " failed", "Spreadsheet");
}

MemberTable::Member FakeSpreadsheet::step(const std::string& member, MemberTable::Member body) {
  return [this, member, body = std::move(body)](const Call& call) {
    std::string text = call.sets() ? member + " = " : member;
    for (const VARIANT* argument : call.arguments) text += " " + shown(*argument);
    calls.push_back(text);
    failAt(member);
    return body ? body(call) : Variant();
  };
}

Pointer<IDispatch> FakeSpreadsheet::application() {
  auto* const object = new MemberTable;
  object->add("DisplayAlerts", step("DisplayAlerts", {}));
  object->add("Workbooks", [this](const Call&) {
    auto* const books = new MemberTable;
    books->add("Open", step("Open", [this](const Call&) { return Variant(workbook()); }));
    return Variant(Pointer<IDispatch>::attach(books));
  });
  object->add("Quit", step("Quit", {}));
  return Pointer<IDispatch>::attach(object);
}

Pointer<IDispatch> FakeSpreadsheet::workbook() {
  auto* const object = new MemberTable;
  object->add("Worksheets", [this](const Call&) {
    failAt("Worksheets");
    auto* const list = new MemberTable;
    list->add("Count", [this](const Call&) { return Variant(static_cast<long>(sheets.size())); });
    list->add("Item", [this](const Call& call) {
      return Variant(worksheet(sheets.at(static_cast<std::size_t>(call.integer(0) - 1))));
    });
    return Variant(Pointer<IDispatch>::attach(list));
  });
  object->add("Save", step("Save", {}));
  object->add("Close", step("Close", {}));
  return Pointer<IDispatch>::attach(object);
}

Pointer<IDispatch> FakeSpreadsheet::worksheet(const std::string& name) {
  auto* const object = new MemberTable;
  object->addValue("Name", name);
  object->add("Cells", [this](const Call& call) {
    failAt("Cells");
    const auto row = static_cast<int>(call.integer(0));
    const auto column = static_cast<int>(call.integer(1));
    return Variant(range(row, column, row, column));
  });
  if (blocks) {
    object->add("Range", [this](const Call& call) { return Variant(rangeAt(call.text(0))); });
  }
  return Pointer<IDispatch>::attach(object);
}

Pointer<IDispatch> FakeSpreadsheet::rangeAt(const std::string& address) {
  char left = 'A';
  char right = 'A';
  int top = 0;
  int bottom = 0;
  if (std::sscanf(address.c_str(), "%c%d:%c%d", &left, &top, &right, &bottom) != 4) {
    throw RunTimeError(1004, "No such range: " + address, "Spreadsheet");
  }
  return range(top, left - 'A' + 1, bottom, right - 'A' + 1);
}

Pointer<IDispatch> FakeSpreadsheet::range(int top, int left, int bottom, int right) {
  auto* const object = new MemberTable;
  object->add("NumberFormat", [=, this](const Call& call) {
    for (int row = top; row <= bottom; ++row) {
      for (int column = left; column <= right; ++column) cells[{row, column}].format = call.text(0);
    }
    return Variant();
  });
  object->add("Value", [=, this](const Call& call) {
    if (!call.sets()) return values(top, left, bottom, right);
    failAt("Value");
    take(top, left, bottom, right, call[0]);
    return Variant();
  });
  return Pointer<IDispatch>::attach(object);
}

Variant FakeSpreadsheet::values(int top, int left, int bottom, int right) {
  const auto value = [&](int row, int column) {
    const std::string text = holds(row, column);
    return text.empty() ? Variant() : Variant(text);
  };
  if (top == bottom && left == right) return value(top, left);
  windows::Array all(VT_VARIANT, {{static_cast<std::size_t>(bottom - top + 1), 1},
                                  {static_cast<std::size_t>(right - left + 1), 1}});
  for (LONG row = top; row <= bottom; ++row) {
    for (LONG column = left; column <= right; ++column) {
      LONG place[] = {row - top + 1, column - left + 1};
      Variant element = value(row, column);
      SafeArrayPutElement(all.get(), place, &element);
    }
  }
  return all.release();
}

void FakeSpreadsheet::take(int top, int left, int bottom, int right, const VARIANT& value) {
  for (LONG row = top; row <= bottom; ++row) {
    for (LONG column = left; column <= right; ++column) {
      Variant element = value.vt & VT_ARRAY ? Variant() : Variant::copyOf(value);
      LONG place[] = {row - top + 1, column - left + 1};
      if (value.vt & VT_ARRAY) SafeArrayGetElement(value.parray, place, &element);
      takeOne(cells[{row, column}], element);
    }
  }
}

void FakeSpreadsheet::takeOne(Cell& cell, const VARIANT& value) {
  const std::string text = windows::asText(value);
  const bool formula = text.starts_with('=');
  const char* kind = formula ? "formula " : isNumber(text) ? "number " : "text ";
  if (cell.format == "@") kind = "text ";
  cell.holds = value.vt == VT_EMPTY ? "" : kind + text;
}

}  // namespace quillet::fakes
