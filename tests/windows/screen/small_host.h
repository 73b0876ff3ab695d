// Surroundings that answer from memory: a few clients, one year, some ledgers. Enough to look at
// every form.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/context.h"
#include "windows/ui/dialogs.h"
#include "windows/ui/popup_menu.h"

namespace quillet::windows {

class SmallHost : public ServiceObject, MainPage, Help, Progress {
 public:
  explicit SmallHost(PopupMenu& popup) : popup_(popup) {}

  bool CheckDllsVersion(bool) override { return true; }
  Connection& DbObj() override { return connection_; }
  void ConQuery(const Sql&) override {}
  RecordsetPtr RecordsetQuery(const Sql& sql, Connection&, CursorType, LockType, int) override;
  std::string TruncVarSQL(const std::string& text) const override { return text; }
  std::string GETTBNAME(long count) const override { return std::to_string(count); }
  long GetTbCount() const override { return 5; }
  std::string COMPANY_NAME() const override { return "Deshvir and Kolhare"; }
  std::string ExePath() const override { return "C:\\"; }
  std::string DocPath() const override { return "C:\\"; }
  std::string GetSettingINI(const std::string&, const std::string&,
                            const std::string& fallback) const override {
    return fallback;
  }
  void SaveSettingINI(const std::string&, const std::string&, const std::string&) override {}
  std::string GetMiscOthInf(const std::string&, const std::string&,
                            const std::string& fallback) override {
    return fallback;
  }
  void SetMiscOthInf(const std::string&, const std::string&, const std::string&, const std::string&,
                     const std::string&) override {}
  bool CheckPass(const std::string&) override { return true; }
  bool CheckClpass(const std::string&) override { return true; }
  std::string date_prob_handle(const std::string& date) const override { return date; }
  std::string convertdate(const std::string& date) const override { return date; }
  void resize_for_resolution(Form&) override {}
  void Resize_For_ResolutionUC(Control&) override {}
  double vScreenRatX() const override { return 1; }
  double vScreenRatY() const override { return 1; }
  double vScreenRatFS() const override { return 1; }
  Progress& objProgress() override { return *this; }
  void progress(bool) override {}
  std::string formatgen(double number, const std::string& format) const override;
  std::string formatgen(const std::string& date, const std::string&) const override { return date; }
  MainPage& MainPageObj() override { return *this; }
  PopupMenu& PopupMenuObj() override { return popup_; }
  quillet::Help& ObjHelp() override { return *this; }
  void helpid(const std::string&) override {}
  void ShowClListSelection(const std::string&) override {}
  void ShowClListSetup() override {}
  std::string vLstSelClCode() const override { return {}; }
  void vLstSelClCode(const std::string&) override {}
  std::string GetPart_MastPartId(long partId) override;
  long GetMax_MastPartId(const std::string&) override { return 1; }
  long GetMax_MastPartId(const std::string&, bool) override { return 1; }

 private:
  void showClient(const std::string&, const std::string&) override {}
  void Show() override {}
  void Text1(const std::string&) override {}
  void Max(long) override {}
  void update_pg() override {}

  Connection connection_;
  PopupMenu& popup_;
};

class SmallEnvironment : public Environment, Clock {
 public:
  SmallEnvironment(Dialogs& dialogs, PopupMenu& popup) : dialogs_(dialogs), popup_(popup) {}
  std::unique_ptr<ServiceObject> createServiceObject() override {
    return std::make_unique<SmallHost>(popup_);
  }
  std::unique_ptr<Reporter> createReporter() override;
  std::unique_ptr<StockForms> createStockForms(OpenForms&) override { return nullptr; }
  std::unique_ptr<Spreadsheet> createSpreadsheet() override { return nullptr; }
  Dialogs& dialogs() override { return dialogs_; }
  Clock& clock() override { return *this; }

 private:
  Date today() const override { return {2009, 6, 1}; }
  std::string now() const override { return "2009-06-01 10:00:00"; }

  Dialogs& dialogs_;
  PopupMenu& popup_;
};

}  // namespace quillet::windows
