// Reads the files that practices have, whatever their names end with: workbooks, those of other
// programs through LibreOffice, and text files.
#pragma once

#include "ports/source_book.h"
#include "suite/calc_spreadsheet.h"

namespace quillet::suite {

class SourceFiles : public SourceReader {
 public:
  explicit SourceFiles(CalcOptions options) : options_(std::move(options)) {}

  SourceBook file(const std::string& path, const SourceOptions& options,
                  const GoesOn& goesOn) override;

 private:
  SourceBook bookIn(std::string_view bytes, const SourceOptions& options,
                    const GoesOn& goesOn) const;

  CalcOptions options_;
};

}  // namespace quillet::suite
