// Reads the file of an import, with progress and Cancel, before anything is known of the books.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "host/context.h"
#include "ports/source_book.h"

namespace quillet {

// What the dialog for a source shows.
inline constexpr const char* sourceFilter =
    "Workbooks and Text Files|*.xlsx;*.xlsm;*.xls;*.ods;*.csv;*.txt|All Files|*.*";

// A file and what was read of it.
struct SourceFile {
  std::string path;
  SourceBook book;
};

// "tb.xlsx" of a path.
std::string fileName(const std::string& path);

// Shows how far the work on the source of that name is. The book has no sheets when a person
// stopped it; one without a row to import is refused. Throws SourceError.
using ReadSource = std::function<SourceBook(const GoesOn& goesOn)>;
SourceBook readSource(Context& context, const std::string& name, const ReadSource& read);
SourceBook readSourceFile(Context& context, const std::string& path, const SourceOptions& options);

// Asks for a file and reads it. Nothing when none was chosen, when it cannot be read, which a
// message says, or when the reading was stopped.
std::optional<SourceFile> askForSource(Context& context);

}  // namespace quillet
