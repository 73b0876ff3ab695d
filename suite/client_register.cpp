#include "suite/client_register.h"

#include <stdexcept>

#include "data/names.h"
#include "data/text.h"
#include "suite/format.h"
#include "suite/passwords.h"
#include "suite/transaction.h"

namespace quillet::suite {
namespace {

// What a text field is called in messages, what it holds, how many characters its column takes.
struct Field {
  const char* label;
  const std::string* text;
  std::size_t most;
};

std::vector<Field> fieldsOf(const Client& client) {
  return {{"code", &client.code, 20},
          {"name", &client.name, 100},
          {"first name", &client.first, 100},
          {"middle name", &client.middle, 100},
          {"last name", &client.last, 100},
          {"status", &client.status, 100},
          {"father's or husband's name", &client.father, 100},
          {"address", &client.address, 250},
          {"group code", &client.groupCode, 20},
          {"group name", &client.groupName, 100},
          {"company name", &client.company, 100}};
}

// Used instead of a client's code in data that applies to all clients.
constexpr const char* commonCode = "#?#COMMON#?#";

[[noreturn]] void refuse(const std::string& what) { throw std::runtime_error(what); }

Client cleanedClient(Client client) {
  for (std::string* text :
       {&client.code, &client.name, &client.first, &client.middle, &client.last, &client.status,
        &client.father, &client.groupCode, &client.groupName, &client.company}) {
    *text = cleanedName(*text);
  }
  for (std::string* text : {&client.born, &client.address}) *text = std::string(trimmed(*text));
  return client;
}

void validate(Database& database, const Client& client) {
  for (const Field& field : fieldsOf(client)) {
    if (!isUtf8(*field.text)) refuse(std::string("The ") + field.label + " is not valid UTF-8.");
    if (lengthOf(*field.text) > field.most) {
      refuse(std::string("The ") + field.label + " is longer than " + std::to_string(field.most) +
             " characters.");
    }
  }
  if (client.code.empty()) refuse("A client needs a code.");
  for (const std::string& code : {client.code, client.groupCode}) {
    if (equalIgnoringCase(code, commonCode)) {
      refuse("The code " + code + " marks what all clients have in common; choose another.");
    }
  }
  if (client.displayName().empty()) refuse("Client " + client.code + " needs a name.");
  if (!client.born.empty() && !readDate(client.born)) {
    refuse("\"" + client.born + "\" is no date.");
  }
  const RecordsetPtr same = database.query("select code_no from Main_Info1 where code_no='" +
                                           database.escape(client.code) + "' limit 1");
  if (same->EOF_()) return;
  const std::string code = same->text(0);
  refuse("There is a client with the code " + client.code + " already" +
         (sameName(code, client.code) ? "." : ": " + code + "."));
}

std::string quoted(const Database& database, const std::string& text) {
  return '\'' + database.escape(text) + '\'';
}

// The display name of each client: a company's name, or a person's parts.
constexpr const char* clientListRows =
    "select code_no,"
    " if(owner1.code is null, ifnull(nm,''), concat_ws(' ', nullif(trim(ifnull(f_nm,'')),''),"
    " nullif(trim(ifnull(m_nm,'')),''), nullif(trim(ifnull(l_nm,'')),''))),"
    " status, father, ifnull(date_format(born,'%d/%m/%Y'),''), address, group_code, group_name,"
    " company from Main_Info1 left join owner1 on owner1.code=Main_Info1.code_no";
constexpr const char* intoClientList =
    "insert into TempClTbl(CodeNo,Name,Status,Father,Born,Address,GroupCode,GroupName,Company) ";

}  // namespace

std::string Client::displayName() const {
  if (!isPerson()) return name;
  std::string joined;
  for (const std::string* part : {&first, &middle, &last}) {
    if (!part->empty()) joined += (joined.empty() ? "" : " ") + *part;
  }
  return joined;
}

void addClient(Database& database, const Client& given) {
  const Client client = cleanedClient(given);
  validate(database, client);
  const auto text = [&](const std::string& value) { return quoted(database, value); };
  const std::optional<Date> born = readDate(client.born);
  Transaction transaction(database);  // a client is never without its password
  database.execute(
      "insert into Main_Info1"
      "(code_no,nm,status,father,born,address,group_code,group_name,company) values(" +
      text(client.code) + ',' + text(client.isPerson() ? "" : client.name) + ',' +
      text(client.status) + ',' + text(client.father) + ',' +
      (born ? text(formatDate(*born, "YYYY-MM-DD")) : "null") + ',' + text(client.address) + ',' +
      text(client.groupCode) + ',' + text(client.groupName) + ',' + text(client.company) + ')');
  if (client.isPerson()) {
    database.execute("insert into owner1(code,f_nm,m_nm,l_nm) values(" + text(client.code) + ',' +
                     text(client.first) + ',' + text(client.middle) + ',' + text(client.last) +
                     ')');
  }
  database.execute(std::string(intoClientList) + clientListRows +
                   " where code_no=" + text(client.code));
  if (!client.password.empty()) {
    Passwords::set(database, PasswordKind::client, client.code, client.password);
  }
  transaction.commit();
}

void completeClientList(Database& database) {
  if (database.query("select (select count(*) from Main_Info1)=(select count(*) from TempClTbl)")
          ->integer(0) == 1) {
    return;
  }
  database.execute("delete from TempClTbl");
  database.execute(std::string(intoClientList) + clientListRows);
}

}  // namespace quillet::suite
