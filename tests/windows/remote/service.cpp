#include "remote/service.h"

#include <algorithm>
#include <cctype>
#include <optional>

#include "data/text.h"
#include "fakes/recordset.h"
#include "remote/suite_line.h"

namespace quillet::fakes {
namespace {

using windows::asText;
using wire::Value;
using wire::Values;

// "2009-03-31", and nothing else that a cell holds.
std::optional<DATE> dateIn(const std::string& text) {
  if (text.size() != 10) return std::nullopt;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool right =
        i == 4 || i == 7 ? text[i] == '-' : std::isdigit(static_cast<unsigned char>(text[i])) != 0;
    if (!right) return std::nullopt;
  }
  const auto part = [&](std::size_t from, std::size_t count) {
    return static_cast<WORD>(std::stoi(text.substr(from, count)));
  };
  SYSTEMTIME day{};
  day.wYear = part(0, 4);
  day.wMonth = part(5, 2);
  day.wDay = part(8, 2);
  DATE date = 0;
  return SystemTimeToVariantTime(&day, &date) ? std::optional(date) : std::nullopt;
}

Variant number(const Value& value) {
  const bool whole = value.text.size() < 10 && value.text.find_first_of(".e") == std::string::npos;
  return whole ? Variant(static_cast<long>(value.number())) : Variant(value.number());
}

// A cell of the type that the platform's database component gives it.
Variant cell(const Value& value, bool numeric) {
  if (value.kind == Value::Kind::nothing) return Variant::null();
  if (numeric) return number(value);
  if (const auto date = dateIn(value.text)) {
    Variant day;
    day.vt = VT_DATE;
    day.date = *date;
    return day;
  }
  return Variant(value.text);
}

Pointer<IDispatch> recordsetOf(const Values& values) {
  const auto columns = static_cast<std::size_t>(values.at(0).number());
  std::vector<std::string> names;
  for (std::size_t i = 0; i < columns; ++i) names.push_back(values.at(1 + i).text);
  std::vector<Row> rows;
  for (std::size_t at = 1 + 2 * columns; at + columns <= values.size(); at += columns) {
    Row& row = rows.emplace_back();
    for (std::size_t i = 0; i < columns; ++i) {
      row.push_back(cell(values[at + i], values[1 + columns + i].truth()));
    }
  }
  return recordset(std::move(names), std::move(rows));
}

Value sent(const VARIANT& given) {
  if (windows::isNull(given)) return {};
  const Variant value = Variant::copyOf(given);
  switch (value.vt) {
    case VT_DISPATCH:
      return {};
    case VT_BOOL:
      return windows::asTruth(value);
    case VT_BSTR:
      return asText(value);
    default:
      return windows::asNumber(value);
  }
}

// A folder as this side names it: the other side's root is the drive Z.
std::string windowsPath(std::string path) {
  std::replace(path.begin(), path.end(), '/', '\\');
  return "Z:" + path;
}

Variant received(const std::string& member, const Answer& answer) {
  if (answer.rows) return Variant(recordsetOf(answer.values));
  const Value& value = answer.values.at(0);
  switch (value.kind) {
    case Value::Kind::nothing:
      return {};
    case Value::Kind::truth:
      return Variant(value.truth());
    case Value::Kind::number:
      return number(value);
    case Value::Kind::text:
      break;
  }
  return Variant(member == "ExePath" || member == "DocPath" ? windowsPath(value.text) : value.text);
}

// Each member is one of the suite's operations, whose name may have something in front there.
class Forwarding : public MemberTable {
 public:
  Forwarding(const std::string& prefix, std::initializer_list<const char*> members) {
    for (const char* member : members) {
      add(member, [operation = prefix + member](const Call& call) {
        Values question{operation};
        for (const VARIANT* argument : call.arguments) question.push_back(sent(*argument));
        return received(call.member, ask(question));
      });
    }
  }
};

Variant object(const Pointer<IDispatch>& given) { return Variant(given); }

}  // namespace

Pointer<IDispatch> makeService() {
  auto* const service =
      new Forwarding("", {"CheckDllsVersion",   "ConQuery",         "RecordsetQuery",
                          "TruncVarSQL",        "GETTBNAME",        "GetTbCount",
                          "COMPANY_NAME",       "ExePath",          "DocPath",
                          "GetSettingINI",      "SaveSettingINI",   "CheckPass",
                          "CheckClpass",        "date_prob_handle", "convertdate",
                          "vScreenRatX",        "vScreenRatY",      "vScreenRatFS",
                          "progress",           "formatgen",        "helpid",
                          "GetMiscOthInf",      "SetMiscOthInf",    "vLstSelClCode",
                          "GetPart_MastPartId", "GetMax_MastPartId"});
  const auto have = [service](const char* name, Pointer<IDispatch> given) {
    service->add(name, [given = std::move(given)](const Call&) { return object(given); });
  };
  have("DbObj", made<MemberTable>());
  have("objProgress", made<Forwarding>("objProgress.", std::initializer_list<const char*>{
                                                           "Text1", "Max", "update_pg"}));
  have("MainPageObj",
       made<Forwarding>("MainPageObj.", std::initializer_list<const char*>{"showClient"}));
  have("ObjHelp", made<Forwarding>("ObjHelp.", std::initializer_list<const char*>{"Show"}));
  // The suite's own dialogs, popup and sizes of windows: there is nobody to show them to.
  for (const char* member : {"resize_for_resolution", "Resize_For_ResolutionUC",
                             "ShowClListSelection", "ShowClListSetup"}) {
    service->add(member, [](const Call&) { return Variant(); });
  }
  return Pointer<IDispatch>::attach(service);
}

Pointer<IDispatch> makePractice() {
  return made<Forwarding>(
      "test.", std::initializer_list<const char*>{"Rows", "Execute", "Statements", "Fail", "Log"});
}

}  // namespace quillet::fakes
