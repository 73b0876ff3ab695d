#include "review/source_boxes.h"

#include <array>

#include "import/delimited_text.h"
#include "review/source_form.h"

namespace quillet {
namespace {

constexpr std::array<const char*, 4> encodings{"UTF-8", "windows-1252", "UTF-16LE", "UTF-16BE"};

struct Delimiter {
  char character;
  const char* name;
};
constexpr std::array<Delimiter, 4> delimiters{
    {{',', "Comma"}, {';', "Semicolon"}, {'\t', "Tab"}, {'|', "Bar"}}};

}  // namespace

SourceBoxes::SourceBoxes(SourceForm& form, Context& context, ImportReview& review)
    : form_(form), context_(context), review_(review) {
  for (const char* encoding : encodings) form.cboencoding.addItem(encoding);
  for (const Delimiter& each : delimiters) form.cbodelimiter.addItem(each.name, each.character);
  form.cbosheet.Click = [this] {
    review_.chooseSheet(static_cast<std::size_t>(form_.cbosheet.chosen() - 1));
    form_.reviewed();
  };
  for (ComboBox* box : {&form.cboencoding, &form.cbodelimiter}) box->Click = [this] { readAnew(); };
}

void SourceBoxes::takeFile(const std::string& path) {
  path_ = path;
  name_ = fileName(path);
  options_ = {};
}

SourceBook SourceBoxes::readCells(const std::string& text) {
  path_.clear();
  cells_ = text;
  name_ = "Pasted cells";
  options_ = {};
  return read();
}

void SourceBoxes::take(const SourceBoxes& from) {
  path_ = from.path_;
  cells_ = from.cells_;
  name_ = from.name_;
  options_ = from.options_;
}

SourceBook SourceBoxes::read() {
  if (!path_.empty()) return readSourceFile(context_, path_, options_);
  return readSource(context_, name_,
                    [this](const GoesOn& goesOn) { return pastedBook(cells_, goesOn); });
}

// The bytes are read anew; the rows of before are gone, and the choices with them.
void SourceBoxes::readAnew() {
  const SourceOptions before = options_;
  options_ = {form_.cboencoding.text(), static_cast<char>(form_.cbodelimiter.chosenData())};
  try {
    SourceBook book = read();
    if (!book.sheets.empty()) {
      review_.open(std::move(book), YearBooks(review_.books()));
    } else {
      options_ = before;
    }
  } catch (const SourceError& error) {
    options_ = before;
    context_.MsgBox(error.what(), Buttons::OK, Icon::exclamation);
  }
  form_.reviewed();
}

void SourceBoxes::show() {
  const SourceBook& book = review_.book();
  const SourceSheet* sheet = review_.sheet();
  std::string text = name_;
  if (sheet) text += ", " + std::to_string(sheet->rows.size()) + " rows";
  form_.lblsource.setCaption(text);
  showSheets();
  const bool isText = !book.encoding.empty() && !path_.empty();
  for (ComboBox* box : {&form_.cboencoding, &form_.cbodelimiter}) box->setVisible(isText);
  showOptions();
}

void SourceBoxes::showSheets() {
  const SourceBook& book = review_.book();
  form_.cbosheet.clearItems();
  for (const SourceSheet& each : book.sheets) {
    form_.cbosheet.addItem(each.name + (each.hidden ? " (hidden)" : ""));
  }
  form_.cbosheet.setChosen(static_cast<int>(review_.sheetIndex()) + 1);
  form_.cbosheet.setVisible(book.sheets.size() > 1);
}

void SourceBoxes::showOptions() {
  const SourceBook& book = review_.book();
  form_.cboencoding.setChosen(form_.cboencoding.find(book.encoding));
  form_.cbodelimiter.setChosen(form_.cbodelimiter.findData(book.delimiter));
}

}  // namespace quillet
