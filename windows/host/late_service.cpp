#include "windows/host/late_service.h"

#include "data/errors.h"
#include "data/text.h"
#include "windows/host/late_recordset.h"

namespace quillet::windows {
namespace {

// The folder of a drive ends with a separator.
std::string folder(std::string path) {
  while (path.ends_with('\\') || path.ends_with('/')) path.pop_back();
  return path;
}

}  // namespace

LateService::LateService(Needs needs)
    : needs_(std::move(needs)),
      host_(Late::create("TalBase.ClsMain")),
      popupMenu_(needs_.popupMenu) {}

bool LateService::CheckDllsVersion(bool check) {
  return asTruth(host_.call("CheckDllsVersion", check));
}

// --- database
// -------------------------------------------------------------------------------------

Connection& LateService::DbObj() {
  connection_.object = host_.call("DbObj");
  return connection_;
}

void LateService::ConQuery(const Sql& sql) {
  if (upperCase(sql.text()).find("MAST_PART") != std::string::npos) ledgerNames_.clear();
  host_.call("ConQuery", sql.text());
}

// The fifth argument says that the source is a statement, the sixth how it is to be opened.
RecordsetPtr LateService::RecordsetQuery(const Sql& sql, Connection& connection, CursorType cursor,
                                         LockType lock, int options) {
  constexpr int statement = 1;
  constexpr const char* operation = "RecordsetQuery";
  const Variant& open = dynamic_cast<LateConnection&>(connection).object;
  const int cursorType = static_cast<int>(cursor);
  const int lockType = static_cast<int>(lock);
  const Late rows =
      options < 0
          ? host_.object(operation, sql.text(), open, cursorType, lockType, statement)
          : host_.object(operation, sql.text(), open, cursorType, lockType, statement, options);
  return std::make_unique<LateRecordset>(rows);
}

std::string LateService::TruncVarSQL(const std::string& typed) const {
  return text("TruncVarSQL", typed);
}

std::string LateService::GETTBNAME(long count) const { return text("GETTBNAME", count); }
long LateService::GetTbCount() const { return asLong(host_.call("GetTbCount")); }

// --- the practice, its folders and settings
// -------------------------------------------------------

std::string LateService::COMPANY_NAME() const { return text("COMPANY_NAME"); }
// The error log lies there: it is wanted most when the host does not answer any more.
std::string LateService::ExePath() const {
  try {
    programFolder_ = folder(text("ExePath"));
  } catch (const RunTimeError&) {
    if (programFolder_.empty()) throw;
  }
  return programFolder_;
}
std::string LateService::DocPath() const { return folder(text("DocPath")); }

std::string LateService::GetSettingINI(const std::string& section, const std::string& key,
                                       const std::string& fallback) const {
  return text("GetSettingINI", section, key, fallback);
}

void LateService::SaveSettingINI(const std::string& section, const std::string& key,
                                 const std::string& value) {
  host_.call("SaveSettingINI", section, key, value);
}

std::string LateService::GetMiscOthInf(const std::string& section, const std::string& key,
                                       const std::string& fallback) {
  return text("GetMiscOthInf", section, key, fallback);
}

void LateService::SetMiscOthInf(const std::string& section, const std::string& key,
                                const std::string& value, const std::string& client,
                                const std::string& year) {
  host_.call("SetMiscOthInf", section, key, value, client, year);
}

bool LateService::CheckPass(const std::string& right) {
  return asTruth(host_.call("CheckPass", right));
}

bool LateService::CheckClpass(const std::string& client) {
  return asTruth(host_.call("CheckClpass", client));
}

// --- texts
// ----------------------------------------------------------------------------------------

std::string LateService::date_prob_handle(const std::string& date) const {
  return text("date_prob_handle", date);
}

std::string LateService::convertdate(const std::string& date) const {
  return text("convertdate", date);
}

std::string LateService::formatgen(double number, const std::string& format) const {
  return text("formatgen", number, format);
}

std::string LateService::formatgen(const std::string& date, const std::string& format) const {
  return text("formatgen", date, format);
}

// --- the screen
// -----------------------------------------------------------------------------------

void LateService::resize_for_resolution(Form& form) {
  host_.call("resize_for_resolution", needs_.formObject(form));
}

void LateService::Resize_For_ResolutionUC(Control& control) {
  host_.call("Resize_For_ResolutionUC", needs_.controlObject(control));
}

double LateService::vScreenRatX() const { return asNumber(host_.call("vScreenRatX")); }
double LateService::vScreenRatY() const { return asNumber(host_.call("vScreenRatY")); }
double LateService::vScreenRatFS() const { return asNumber(host_.call("vScreenRatFS")); }

// --- the host's windows
// ---------------------------------------------------------------------------

Late LateService::offered(const char* operation) const {
  Late object;
  ifOffered([&] { object = host_.object(operation); });
  return object;
}

Progress& LateService::objProgress() {
  progress_.use(host_.object("objProgress"));
  return progress_;
}

void LateService::progress(bool show) { host_.call("progress", show); }

MainPage& LateService::MainPageObj() {
  mainPage_.use(offered("MainPageObj"));
  return mainPage_;
}

PopupMenu& LateService::PopupMenuObj() {
  popupMenu_.use(offered("PopupMenuObj"));
  return popupMenu_;
}

Help& LateService::ObjHelp() {
  help_.use(host_.object("ObjHelp"));
  return help_;
}

void LateService::helpid(const std::string& topic) { host_.put("helpid", topic); }

// --- clients
// --------------------------------------------------------------------------------------

void LateService::ShowClListSelection(const std::string& status) {
  host_.call("ShowClListSelection", status);
}

void LateService::ShowClListSetup() { host_.call("ShowClListSetup"); }

std::string LateService::vLstSelClCode() const { return text("vLstSelClCode"); }

void LateService::vLstSelClCode(const std::string& code) {
  ifOffered([&] { host_.put("vLstSelClCode", code); });
}

// --- ledgers
// --------------------------------------------------------------------------------------

std::string LateService::GetPart_MastPartId(long partId) {
  const unsigned long act = needs_.act();
  if (act == 0 || act != namesRead_) ledgerNames_.clear();
  namesRead_ = act;
  if (const auto known = ledgerNames_.find(partId); known != ledgerNames_.end()) {
    return known->second;
  }
  std::string name = text("GetPart_MastPartId", partId);
  if (act != 0 && !name.empty()) ledgerNames_[partId] = name;
  return name;
}

long LateService::GetMax_MastPartId(const std::string& name) {
  return asLong(host_.call("GetMax_MastPartId", name));
}

long LateService::GetMax_MastPartId(const std::string& name, bool create) {
  return asLong(host_.call("GetMax_MastPartId", name, create));
}

}  // namespace quillet::windows
