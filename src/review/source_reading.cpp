#include "review/source_reading.h"

#include <algorithm>

#include "ports/busy.h"

namespace quillet {
namespace {

void requireRows(const SourceBook& book, const std::string& name) {
  const auto hasRows = [](const SourceSheet& sheet) { return !sheet.rows.empty(); };
  if (book.sheets.empty() || std::any_of(book.sheets.begin(), book.sheets.end(), hasRows)) return;
  std::string refusals;
  for (const SourceSheet& sheet : book.sheets) {
    if (!sheet.refusal.empty()) refusals += "\r\n" + sheet.name + ": " + sheet.refusal;
  }
  throw SourceError(name + " has no rows to import." + refusals);
}

}  // namespace

std::string fileName(const std::string& path) {
  const std::size_t slash = path.find_last_of("/\\");
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

SourceBook readSource(Context& context, const std::string& name, const ReadSource& read) {
  const Busy busy(*context.host, "Reading " + name + " ....");
  Progress& progress = context.host->objProgress();
  progress.Max(100);
  int shown = 0;
  SourceBook book = read([&](int percent) {
    for (; shown < percent; ++shown) progress.update_pg();
    return !progress.stopped();
  });
  requireRows(book, name);
  return book;
}

SourceBook readSourceFile(Context& context, const std::string& path, const SourceOptions& options) {
  SourceReader* reader = context.environment.sourceReader();
  if (!reader) throw SourceError("Files cannot be read here. Copy the cells and paste them.");
  return readSource(context, fileName(path),
                    [&](const GoesOn& goesOn) { return reader->file(path, options, goesOn); });
}

std::optional<SourceFile> askForSource(Context& context) {
  const auto path = context.dialogs.openFile(sourceFilter);
  if (!path) return {};
  try {
    SourceBook book = readSourceFile(context, *path, {});
    if (book.sheets.empty()) return {};
    return SourceFile{*path, std::move(book)};
  } catch (const SourceError& error) {
    context.MsgBox(error.what(), Buttons::OK, Icon::exclamation);
    return {};
  }
}

}  // namespace quillet
