// What the module gets from the suite when Quillet runs on its own, and the open practice as a
// whole.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "host/forms.h"
#include "suite/act_keeper.h"
#include "suite/calc_spreadsheet.h"
#include "suite/data_folder.h"
#include "suite/database.h"
#include "suite/disk_watch.h"
#include "suite/document.h"
#include "suite/file_removal.h"
#include "suite/front_end.h"
#include "suite/history/taking_back.h"
#include "suite/history/year_locks.h"
#include "suite/service_object.h"
#include "suite/settings.h"
#include "suite/start_policy.h"
#include "suite/statutory_heads.h"
#include "suite/unit_dialogs.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class HistoryForms;
class PracticeCommands;

class StandaloneEnvironment : public Environment {
 public:
  // All of them outlive this object and what it creates.
  StandaloneEnvironment(const DataFolder& folder, Settings& settings, Database& database,
                        FrontEnd& frontEnd, Clock& clock);
  ~StandaloneEnvironment() override;

  std::unique_ptr<ServiceObject> createServiceObject() override;
  std::unique_ptr<Reporter> createReporter() override;
  std::unique_ptr<StockForms> createStockForms(OpenForms& openForms) override;
  std::unique_ptr<Spreadsheet> createSpreadsheet() override;
  Dialogs& dialogs() override { return dialogs_; }
  Clock& clock() override { return clock_; }
  SourceReader* sourceReader() override;
  StatutoryHeads* statutoryHeads() override { return &statutoryHeads_; }
  BooksHistory* history() override { return history_; }
  FileRemover& fileRemover() override { return fileRemoval_; }
  // On a server that keeps no history nothing could hold a station to them.
  YearLocks* yearLocks() override { return log_.keeps() ? &locks_ : nullptr; }
  void notice(const std::string& text) override { acts_.tell(text); }
  void trapped(const std::string& where, const std::exception& error) override {
    acts_.trapped(where, error);
  }

  ActKeeper& acts() { return acts_; }
  // To be called every few seconds, and when a person comes back to the program: shows what other
  // stations have stored, and tells them that this one is there.
  void lookAround();
  // While a person thinks over a question in the midst of an act: others are told that this station
  // is still there.
  void waitForPerson() noexcept {
    locks_.presence().beatOverQuestion(std::chrono::steady_clock::now());
  }
  // Keeps the acts on the forms of that context from now on; null: none.
  void follow(Context* context);
  UnitOfWork& unit() { return unit_; }
  ActLog& actLog() { return log_; }
  TakingBack& takingBack() { return takingBack_; }
  // When the act that is running, which takes that one back, stands, the files that it removed come
  // back, and those go that it brought back.
  void bringBackFiles(const ActRow& act);
  void removeOldFiles() { fileRemoval_.removeOld(); }

  // Uses another helper for workbooks than the one in the folder of our program.
  void useCalc(CalcOptions options) {
    calc_ = std::move(options);
    sourceReader_.reset();
  }

  // Null when there is none.
  void offerHistory(BooksHistory* history) { history_ = history; }
  // The form that shows a report says what it is about.
  void reportsOf(std::function<const Form*()> form) { reportingForm_ = std::move(form); }
  // The last report shown.
  const std::optional<Document>& lastReport() const { return lastReport_; }
  void forgetReport() { lastReport_.reset(); }

 private:
  const DataFolder& folder_;
  Settings& settings_;
  Database& database_;
  FrontEnd& frontEnd_;
  Clock& clock_;
  ActLog log_;
  UnitOfWork unit_;
  YearLockTable locks_;
  TakingBack takingBack_;
  UnitDialogs dialogs_;
  FileRemoval fileRemoval_;
  DiskWatch disk_;
  ActKeeper acts_;
  BooksHistory* history_ = nullptr;
  CalcOptions calc_ = CalcOptions::standard();
  std::function<const Form*()> reportingForm_;
  std::optional<Document> lastReport_;
  std::unique_ptr<SourceReader> sourceReader_;  // made with the first file
  PracticeHeads statutoryHeads_;
};

// A practice at work: an open data folder with its database, and the module on top. The desktop,
// the scripts and the tests all start here.
class Practice {
 public:
  // Opens the folder's database, or the server that its settings name, completes the schema
  // (showing progress through the front end) and starts the module. Throws std::runtime_error with
  // a message for the user.
  Practice(const DataFolder& folder, FrontEnd& frontEnd, Clock& clock,
           const StartPolicy& policy = {});
  ~Practice();

  const DataFolder& folder() const { return folder_; }
  Settings& settings() { return settings_; }
  Database& database() { return *database_; }
  FrontEnd& frontEnd() { return frontEnd_; }
  StandaloneEnvironment& environment() { return standalone_; }
  Forms& forms() { return *forms_; }
  Context& context() { return forms_->context(); }
  Service& service();
  PracticeCommands& commands() { return *commands_; }

  // Closes every form and starts the module anew on the same database, for tests.
  void restartModule();

 private:
  void tookBack(const ActRow& act);
  Practice(DataFolder folder, std::unique_ptr<Database> database, FrontEnd& frontEnd, Clock& clock,
           const StartPolicy& policy);

  DataFolder folder_;
  Settings settings_;
  std::unique_ptr<Database> database_;
  FrontEnd& frontEnd_;
  StandaloneEnvironment standalone_;
  std::unique_ptr<Forms> forms_;
  std::unique_ptr<HistoryForms> history_;
  std::unique_ptr<PracticeCommands> commands_;
};

}  // namespace quillet::suite
