// The suite's service object on MariaDB. It delegates: each group of operations has a file of its
// own.
#pragma once

#include <string>

#include "ports/ledger_look_up.h"
#include "suite/client_list_dialogs.h"
#include "suite/data_folder.h"
#include "suite/database.h"
#include "suite/front_end.h"
#include "suite/front_end_ports.h"
#include "suite/ledger_names.h"
#include "suite/passwords.h"
#include "suite/progress_indicator.h"
#include "suite/settings.h"
#include "suite/statement_interceptor.h"
#include "suite/unit_of_work.h"

namespace quillet::suite {

class Service : public ServiceObject, public LedgerLookUps {
 public:
  Service(const DataFolder& folder, Settings& settings, Database& database, UnitOfWork& unit,
          FrontEnd& frontEnd, Dialogs& dialogs);

  ~Service() override;

  // Where the dialogs of the client list open. They need it; nothing else does.
  void useOpenForms(OpenForms& openForms) { clientListDialogs_.useOpenForms(openForms); }

  // --- for scripts and tests
  // Statements of the module, recorded and made to fail; the suite's own do not pass here.
  StatementInterceptor& statements() { return statements_; }
  // Told of a statement that was not sent through here, so that look-ups read anew.
  void executedElsewhere(const std::string& sql) { ledgers_.statementSent(sql); }
  void ledgersChanged() { ledgers_.forget(); }
  // The next call of "CheckPass" or "CheckClpass" is refused; throws for any other operation.
  void refuse(const std::string& operation);
  // Stops the next work that can be stopped, after so many steps.
  void stopWork(long steps) { progress_.stopAfter(steps); }

  // --- the module's operations
  bool CheckDllsVersion(bool check) override;

  Connection& DbObj() override { return database_; }
  void ConQuery(const Sql& sql) override;
  RecordsetPtr RecordsetQuery(const Sql& sql, Connection& connection, CursorType cursor,
                              LockType lock, int options = -1) override;
  std::string TruncVarSQL(const std::string& text) const override;
  std::string GETTBNAME(long count) const override;
  long GetTbCount() const override;

  std::string COMPANY_NAME() const override;
  std::string ExePath() const override;
  std::string DocPath() const override;

  std::string GetSettingINI(const std::string& section, const std::string& key,
                            const std::string& fallback) const override;
  void SaveSettingINI(const std::string& section, const std::string& key,
                      const std::string& value) override;
  std::string GetMiscOthInf(const std::string& section, const std::string& key,
                            const std::string& fallback) override;
  void SetMiscOthInf(const std::string& section, const std::string& key, const std::string& value,
                     const std::string& client, const std::string& year) override;

  bool CheckPass(const std::string& right) override;
  bool CheckClpass(const std::string& client) override;

  std::string date_prob_handle(const std::string& date) const override;
  std::string convertdate(const std::string& date) const override;

  void resize_for_resolution(Form& form) override;
  void Resize_For_ResolutionUC(Control& control) override;
  double vScreenRatX() const override;
  double vScreenRatY() const override;
  double vScreenRatFS() const override;

  Progress& objProgress() override { return progress_; }
  void progress(bool show) override { progress_.show(show); }

  std::string formatgen(double number, const std::string& format) const override;
  std::string formatgen(const std::string& date, const std::string& format) const override;

  MainPage& MainPageObj() override { return frontEndPorts_; }
  PopupMenu& PopupMenuObj() override { return frontEndPorts_; }
  Help& ObjHelp() override { return frontEndPorts_; }
  void helpid(const std::string& topic) override { frontEndPorts_.setHelpTopic(topic); }

  void ShowClListSelection(const std::string& status) override {
    clientListDialogs_.showSelection(status);
  }
  void ShowClListSetup() override { clientListDialogs_.showSetup(); }
  std::string vLstSelClCode() const override;
  void vLstSelClCode(const std::string& code) override;

  std::string GetPart_MastPartId(long partId) override;
  long GetMax_MastPartId(const std::string& name) override;
  long GetMax_MastPartId(const std::string& name, bool create) override;
  void lookUpLedgers(const std::vector<std::string>& names) override { ledgers_.lookUp(names); }

 private:
  const DataFolder& folder_;
  Settings& settings_;
  Database& database_;
  UnitOfWork& unit_;
  FrontEnd& frontEnd_;
  StatementInterceptor statements_;
  LedgerNames ledgers_;
  Passwords passwords_;
  ProgressIndicator progress_;
  FrontEndPorts frontEndPorts_;
  ClientListDialogs clientListDialogs_;
};

}  // namespace quillet::suite
