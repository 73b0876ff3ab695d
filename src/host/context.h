// The module-wide context: the only state that the forms share. One instance for each loaded
// module.
#pragma once

#include <memory>
#include <string>

#include "books/unposted_changes.h"
#include "books/year_files.h"
#include "controls/form.h"
#include "controls/open_forms.h"
#include "data/sql.h"
#include "ports/books_history.h"
#include "ports/ports.h"
#include "ports/source_book.h"
#include "ports/statutory_heads.h"
#include "ports/year_locks.h"

namespace quillet {

// How the module comes by its surroundings. Service object and reporter are made once, at start-up.
class Environment {
 public:
  virtual ~Environment() = default;
  virtual std::unique_ptr<ServiceObject> createServiceObject() = 0;
  virtual std::unique_ptr<Reporter> createReporter() = 0;
  // Made anew for each use; its form opens on the open forms.
  virtual std::unique_ptr<StockForms> createStockForms(OpenForms& openForms) = 0;
  virtual std::unique_ptr<Spreadsheet> createSpreadsheet() = 0;
  virtual Dialogs& dialogs() = 0;
  virtual Clock& clock() = 0;
  // Reads the files of an import; null where the host reads none.
  virtual SourceReader* sourceReader() { return nullptr; }
  // The heads that account groups are mapped to; null where the host has none.
  virtual StatutoryHeads* statutoryHeads() { return nullptr; }
  // Null where the host keeps no history of the books.
  virtual BooksHistory* history() { return nullptr; }
  // Null where the host locks no years.
  virtual YearLocks* yearLocks() { return nullptr; }
  virtual FileRemover& fileRemover() { return removeAtOnce_; }
  // Tells a person something that no act of theirs has caused, quietly: by a line that stays until
  // it is closed. A host without such lines tells nothing.
  virtual void notice(const std::string& text) { (void)text; }
  // A procedure was ended by an error, which the error log has by now. `where` is what the form is
  // called.
  virtual void trapped(const std::string& where, const std::exception& error) {
    (void)where;
    (void)error;
  }

 private:
  RemoveAtOnce removeAtOnce_;
};

struct Context {
  // Module start-up: creates the service object, checks its version, creates the reporter.
  explicit Context(Environment& around);
  ~Context();
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;

  Environment& environment;
  OpenForms openForms;
  std::unique_ptr<ServiceObject> host;
  std::unique_ptr<Reporter> reporter;
  Dialogs& dialogs;
  Clock& clock;
  FileRemover& fileRemover;

  std::string clientCode;
  std::string table;       // tbl_nm of the selected trial balance, "" when none is usable
  std::string firstDate;   // f_yr: "0104" and the first year
  std::string secondDate;  // s_yr: "3103" and the second year
  std::string errorLocation;
  UnpostedChanges unposted;

  // The trial balance being worked on. What is told of it changes as a whole.
  struct Year {
    std::string clientCode;
    std::string table;
    std::string firstDate;
    std::string secondDate;
  };
  Year year() const { return {clientCode, table, firstDate, secondDate}; }
  void setYear(const Year& year);
  // No trial balance of the client is being worked on.
  void forgetYear() { setYear({clientCode, {}, {}, {}}); }

  // What the act that is running changed so far stands for good; or the host took it back, and what
  // the module remembered of it is forgotten.
  void kept();
  void takenBack();

  // The single instances of the two entry forms, made on first use.
  std::unique_ptr<Form> homeForm;
  std::unique_ptr<Form> editorForm;

  // Message boxes of the design's styles.
  Answer MsgBox(const std::string& text, Buttons buttons = Buttons::OK, Icon icon = Icon::none,
                Answer defaultAnswer = Answer::Yes, const std::string& title = {});
  // A statement that changes data, and the flush that follows it.
  void change(const Sql& sql, const Sql& flush = flushTables) { host->change(sql, flush); }
  // A select on the open connection.
  RecordsetPtr query(const Sql& sql) { return host->query(sql); }

 private:
  void trapped(const std::string& location, const std::exception& error);

  // As it was before the act began.
  struct Remembered {
    UnpostedChanges unposted;
    Year year;
  };
  Remembered before_;
};

}  // namespace quillet
