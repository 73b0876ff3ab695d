// What the module asks of its surroundings. Each interface is as narrow as its use; the suite, the
// desktop and the tests implement them.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "data/align.h"
#include "data/dates.h"
#include "data/recordset.h"
#include "data/sql.h"

namespace quillet {

class Control;
class OpenForms;
class Form;

// --- message boxes and dialogs ----------------------------------------------------------------

enum class Buttons { OK, YesNo, YesNoCancel };
enum class Icon { none, information, question, exclamation, critical };
enum class Answer { OK, Yes, No, Cancel };

struct Message {
  std::string text;
  std::string title;
  Buttons buttons = Buttons::OK;
  Icon icon = Icon::none;
  Answer defaultAnswer = Answer::OK;
};

// Synchronous: they return when a person has answered.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual Answer MsgBox(const Message& message) = 0;
  // The path that a person chose to save to; nothing when the dialog was cancelled. `filter` reads
  // "Excel Files|*.xls".
  virtual std::optional<std::string> saveFile(const std::string& filter,
                                              const std::string& proposed) = 0;
  // The path of a file that a person chose to read; nothing when the dialog was cancelled, and
  // where a host has no such dialog.
  virtual std::optional<std::string> openFile(const std::string& filter) {
    (void)filter;
    return std::nullopt;
  }
  // A password typed by a person; nothing when the dialog was cancelled.
  virtual std::optional<std::string> password(const std::string& prompt) = 0;
};

// --- the clock -----------------------------------------------------------------------------------

class Clock {
 public:
  virtual ~Clock() = default;
  virtual Date today() const = 0;
  // "YYYY-MM-DD hh:mm:ss", local time.
  virtual std::string now() const = 0;
};

// --- files
// ------------------------------------------------------------------------------------------

// Removes the files that hang on books that are deleted. A host may do it later, once the deletion
// stands; it then tells by itself what could not be removed.
class FileRemover {
 public:
  virtual ~FileRemover() = default;
  // False when the file could not be removed. One that is not there counts as removed.
  virtual bool remove(const std::filesystem::path& file) = 0;
};

// --- the suite's service object ----------------------------------------------------------------

// The open database connection, handed back to RecordsetQuery.
class Connection {
 public:
  virtual ~Connection() = default;
};

enum class CursorType { forwardOnly = 0, keyset = 1, dynamic = 2, static_ = 3 };
enum class LockType { readOnly = 1, pessimistic = 2, optimistic = 3, batchOptimistic = 4 };

// The progress indicator: a line of text and a bar.
class Progress {
 public:
  virtual ~Progress() = default;
  virtual void Text1(const std::string& text) = 0;
  // How many steps there are in all; starts the bar anew.
  virtual void Max(long steps) = 0;
  // One step done.
  virtual void update_pg() = 0;
  // Whether a person wants the work to stop. Asked by work that can, after each step.
  virtual bool stopped() { return false; }
};

// The suite's main page: tells which client is in work.
class MainPage {
 public:
  virtual ~MainPage() = default;
  virtual void showClient(const std::string& code, const std::string& name) = 0;
};

// The suite's popup menu: position from 1 of the entry chosen, 0 for none. "-" draws a line.
class PopupMenu {
 public:
  virtual ~PopupMenu() = default;
  virtual int choose(const std::vector<std::string>& entries) = 0;
};

// The suite's help window; shows the topic that the service object's helpid names.
class Help {
 public:
  virtual ~Help() = default;
  virtual void Show() = 0;
};

class ServiceObject {
 public:
  virtual ~ServiceObject() = default;

  // False: the service library is of an incompatible version.
  virtual bool CheckDllsVersion(bool check) = 0;

  // Database. A failing statement throws RunTimeError with the server's error number.
  virtual Connection& DbObj() = 0;
  virtual void ConQuery(const Sql& sql) = 0;
  virtual RecordsetPtr RecordsetQuery(const Sql& sql, Connection& connection, CursorType cursor,
                                      LockType lock, int options = -1) = 0;
  // A select on the open connection.
  RecordsetPtr query(const Sql& sql) {
    return RecordsetQuery(sql, DbObj(), CursorType::static_, LockType::readOnly);
  }
  // A statement that changes data, and the flush that follows it.
  void change(const Sql& sql, const Sql& flush = flushTables) {
    ConQuery(sql);
    ConQuery(flush);
  }

  // Text made safe inside a quoted SQL literal; never shortened.
  virtual std::string TruncVarSQL(const std::string& text) const = 0;
  // The same as SQL text: the one way for a text into a statement.
  Sql escaped(const std::string& text) const { return Sql(TruncVarSQL(text)); }
  Sql quoted(const std::string& text) const { return "'" + escaped(text) + "'"; }
  // The table suffix that belongs to a table number.
  virtual std::string GETTBNAME(long count) const = 0;
  // How many table numbers there are; no year is registered under a higher one.
  virtual long GetTbCount() const = 0;

  virtual std::string COMPANY_NAME() const = 0;
  // Folders, in UTF-8 and without a separator at the end.
  virtual std::string ExePath() const = 0;
  virtual std::string DocPath() const = 0;

  virtual std::string GetSettingINI(const std::string& section, const std::string& key,
                                    const std::string& fallback) const = 0;
  virtual void SaveSettingINI(const std::string& section, const std::string& key,
                              const std::string& value) = 0;
  virtual std::string GetMiscOthInf(const std::string& section, const std::string& key,
                                    const std::string& fallback) = 0;
  virtual void SetMiscOthInf(const std::string& section, const std::string& key,
                             const std::string& value, const std::string& client,
                             const std::string& year) = 0;

  // User rights and client passwords; asked for in a dialog when one is set. True: go on.
  virtual bool CheckPass(const std::string& right) = 0;
  virtual bool CheckClpass(const std::string& client) = 0;

  // A date text in any of the forms that people write, as dd/mm/yyyy; "" when it is no date.
  virtual std::string date_prob_handle(const std::string& date) const = 0;
  virtual std::string convertdate(const std::string& date) const = 0;

  virtual void resize_for_resolution(Form& form) = 0;
  virtual void Resize_For_ResolutionUC(Control& control) = 0;
  // Ratios of the screen to the one that the forms were designed for, 1366 x 768.
  virtual double vScreenRatX() const = 0;
  virtual double vScreenRatY() const = 0;
  virtual double vScreenRatFS() const = 0;

  virtual Progress& objProgress() = 0;
  virtual void progress(bool show) = 0;

  // A number by a number format ("#,##0.00", "###0.00", "#,##0.00;(#,##0.00)"), rounded as on
  // paper; a date text by a date format ("DD/MM/YYYY", "YYYY-MM-DD", "d-m-yyyy").
  virtual std::string formatgen(double number, const std::string& format) const = 0;
  virtual std::string formatgen(const std::string& date, const std::string& format) const = 0;

  virtual MainPage& MainPageObj() = 0;
  virtual PopupMenu& PopupMenuObj() = 0;
  virtual Help& ObjHelp() = 0;
  virtual void helpid(const std::string& topic) = 0;

  // The client list: which clients it holds (opens a dialog that starts with the status given) and
  // how its columns stand (opens a dialog). Both are kept in the settings.
  virtual void ShowClListSelection(const std::string& status) = 0;
  virtual void ShowClListSetup() = 0;
  // The client chosen last, kept between runs.
  virtual std::string vLstSelClCode() const = 0;
  virtual void vLstSelClCode(const std::string& code) = 0;

  // The ledger name of an id, "" when there is none; costs no query per row.
  virtual std::string GetPart_MastPartId(long partId) = 0;
  // The id of the ledger of that name, or of one that the database cannot tell from it; created
  // when there is none. 0 when that fails.
  virtual long GetMax_MastPartId(const std::string& name) = 0;
  virtual long GetMax_MastPartId(const std::string& name, bool create) = 0;
};

// --- the suite's report component --------------------------------------------------------------

class Reporter {
 public:
  virtual ~Reporter() = default;
  virtual void WinModeReport(bool windowMode) = 0;
  virtual void NewReport() = 0;
  virtual void printtext(const std::string& text) = 0;
  virtual void CreateTable(int firstColumn, int columns) = 0;
  // One row. `values` are the cells; `widths` are characters, 0 follows the content; `before` and
  // `after` are texts put around each cell (printer codes); `heading` marks a row that repeats on
  // every page. The four masks hold one character a cell: rule above, emphasis, last cell of the
  // row, cell is printed.
  virtual void WriteToReport(std::vector<std::string>& values, std::vector<Align>& alignments,
                             std::vector<long>& widths, std::vector<std::string>& before,
                             std::vector<std::string>& after, bool& heading, std::string& rules,
                             std::string& emphasis, std::string& last, std::string& printed) = 0;
  virtual void ShowReport() = 0;
};

// --- the suite's final-accounts component -------------------------------------------------------

// The form that keeps the closing stock of a client's year.
class StockForm {
 public:
  virtual ~StockForm() = default;
  virtual void LoadData(ServiceObject& host, const std::string& client,
                        const std::string& table) = 0;
  // With 1 the forms below take no input until it closes; `closed` runs then.
  virtual void Show(int modal, std::function<void()> closed) = 0;
};

class StockForms {
 public:
  virtual ~StockForms() = default;
  virtual StockForm& ObjTrade() = 0;
};

// --- the spreadsheet application -----------------------------------------------------------------

// An open workbook. Worksheets count from 0, rows and columns from 1. Texts stay texts whatever
// they look like. A cell that cannot be written may be told only by Save.
class Workbook {
 public:
  virtual ~Workbook() = default;
  virtual const std::vector<std::string>& Worksheets() const = 0;
  virtual void Cells(int worksheet, int row, int column, const std::string& text) = 0;
  virtual void Cells(int worksheet, int row, int column, double number) = 0;
  virtual void Save() = 0;
  virtual void Close() = 0;
};

// The application ends with the object, whether or not Quit was called.
class Spreadsheet {
 public:
  virtual ~Spreadsheet() = default;
  virtual Workbook& Open(const std::string& path) = 0;
  virtual void Quit() = 0;
};

}  // namespace quillet
