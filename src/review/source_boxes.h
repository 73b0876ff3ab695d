// The source of an import as a person chose it: a file or pasted cells, which of its sheets, and
// how a text file is read.
#pragma once

#include <string>

#include "review/source_reading.h"

namespace quillet {

class SourceForm;
class ImportReview;

class SourceBoxes {
 public:
  SourceBoxes(SourceForm& form, Context& context, ImportReview& review);

  // A file that was read.
  void takeFile(const std::string& path);
  // Throws SourceError. The book has no sheets when a person stopped the reading.
  SourceBook readCells(const std::string& text);
  // The same source as that of another form; what was read of it is the caller's.
  void take(const SourceBoxes& from);
  // As a person calls it.
  const std::string& name() const { return name_; }

  // Shows what was read.
  void show();

 private:
  SourceBook read();
  void readAnew();
  void showSheets();
  void showOptions();

  SourceForm& form_;
  Context& context_;
  ImportReview& review_;
  std::string path_;  // "" for cells
  std::string cells_;
  std::string name_;
  SourceOptions options_;
};

}  // namespace quillet
