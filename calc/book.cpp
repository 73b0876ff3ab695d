#include "calc/book.h"

#include <algorithm>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/sheet/XCalculatable.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XUsedAreaCursor.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>
#include <stdexcept>

#include "calc/text.h"

namespace quillet::calc {
namespace {

namespace beans = com::sun::star::beans;
namespace container = com::sun::star::container;
namespace sheet_ = com::sun::star::sheet;
namespace table = com::sun::star::table;
namespace text = com::sun::star::text;
namespace util = com::sun::star::util;

// The size limits of the file format.
constexpr int mostRows = 65'536;
constexpr int mostColumns = 256;
constexpr const char* exportKind = "MS Excel 97";
constexpr const char* convertedKind = "Calc MS Excel 2007 XML";

template <class T>
beans::PropertyValue property(const char* name, const T& value) {
  beans::PropertyValue property;
  property.Name = rtl::OUString::createFromAscii(name);
  property.Value <<= value;
  return property;
}

uno::Sequence<beans::PropertyValue> properties(const std::vector<beans::PropertyValue>& all) {
  return {all.data(), static_cast<sal_Int32>(all.size())};
}

uno::Reference<sheet_::XSpreadsheetDocument> load(const Office& office, const rtl::OUString& url,
                                                  const std::string& kind = {}) {
  constexpr sal_Int16 never = 0;  // no macros, no updates of links
  std::vector how{property("Hidden", true), property("MacroExecutionMode", never),
                  property("UpdateDocMode", never)};
  if (!kind.empty()) how.push_back(property("FilterName", fromUtf8(kind)));
  const uno::Reference<frame::XComponentLoader> loader(office.desktop(), uno::UNO_QUERY_THROW);
  const auto component =
      loader->loadComponentFromURL(url, rtl::OUString("_blank"), 0, properties(how));
  uno::Reference<sheet_::XSpreadsheetDocument> document(component, uno::UNO_QUERY);
  if (document.is()) return document;
  const uno::Reference<util::XCloseable> other(component, uno::UNO_QUERY);
  if (other.is()) other->close(false);
  throw std::runtime_error("The file is no workbook");
}

// LibreOffice turns a void value into the error #N/A; an empty text leaves the cell empty.
uno::Any anyOf(const Value& value) {
  if (const auto* number = std::get_if<double>(&value)) return uno::Any(*number);
  const auto* text = std::get_if<std::string>(&value);
  return uno::Any(text ? fromUtf8(*text) : rtl::OUString());
}

Value valueOf(const uno::Any& any, const SheetRef& sheet, sal_Int32 column, sal_Int32 row) {
  if (!any.hasValue()) {
    const uno::Reference<text::XTextRange> shown(sheet->getCellByPosition(column, row),
                                                 uno::UNO_QUERY_THROW);
    return CellError{toUtf8(shown->getString())};
  }
  double number = 0;
  rtl::OUString text;
  if (any >>= number) return number;
  if ((any >>= text) && !text.isEmpty()) return toUtf8(text);
  return {};
}

}  // namespace

Book::Book(const Office& office, const std::string& path, const std::string& kind)
    : document_(load(office, urlOf(path), kind)) {}

Book::Book(const Office& office)
    : document_(load(office, rtl::OUString("private:factory/scalc"))) {}

Book::~Book() {
  try {
    const uno::Reference<util::XCloseable> closeable(document_, uno::UNO_QUERY);
    if (closeable.is()) closeable->close(true);
  } catch (const uno::Exception&) {
    // It is closed when LibreOffice ends.
  }
}

SheetRef Book::sheet(int index) const {
  const uno::Reference<container::XIndexAccess> all(document_->getSheets(), uno::UNO_QUERY_THROW);
  return SheetRef(all->getByIndex(index), uno::UNO_QUERY_THROW);
}

std::vector<std::string> Book::sheets() const {
  std::vector<std::string> names;
  for (const rtl::OUString& name : document_->getSheets()->getElementNames()) {
    names.push_back(toUtf8(name));
  }
  return names;
}

void Book::set(int sheet, int row, int column, Value value) {
  if (row < 1 || row > mostRows || column < 1 || column > mostColumns) {
    throw std::runtime_error("A workbook of this kind has room for 65,536 rows");
  }
  gathered_[sheet][{row, column}] = std::move(value);
}

void Book::writeGathered() {
  for (const auto& [index, cells] : gathered_) {
    int top = mostRows, bottom = 1, left = mostColumns, right = 1;
    for (const auto& [at, value] : cells) {
      top = std::min(top, at.first);
      bottom = std::max(bottom, at.first);
      left = std::min(left, at.second);
      right = std::max(right, at.second);
    }
    const std::vector<uno::Any> emptyRow(right - left + 1, anyOf({}));
    const std::vector<uno::Sequence<uno::Any>> emptyRows(bottom - top + 1,
                                                         {emptyRow.data(), right - left + 1});
    uno::Sequence<uno::Sequence<uno::Any>> data(emptyRows.data(), bottom - top + 1);
    auto* rows = data.getArray();
    for (const auto& [at, value] : cells) {
      rows[at.first - top].getArray()[at.second - left] = anyOf(value);
    }
    const uno::Reference<sheet_::XCellRangeData> range(
        sheet(index)->getCellRangeByPosition(left - 1, top - 1, right - 1, bottom - 1),
        uno::UNO_QUERY_THROW);
    range->setDataArray(data);
  }
  gathered_.clear();
}

std::vector<std::vector<Value>> Book::values(int index) const {
  const SheetRef from = sheet(index);
  const auto cursor = from->createCursor();
  uno::Reference<sheet_::XUsedAreaCursor>(cursor, uno::UNO_QUERY_THROW)->gotoEndOfUsedArea(false);
  const auto end = uno::Reference<sheet_::XCellRangeAddressable>(cursor, uno::UNO_QUERY_THROW)
                       ->getRangeAddress();
  const uno::Reference<sheet_::XCellRangeData> range(
      from->getCellRangeByPosition(0, 0, end.EndColumn, end.EndRow), uno::UNO_QUERY_THROW);
  std::vector<std::vector<Value>> values;
  const auto data = range->getDataArray();
  for (sal_Int32 row = 0; row < data.getLength(); ++row) {
    auto& cells = values.emplace_back();
    for (sal_Int32 column = 0; column < data[row].getLength(); ++column) {
      cells.push_back(valueOf(data[row][column], from, column, row));
    }
  }
  return values;
}

void Book::save() {
  writeGathered();
  uno::Reference<frame::XStorable>(document_, uno::UNO_QUERY_THROW)->store();
}

void Book::saveAs(const std::string& path) {
  writeGathered();
  store(path, exportKind);
}

void Book::convertTo(const std::string& path) { store(path, convertedKind); }

// While it does not calculate, LibreOffice keeps the values that it has read.
void Book::convertStored(const std::string& path) {
  const uno::Reference<sheet_::XCalculatable> calculator(document_, uno::UNO_QUERY_THROW);
  calculator->enableAutomaticCalculation(false);
  store(path, convertedKind);
  calculator->enableAutomaticCalculation(true);
}

void Book::store(const std::string& path, const char* kind) {
  uno::Reference<frame::XStorable>(document_, uno::UNO_QUERY_THROW)
      ->storeToURL(urlOf(path),
                   properties({property("FilterName", rtl::OUString::createFromAscii(kind))}));
}

void Book::makeSheets(const std::vector<TemplateSheet>& sheets) {
  const uno::Reference<util::XNumberFormatsSupplier> formats(document_, uno::UNO_QUERY_THROW);
  const rtl::OUString shown("#,##0.00");
  const auto known = formats->getNumberFormats();
  sal_Int32 amounts = known->queryKey(shown, {}, false);
  if (amounts < 0) amounts = known->addNew(shown, {});
  for (int i = 0; i < static_cast<int>(sheets.size()); ++i) {
    const rtl::OUString name = rtl::OUString::createFromAscii(sheets[i].name);
    if (i == 0) {
      uno::Reference<container::XNamed>(sheet(0), uno::UNO_QUERY_THROW)->setName(name);
    } else {
      document_->getSheets()->insertNewByName(name, static_cast<sal_Int16>(i));
    }
    for (int c = 0; c < static_cast<int>(sheets[i].columns.size()); ++c) {
      formatColumn(sheet(i), c, sheets[i].columns[c], amounts);
      set(i, 1, c + 1, std::string(sheets[i].columns[c].heading));
    }
  }
}

void Book::formatColumn(const SheetRef& sheet, int index, const TemplateColumn& column,
                        sal_Int32 amountFormat) {
  const uno::Reference<beans::XPropertySet> all(
      uno::Reference<table::XColumnRowRange>(sheet, uno::UNO_QUERY_THROW)
          ->getColumns()
          ->getByIndex(index),
      uno::UNO_QUERY_THROW);
  all->setPropertyValue(rtl::OUString("Width"), uno::Any(column.width));
  if (column.amount) all->setPropertyValue(rtl::OUString("NumberFormat"), uno::Any(amountFormat));
  const uno::Reference<beans::XPropertySet> heading(sheet->getCellByPosition(index, 0),
                                                    uno::UNO_QUERY_THROW);
  constexpr float bold = 150;
  heading->setPropertyValue(rtl::OUString("CharWeight"), uno::Any(bold));
}

}  // namespace quillet::calc
