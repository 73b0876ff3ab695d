#include "suite/history/changes_output.h"

#include "data/paths.h"
#include "host/report_table.h"
#include "host/workbook_file.h"
#include "ports/busy.h"
#include "suite/history/change_texts.h"

namespace quillet::suite {
namespace {

// A workbook of this kind holds that many rows, the headings among them.
constexpr std::size_t workbookRows = 65'536;

// The template has the first five columns laid out for names and amounts.
constexpr const char* headings[] = {"S. No.",   "Ledger",   "Group",     "Old Amount", "New Amount",
                                    "Old Side", "New Side", "Old Group", "What",       "Of",
                                    "When",     "Person",   "Station",   "Command",    "Form",
                                    "Old",      "New",      "Remark"};
enum Column {
  number = 1,
  ledger,
  group,
  oldAmount,
  newAmount,
  oldSide,
  newSide,
  oldGroup,
  what,
  of,
  when,
  person,
  station,
  command,
  form,
  oldText,
  newText,
  remark
};

class ChangeRows {
 public:
  ChangeRows(Workbook& workbook, int sheet) : workbook_(workbook), sheet_(sheet) {
    int column = 0;
    for (const char* heading : headings) text(++column, heading);
  }

  void write(const ServiceObject& host, Changes& changes, const Change& change) {
    const ChangeTexts texts = textsOf(host, changes, change);
    ++row_;
    workbook_.Cells(sheet_, row_, number, static_cast<double>(row_ - 1));
    for (const auto& [column, cell] :
         std::initializer_list<std::pair<int, std::string>>{{ledger, texts.ledger},
                                                            {group, texts.group},
                                                            {oldGroup, texts.oldGroup},
                                                            {what, texts.what},
                                                            {of, texts.of},
                                                            {when, texts.when},
                                                            {person, texts.person},
                                                            {station, texts.station},
                                                            {command, texts.command},
                                                            {form, texts.form},
                                                            {remark, texts.remark}}) {
      text(column, cell);
    }
    if (!change.hasAmounts()) {
      text(oldText, texts.before);
      text(newText, texts.after);
      return;
    }
    amount(change.rows.before, oldAmount, oldSide, change.of);
    amount(change.rows.after, newAmount, newSide, change.of);
  }

 private:
  void text(int column, const std::string& cell) {
    if (!cell.empty()) workbook_.Cells(sheet_, row_, column, cell);
  }
  void amount(const std::optional<BookRow>& book, int column, int side, Change::Of of) {
    if (!book) return;
    workbook_.Cells(sheet_, row_, column, abs(book->balance).rupees());
    if (of != Change::Of::stock) text(side, book->balance < Money() ? "CR" : "DR");
  }

  Workbook& workbook_;
  const int sheet_;
  int row_ = 1;
};

}  // namespace

void printChanges(Context& context, Changes& changes, const std::string& count) {
  Reporter& reporter = *context.reporter;
  const Busy busy(*context.host);
  reporter.WinModeReport(true);
  reporter.NewReport();
  reporter.printtext(printer::emphasised("Changes"));
  reporter.printtext(count);
  reporter.printtext(printer::control);
  ReportTable table(reporter, {Align::left, Align::left, Align::left, Align::left, Align::left,
                               Align::left, Align::right, Align::right, Align::left, Align::left});
  table.heading({"When", "Person", "What", "Of", "Ledger", "Group", "Old", "New", "Command",
                 std::string("Remark") + printer::emphasisOff});
  for (const Change& change : changes.list) {
    const ChangeTexts texts = textsOf(*context.host, changes, change);
    table.row({texts.when, texts.person, texts.what, texts.of, texts.ledger, texts.groups(),
               texts.before, texts.after, texts.command, texts.remark});
  }
  reporter.ShowReport();
}

void exportChanges(Context& context, Changes& changes, const std::string& fileSubject) {
  constexpr const char* title = "Changes";
  if (changes.list.size() >= workbookRows) {
    context.MsgBox("A workbook holds 65,535 changes, and these are " +
                       std::to_string(changes.list.size()) +
                       ". Please choose a shorter period or one ledger.",
                   Buttons::OK, Icon::information, Answer::OK, title);
    return;
  }
  const std::string name = asFileName(fileSubject + " Changes.xls");
  exportWorkbook(context, {.boxTitle = title,
                           .source = "\\Databases\\ORVO_TB.xls",
                           .proposed = name,
                           .ownName = name,
                           .sheets = {"TB"},
                           .sheetMissing = "The changes cannot be saved. Worksheet not found!",
                           .fill = [&](Workbook& workbook, const std::vector<int>& sheets) {
                             Progress& progress = context.host->objProgress();
                             progress.Max(static_cast<long>(changes.list.size()));
                             ChangeRows rows(workbook, sheets.front());
                             for (const Change& change : changes.list) {
                               rows.write(*context.host, changes, change);
                               progress.update_pg();
                             }
                           }});
}

}  // namespace quillet::suite
