// The suite's service object in the host's process.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>

#include "ports/ports.h"
#include "windows/com/late.h"
#include "windows/host/late_help.h"
#include "windows/host/late_main_page.h"
#include "windows/host/late_popup_menu.h"
#include "windows/host/late_progress.h"

namespace quillet::windows {

// What the host gave as its open connection, handed back as it is.
struct LateConnection : Connection {
  Variant object;
};

class LateService : public ServiceObject {
 public:
  // What the operations need of the component.
  struct Needs {
    // What a host sees of a form or control that it rescales.
    std::function<Pointer<IDispatch>(Form&)> formObject;
    std::function<Pointer<IDispatch>(Control&)> controlObject;
    // For a host without a popup menu.
    PopupMenu& popupMenu;
    // The number of the act that is running, 0 outside of one.
    std::function<unsigned long()> act;
  };
  explicit LateService(Needs needs);

  const Late& host() const { return host_; }

  bool CheckDllsVersion(bool check) override;

  Connection& DbObj() override;
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

  Progress& objProgress() override;
  void progress(bool show) override;

  std::string formatgen(double number, const std::string& format) const override;
  std::string formatgen(const std::string& date, const std::string& format) const override;

  MainPage& MainPageObj() override;
  PopupMenu& PopupMenuObj() override;
  Help& ObjHelp() override;
  void helpid(const std::string& topic) override;

  void ShowClListSelection(const std::string& status) override;
  void ShowClListSetup() override;
  std::string vLstSelClCode() const override;
  void vLstSelClCode(const std::string& code) override;

  std::string GetPart_MastPartId(long partId) override;
  long GetMax_MastPartId(const std::string& name) override;
  long GetMax_MastPartId(const std::string& name, bool create) override;

 private:
  template <class... Arguments>
  std::string text(const char* operation, const Arguments&... arguments) const {
    return asText(host_.call(operation, arguments...));
  }
  // No object when the host does not know the operation.
  Late offered(const char* operation) const;

  Needs needs_;
  Late host_;
  LateConnection connection_;
  LateProgress progress_;
  LateMainPage mainPage_;
  LatePopupMenu popupMenu_;
  LateHelp help_;
  // The host may ask its database for each name, and a form asks for the names of all its lines:
  // what was read in an act is not asked again in it. A later act asks anew, since others write
  // into the ledger master too.
  std::map<long, std::string> ledgerNames_;
  unsigned long namesRead_ = 0;        // the act that read them
  mutable std::string programFolder_;  // as the host told it last
};

}  // namespace quillet::windows
