#include "suite/sheets/workbook_file.h"

#include "suite/sheets/worksheet.h"

namespace quillet::suite {
namespace {

constexpr std::size_t mostSheets = 500;

}  // namespace

SourceBook workbookIn(std::string_view bytes, const GoesOn& goesOn) {
  const ZipFile zip(bytes);
  WorkbookContent content{workbookParts(zip), {}, {}};
  const WorkbookParts& parts = content.parts;
  if (parts.sheets.size() > mostSheets) throw SourceError("has more than 500 sheets.");
  // The texts take about as long as a sheet.
  const double steps = static_cast<double>(parts.sheets.size()) + 1;
  double done = 0;
  bool whole = true;
  const auto progress = [&](double share) {
    return whole = goesOn(static_cast<int>((done + share) * 100 / steps));
  };
  if (!parts.styles.empty()) readXml(zip, parts.styles, content.formats);
  const auto read = [&](const std::string& part, XmlElements& elements) {
    if (readXml(zip, part, elements, progress) || !whole) return;
    throw SourceError("is damaged: a part of it, " + part + ", is missing.");
  };
  if (!parts.strings.empty()) read(parts.strings, content.texts);
  SourceBook book;
  SourceBudget budget;
  for (const auto& part : parts.sheets) {
    ++done;
    if (!whole) return {};
    SourceSheet& sheet = book.sheets.emplace_back();
    sheet.name = part.name;
    sheet.hidden = part.hidden;
    Worksheet worksheet(content, sheet, budget);
    read(part.part, worksheet);
    worksheet.finish();
  }
  if (!whole) return {};
  requireReadable(book);
  return book;
}

}  // namespace quillet::suite
