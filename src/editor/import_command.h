// The editor's ways into the review of an import: the menu's command, and cells pasted into the
// lines or the fields of an entry.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "editor/open_books.h"
#include "review/source_reading.h"

namespace quillet {

class frmcrtb;
class frmimport;
class frmvchimport;
class LineSaver;
class SourceForm;

class ImportCommand {
 public:
  ImportCommand(frmcrtb& form, OpenBooks& books, LineSaver& saver);
  ~ImportCommand();

  // Asks for a file and reviews it.
  void MNUIMPORT_CLICK();
  void importFile(SourceFile file);
  void setButton();

 private:
  void pasteCells(const std::string& text);
  void openFile(SourceFile file);
  // Opens a source in the review, which is shown when that succeeds.
  void review(const std::function<bool(frmimport& form)>& open);
  // The source that was just reviewed for lines.
  void reviewVouchers();
  void showImported(const SourceForm& review);
  bool mayImport();

  frmcrtb& form_;
  OpenBooks& books_;
  LineSaver& saver_;
  std::unique_ptr<frmimport> review_;  // the one opened last
  std::unique_ptr<frmvchimport> vouchers_;
};

}  // namespace quillet
