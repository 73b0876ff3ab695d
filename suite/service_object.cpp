#include "suite/service_object.h"

#include <cstdlib>
#include <stdexcept>

#include "controls/form.h"
#include "data/errors.h"
#include "suite/firm_name.h"
#include "suite/format.h"
#include "suite/misc_values.h"
#include "suite/schema.h"
#include "suite/screen_fit.h"
#include "suite/table_numbers.h"

namespace quillet::suite {
namespace {

constexpr const char* serviceSource = "Service";
constexpr const char* ownSection = "Suite";
constexpr const char* lastClientKey = "LastClient";
constexpr long invalidCall = 5;

bool isNumberFormat(const std::string& format) {
  return format.find_first_of("#0") != std::string::npos;
}

}  // namespace

Service::Service(const DataFolder& folder, Settings& settings, Database& database, UnitOfWork& unit,
                 FrontEnd& frontEnd, Dialogs& dialogs)
    : folder_(folder),
      settings_(settings),
      database_(database),
      unit_(unit),
      frontEnd_(frontEnd),
      statements_(unit),
      ledgers_(unit),
      passwords_(database, dialogs),
      progress_(frontEnd),
      frontEndPorts_(frontEnd),
      clientListDialogs_(database, settings) {
  unit.onTakenBack = [this] { ledgers_.forget(); };
  if (unit.turns() != nullptr) unit.turns()->onMoved = [this] { ledgers_.forget(); };
}

Service::~Service() {
  unit_.onTakenBack = {};
  if (unit_.turns() != nullptr) unit_.turns()->onMoved = {};
}

bool Service::CheckDllsVersion(bool) { return true; }

// --- database -----------------------------------------------------------------------------------

void Service::ConQuery(const Sql& sql) {
  ledgers_.statementSent(sql.text());
  statements_.execute(sql.text());
}

RecordsetPtr Service::RecordsetQuery(const Sql& sql, Connection& connection, CursorType, LockType,
                                     int) {
  if (&connection != &database_) {
    throw RunTimeError(invalidCall, "The recordset is asked of another connection.", serviceSource);
  }
  return statements_.query(sql.text());
}

std::string Service::TruncVarSQL(const std::string& text) const { return database_.escape(text); }
std::string Service::GETTBNAME(long count) const { return tableSuffix(count); }
long Service::GetTbCount() const { return tableNumbers(settings_, database_); }

std::string Service::GetPart_MastPartId(long partId) { return ledgers_.nameOf(partId); }
long Service::GetMax_MastPartId(const std::string& name) { return ledgers_.idOf(name, true); }
long Service::GetMax_MastPartId(const std::string& name, bool create) {
  return ledgers_.idOf(name, create);
}

// --- folders and settings ------------------------------------------------------------------------

std::string Service::COMPANY_NAME() const { return FirmName(settings_, unit_).get(); }
std::string Service::ExePath() const { return folder_.program().string(); }
std::string Service::DocPath() const { return folder_.documents().string(); }

std::string Service::GetSettingINI(const std::string& section, const std::string& key,
                                   const std::string& fallback) const {
  return settings_.get(section, key, fallback);
}

void Service::SaveSettingINI(const std::string& section, const std::string& key,
                             const std::string& value) {
  settings_.set(section, key, value);
}

std::string Service::GetMiscOthInf(const std::string& section, const std::string& key,
                                   const std::string& fallback) {
  return misc_values::get(unit_, section, key, fallback);
}

void Service::SetMiscOthInf(const std::string& section, const std::string& key,
                            const std::string& value, const std::string& client,
                            const std::string& year) {
  misc_values::set(unit_, section, key, value, client, year);
}

std::string Service::vLstSelClCode() const { return settings_.get(ownSection, lastClientKey); }
void Service::vLstSelClCode(const std::string& code) {
  settings_.set(ownSection, lastClientKey, code);
}

// --- passwords ----------------------------------------------------------------------------------

void Service::refuse(const std::string& operation) {
  if (operation == "CheckPass") return passwords_.refuseNext(PasswordKind::right);
  if (operation == "CheckClpass") return passwords_.refuseNext(PasswordKind::client);
  throw std::invalid_argument("\"" + operation +
                              "\" cannot be refused; CheckPass and CheckClpass can.");
}

bool Service::CheckPass(const std::string& right) {
  return passwords_.ask(PasswordKind::right, right);
}

bool Service::CheckClpass(const std::string& client) {
  return passwords_.ask(PasswordKind::client, client);
}

// --- dates and formats --------------------------------------------------------------------------

std::string Service::date_prob_handle(const std::string& date) const {
  return normalisedDate(date);
}

std::string Service::convertdate(const std::string& date) const { return normalisedDate(date); }

std::string Service::formatgen(double number, const std::string& format) const {
  return formatNumber(number, format);
}

std::string Service::formatgen(const std::string& text, const std::string& format) const {
  if (isNumberFormat(format)) return formatNumber(std::strtod(text.c_str(), nullptr), format);
  const std::optional<Date> date = readDate(text);
  return date ? formatDate(*date, format) : text;
}

// --- windows ------------------------------------------------------------------------------------

void Service::resize_for_resolution(Form& form) { form.size = comfortableSize(frontEnd_.screen()); }

// A control takes its size from its form's arrangement.
void Service::Resize_For_ResolutionUC(Control&) {}

double Service::vScreenRatX() const {
  return static_cast<double>(frontEnd_.screen().width) / designScreen.width;
}
double Service::vScreenRatY() const {
  return static_cast<double>(frontEnd_.screen().height) / designScreen.height;
}
double Service::vScreenRatFS() const { return fontRatio(frontEnd_.screen()); }

}  // namespace quillet::suite
