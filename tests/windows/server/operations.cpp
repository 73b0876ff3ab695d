#include "server/operations.h"

#include <fstream>
#include <functional>
#include <map>
#include <type_traits>
#include <utility>

#include "data/errors.h"

namespace quillet::server {
namespace {

using suite::Practice;
using suite::Service;
using wire::Value;
using wire::Values;

constexpr const char* source = "Suite server";
// What a late-bound callee answers to a name that it does not know, and to missing arguments.
constexpr long unknownMember = 438;
constexpr long wrongArguments = 450;

// --- arguments and answers

class Arguments {
 public:
  explicit Arguments(const Values& asked) : values_(asked) {}
  std::size_t count() const { return values_.size() - 1; }
  const Value& operator[](std::size_t i) const {
    if (i >= count()) throw RunTimeError(wrongArguments, "An argument is missing.", source);
    return values_[i + 1];
  }
  template <class T>
  T as(std::size_t i) const {
    const Value& value = (*this)[i];
    if constexpr (std::is_same_v<T, std::string>) {
      return value.text;
    } else if constexpr (std::is_same_v<T, bool>) {
      return value.truth();
    } else {
      return static_cast<T>(value.number());
    }
  }

 private:
  const Values& values_;
};

using Operation = std::function<Values(Practice&, const Arguments&)>;

Values answer(const Value& value = {}) { return {"value", value}; }

Values answer(Recordset& rows) {
  Values list{"rows", static_cast<long>(rows.fieldCount())};
  for (int i = 0; i < rows.fieldCount(); ++i) list.emplace_back(rows.fieldName(i));
  for (int i = 0; i < rows.fieldCount(); ++i) list.emplace_back(rows.numeric(i));
  for (; !rows.EOF_(); rows.MoveNext()) {
    for (int i = 0; i < rows.fieldCount(); ++i) {
      const auto cell = rows.field(i);
      list.push_back(cell ? Value(*cell) : Value());
    }
  }
  return list;
}

template <class Result, class... Parameters, class Call, std::size_t... i>
Values called(const Call& call, const Arguments& given, std::index_sequence<i...>) {
  if constexpr (std::is_void_v<Result>) {
    call(given.as<std::decay_t<Parameters>>(i)...);
    return answer();
  } else {
    return answer(Value(call(given.as<std::decay_t<Parameters>>(i)...)));
  }
}

// --- operations that a member of the service object, or of an object that it gives, performs

ServiceObject& self(Practice& practice) { return practice.service(); }
Progress& objProgress(Practice& practice) { return practice.service().objProgress(); }
MainPage& mainPage(Practice& practice) { return practice.service().MainPageObj(); }
Help& help(Practice& practice) { return practice.service().ObjHelp(); }

template <class Result, class... Parameters, class Object, class Member>
Operation bound(Object& (*object)(Practice&), Member member) {
  return [object, member](Practice& practice, const Arguments& given) {
    const auto call = [&](auto&&... arguments) -> Result {
      return (object(practice).*member)(std::forward<decltype(arguments)>(arguments)...);
    };
    return called<Result, Parameters...>(call, given, std::index_sequence_for<Parameters...>());
  };
}

template <class Object, class Result, class... Parameters>
Operation by(Result (Object::*member)(Parameters...), Object& (*object)(Practice&) = self) {
  return bound<Result, Parameters...>(object, member);
}

template <class Object, class Result, class... Parameters>
Operation by(Result (Object::*member)(Parameters...) const, Object& (*object)(Practice&) = self) {
  return bound<Result, Parameters...>(object, member);
}

// --- operations that need a hand

// Statements go where the service object sends them; here they come as text, which its own
// operation does not take.
Values conQuery(Practice& practice, const Arguments& given) {
  const std::string sql = given.as<std::string>(0);
  practice.service().executedElsewhere(sql);
  practice.service().statements().execute(sql);
  return answer();
}

Values recordsetQuery(Practice& practice, const Arguments& given) {
  if (given.count() < 5 || given.count() > 6) {
    throw RunTimeError(wrongArguments, "RecordsetQuery takes five arguments or six.", source);
  }
  return answer(*practice.service().statements().query(given.as<std::string>(0)));
}

Values formatted(Practice& practice, const Arguments& given) {
  const auto format = given.as<std::string>(1);
  return given[0].kind == Value::Kind::number
             ? answer(practice.service().formatgen(given.as<double>(0), format))
             : answer(practice.service().formatgen(given.as<std::string>(0), format));
}

Values ledgerId(Practice& practice, const Arguments& given) {
  const bool create = given.count() < 2 || given.as<bool>(1);
  return answer(practice.service().GetMax_MastPartId(given.as<std::string>(0), create));
}

Values lastClient(Practice& practice, const Arguments& given) {
  if (given.count() == 0) return answer(practice.service().vLstSelClCode());
  practice.service().vLstSelClCode(given.as<std::string>(0));
  return answer();
}

// --- what a test asks

// Straight to the database: not recorded, not made to fail.
Values tables(Practice& practice, const Arguments& given) {
  return answer(*practice.database().query(given.as<std::string>(0)));
}

Values arrange(Practice& practice, const Arguments& given) {
  practice.database().execute(given.as<std::string>(0));
  practice.service().executedElsewhere(given.as<std::string>(0));
  return answer();
}

// One statement a line, those since the last call.
Values statements(Practice& practice, const Arguments&) {
  std::string lines;
  for (const std::string& sql : practice.service().statements().take()) lines += sql + '\n';
  return answer(lines);
}

Values failNext(Practice& practice, const Arguments& given) {
  practice.service().statements().failNext(given.as<std::string>(0));
  return answer();
}

Values errorLog(Practice& practice, const Arguments&) {
  std::ifstream stream(practice.folder().program() / "TalLog.log", std::ios::binary);
  return answer(std::string(std::istreambuf_iterator<char>(stream), {}));
}

using Host = ServiceObject;

const std::map<std::string, Operation>& operations() {
  static const std::map<std::string, Operation> all{
      {"CheckDllsVersion", by(&Host::CheckDllsVersion)},
      {"ConQuery", conQuery},
      {"RecordsetQuery", recordsetQuery},
      {"TruncVarSQL", by(&Host::TruncVarSQL)},
      {"GETTBNAME", by(&Host::GETTBNAME)},
      {"GetTbCount", by(&Host::GetTbCount)},
      {"COMPANY_NAME", by(&Host::COMPANY_NAME)},
      {"ExePath", by(&Host::ExePath)},
      {"DocPath", by(&Host::DocPath)},
      {"GetSettingINI", by(&Host::GetSettingINI)},
      {"SaveSettingINI", by(&Host::SaveSettingINI)},
      {"GetMiscOthInf", by(&Host::GetMiscOthInf)},
      {"SetMiscOthInf", by(&Host::SetMiscOthInf)},
      {"CheckPass", by(&Host::CheckPass)},
      {"CheckClpass", by(&Host::CheckClpass)},
      {"date_prob_handle", by(&Host::date_prob_handle)},
      {"convertdate", by(&Host::convertdate)},
      {"vScreenRatX", by(&Host::vScreenRatX)},
      {"vScreenRatY", by(&Host::vScreenRatY)},
      {"vScreenRatFS", by(&Host::vScreenRatFS)},
      {"progress", by(&Host::progress)},
      {"objProgress.Text1", by(&Progress::Text1, objProgress)},
      {"objProgress.Max", by(&Progress::Max, objProgress)},
      {"objProgress.update_pg", by(&Progress::update_pg, objProgress)},
      {"formatgen", formatted},
      {"MainPageObj.showClient", by(&MainPage::showClient, mainPage)},
      {"ObjHelp.Show", by(&Help::Show, help)},
      {"helpid", by(&Host::helpid)},
      {"vLstSelClCode", lastClient},
      {"GetPart_MastPartId", by(&Host::GetPart_MastPartId)},
      {"GetMax_MastPartId", ledgerId},
      {"test.Rows", tables},
      {"test.Execute", arrange},
      {"test.Statements", statements},
      {"test.Fail", failNext},
      {"test.Log", errorLog},
  };
  return all;
}

Values failed(long number, const std::string& description, const std::string& from) {
  return {wire::error, number, description, from};
}

}  // namespace

Values perform(Practice& practice, const Values& asked) noexcept {
  try {
    const std::string name = asked.empty() ? std::string() : asked.front().text;
    const auto found = operations().find(name);
    if (found == operations().end()) {
      return failed(unknownMember, "There is no operation \"" + name + "\".", source);
    }
    return found->second(practice, Arguments(asked));
  } catch (const RunTimeError& error) {
    return failed(error.number(), error.what(), error.source());
  } catch (const std::exception& error) {
    return failed(5, error.what(), source);
  }
}

}  // namespace quillet::server
