#include "suite/client_register.h"

#include "books/clients.h"
#include "data/names.h"
#include "data/text.h"
#include "data/transaction.h"
#include "suite/format.h"
#include "suite/passwords.h"
#include "suite/schema.h"

namespace quillet::suite {
namespace {

// What a text field is called in messages and how many characters its column takes.
struct TextField {
  const char* label;
  ClientRefused::Field field;
  std::size_t most;
};

constexpr TextField textFields[] = {{"code", &Client::code, 20},
                                    {"name", &Client::name, 100},
                                    {"first name", &Client::first, 100},
                                    {"middle name", &Client::middle, 100},
                                    {"last name", &Client::last, 100},
                                    {"status", &Client::status, 100},
                                    {"father's or husband's name", &Client::father, 100},
                                    {"address", &Client::address, 250},
                                    {"group code", &Client::groupCode, 20},
                                    {"group name", &Client::groupName, 100},
                                    {"company name", &Client::company, 100}};

// Where a client's code stands besides the books of its years.
struct CodeColumn {
  const char* table;
  const char* column;
  const char* condition = "";
};

constexpr CodeColumn codeColumns[] = {{"Main_Info1", "code_no"},
                                      {"owner1", "code"},
                                      {"TempClTbl", "CodeNo"},
                                      {"AllGrp_Map", "Code_No"},
                                      {"RmSchSetup", "Code_No"},
                                      {"SuiteMisc", "Client"},
                                      {"SuitePassword", "Code", " and Kind='client'"}};

// Used instead of a client's code in data that applies to all clients.
constexpr const char* commonCode = "#?#COMMON#?#";

[[noreturn]] void refuse(ClientRefused::Field field, const std::string& what) {
  throw ClientRefused(field, what);
}

Client cleanedClient(Client client) {
  for (std::string* text :
       {&client.code, &client.name, &client.first, &client.middle, &client.last, &client.status,
        &client.father, &client.groupCode, &client.groupName, &client.company}) {
    *text = cleanedName(*text);
  }
  for (std::string* text : {&client.born, &client.address}) *text = std::string(trimmed(*text));
  return client;
}

void validateTexts(const Client& client) {
  for (const auto& [label, field, most] : textFields) {
    const std::string& text = client.*field;
    if (!isUtf8(text)) refuse(field, std::string("The ") + label + " is not valid UTF-8.");
    if (const std::size_t length = lengthOf(text); length > most) {
      refuse(field, std::string("The ") + label + " is longer than " + std::to_string(most) +
                        " characters: it has " + std::to_string(length) + ". Please shorten it.");
    }
  }
}

template <class Executor>
std::string quoted(const Executor& executor, const std::string& text) {
  return '\'' + executor.escape(text) + '\'';
}

// `except` is the code of the client that is altered.
void validateCode(UnitOfWork& unit, const Client& client, const std::string& except) {
  if (client.code.empty()) {
    refuse(&Client::code, "A client needs a code. Please type one, such as A1.");
  }
  for (const ClientRefused::Field field : {&Client::code, &Client::groupCode}) {
    if (equalIgnoringCase(client.*field, commonCode)) {
      refuse(field, "The code " + client.*field +
                        " marks what all clients have in common; choose another.");
    }
  }
  const RecordsetPtr same =
      unit.query("select code_no from Main_Info1 where code_no=" + quoted(unit, client.code) +
                 (except.empty() ? "" : " and code_no<>" + quoted(unit, except)) + " limit 1");
  if (same->EOF_()) return;
  const std::string code = same->text(0);
  const std::optional<Client> other = findClient(unit, code);
  refuse(&Client::code, "There is a client with the code " + client.code + " already" +
                            (code == client.code ? "" : ": " + code) +
                            (other ? ", " + other->displayName() : "") +
                            ". Please choose another code; capitals and small letters are the same"
                            " in it.");
}

void validate(UnitOfWork& unit, const Client& client, const std::string& except = {}) {
  validateTexts(client);
  validateCode(unit, client, except);
  if (client.displayName().empty()) {
    refuse(&Client::name, "Client " + client.code + " needs a name. Please type it.");
  }
  if (!client.born.empty() && !readDate(client.born)) {
    refuse(&Client::born, '"' + client.born + "\" is no date. Please correct it or leave it out.");
  }
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

// All but code and password, into the register and the list.
void writeFields(UnitOfWork& unit, const Client& client) {
  const auto text = [&](const std::string& value) { return quoted(unit, value); };
  const std::string code = text(client.code);
  const std::optional<Date> born = readDate(client.born);
  unit.execute("update Main_Info1 set nm=" + text(client.isPerson() ? "" : client.name) +
               ",status=" + text(client.status) + ",father=" + text(client.father) +
               ",born=" + (born ? text(formatDate(*born, "YYYY-MM-DD")) : "null") +
               ",address=" + text(client.address) + ",group_code=" + text(client.groupCode) +
               ",group_name=" + text(client.groupName) + ",company=" + text(client.company) +
               " where code_no=" + code);
  unit.execute("delete from owner1 where code=" + code);
  if (client.isPerson()) {
    unit.execute("insert into owner1(code,f_nm,m_nm,l_nm) values(" + code + ',' +
                 text(client.first) + ',' + text(client.middle) + ',' + text(client.last) + ')');
  }
  unit.execute("delete from TempClTbl where CodeNo=" + code);
  unit.execute(std::string(intoClientList) + clientListRows + " where code_no=" + code);
}

void mustExist(UnitOfWork& unit, const std::string& code) {
  if (findClient(unit, code)) return;
  refuse(&Client::code, goneClientText(code, codeSince(unit, code)));
}

void refuseWithBooks(UnitOfWork& unit, const std::string& code, const std::string& what,
                     long tableCount) {
  const std::string books = booksOf(unit, code, tableCount).text();
  if (!books.empty()) refuse(&Client::code, what + ' ' + books);
}

}  // namespace

std::string Client::displayName() const {
  if (!isPerson()) return name;
  std::string joined;
  for (const std::string* part : {&first, &middle, &last}) {
    if (!part->empty()) joined += (joined.empty() ? "" : " ") + *part;
  }
  return joined;
}

std::optional<Client> findClient(UnitOfWork& unit, const std::string& code) {
  const RecordsetPtr row = unit.query(
      "select code_no,ifnull(nm,''),ifnull(f_nm,''),ifnull(m_nm,''),ifnull(l_nm,''),"
      "ifnull(status,''),ifnull(father,''),ifnull(date_format(born,'%d/%m/%Y'),''),"
      "ifnull(address,''),group_code,ifnull(group_name,''),ifnull(company,'')"
      " from Main_Info1 left join owner1 on owner1.code=Main_Info1.code_no where code_no=" +
      quoted(unit, code) + " limit 1");
  if (row->EOF_()) return std::nullopt;
  Client client;
  int column = 0;
  for (std::string* text : {&client.code, &client.name, &client.first, &client.middle, &client.last,
                            &client.status, &client.father, &client.born, &client.address,
                            &client.groupCode, &client.groupName, &client.company}) {
    *text = row->text(column++);
  }
  return client;
}

// A row keeps its id whatever code it is given.
std::string codeSince(UnitOfWork& unit, const std::string& formerCode) {
  if (!unit.keepsHistory()) return {};
  const RecordsetPtr row = unit.query(
      "select ifnull(n.code_no,'') from Main_Info1 for system_time all as e left join Main_Info1 as"
      " n on n.row_id=e.row_id where e.code_no=" +
      quoted(unit, formerCode) + " order by e.row_till desc limit 1");
  return row->EOF_() ? std::string() : row->text(0);
}

void addClient(UnitOfWork& unit, const Client& given) {
  const Client client = cleanedClient(given);
  validate(unit, client);
  Transaction transaction(unit);  // a client is never without its password
  unit.execute("insert into Main_Info1(code_no) values(" + quoted(unit, client.code) + ')');
  writeFields(unit, client);
  if (!client.password.empty()) {
    Passwords::set(unit, PasswordKind::client, client.code, client.password);
  }
  transaction.commit();
}

void addClient(Database& database, const Client& client) {
  UnitOfWork unit(database);
  addClient(unit, client);
}

void alterClient(UnitOfWork& unit, const std::string& code, const Client& given,
                 const std::optional<std::string>& password, long tableCount) {
  const Client client = cleanedClient(given);
  validate(unit, client, code);
  mustExist(unit, code);
  const bool renamed = client.code != code;
  if (renamed) refuseWithBooks(unit, code, "The code cannot be altered.", tableCount);
  Transaction transaction(unit);
  if (renamed) {
    for (const auto& [table, column, condition] : codeColumns) {
      unit.execute(std::string("update ") + table + " set " + column + '=' +
                   quoted(unit, client.code) + " where " + column + '=' + quoted(unit, code) +
                   condition);
    }
  }
  writeFields(unit, client);
  if (password) Passwords::set(unit, PasswordKind::client, client.code, *password);
  transaction.commit();
}

void removeClient(UnitOfWork& unit, const std::string& code, long tableCount) {
  mustExist(unit, code);
  refuseWithBooks(unit, code, "The client cannot be deleted.", tableCount);
  Transaction transaction(unit);
  for (const auto& [table, column, condition] : codeColumns) {
    unit.execute(std::string("delete from ") + table + " where " + column + '=' +
                 quoted(unit, code) + condition);
  }
  transaction.commit();
}

// --- what hangs on a client ---------------------------------------------------------------------

ClientBooks booksOf(UnitOfWork& unit, const std::string& code, long tableCount) {
  ClientBooks books;
  const std::string ofClient = " where code_no=" + quoted(unit, code);
  const auto collect = [&](const std::string& select, std::vector<std::string>& into) {
    const RecordsetPtr rows = unit.query(select);
    for (; !rows->EOF_(); rows->MoveNext()) into.push_back(rows->text(0));
  };
  collect("select distinct concat(right(f_yr,4),'-',right(s_yr,4)) from master" + ofClient +
              " order by 1",
          books.years);
  for (long number = 1; number <= tableCount && books.years.empty(); ++number) {
    std::string select;
    for (const char* prefix : {"TAB_", "JRNL_", "TRADE_", "RMGRP_"}) {
      const std::string table = prefix + tableSuffix(number);
      select += (select.empty() ? "" : " union all ") + ("(select '" + table + "' from ") + table +
                ofClient + " limit 1)";
    }
    collect(select, books.tables);
  }
  return books;
}

std::string ClientBooks::text() const {
  const auto joined = [](const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
    return text;
  };
  if (!years.empty()) {
    return "It has the trial balance" + std::string(years.size() > 1 ? "s" : "") + " of " +
           joined(years) + ". Delete " + (years.size() > 1 ? "those" : "that") +
           " first, with \"Delete Trial Balance\".";
  }
  if (tables.empty()) return {};
  return "Lines of it stand in " + joined(tables) +
         ", though no year is registered. \"Check the Books\" tells more.";
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
