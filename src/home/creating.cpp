// The home form creates a year: its dates, its table, its row in the registry, and what it takes
// over from the year before.
#include "books/posting.h"
#include "books/registry.h"
#include "books/year_rules.h"
#include "data/dates.h"
#include "data/sql.h"
#include "data/year.h"
#include "home/third.h"
#include "host/rights.h"
#include "ports/busy.h"

namespace quillet {
// --- the dates ----------------------------------------------------------------------------------

void third::MASKEDBOX1_KEYPRESS(Key& key) {
  trap("MASKEDBOX1_KEYPRESS", [&] {
    if (key != keys::Enter) return;
    key = keys::none;
    if (isDate(MaskEdBox1.text())) {
      focus(MaskEdBox2);
    } else {
      context_.MsgBox("Invalid date.", Buttons::OK, Icon::information);
    }
  });
}

void third::MASKEDBOX2_GOTFOCUS() {
  trap("MASKEDBOX2_GOTFOCUS", [&] {
    const std::string proposed = proposedSecondDate(MaskEdBox1.text());
    if (proposed.empty()) return;
    MaskEdBox2.setText(proposed);
    MaskEdBox2.setCaret(0);
  });
}

bool third::datesHold() {
  const std::string first = MaskEdBox1.text();
  const std::string second = MaskEdBox2.text();
  YearFault fault = yearFault(first, second);
  if (fault == YearFault::none && COMP_DT(first, second) >= 0) fault = YearFault::wrongOrder;
  if (fault == YearFault::none) return true;
  const YearRefusal& refusal = refusalOf(fault);
  context_.MsgBox(refusal.text, Buttons::OK, refusal.icon);
  // First, since entering the second box proposes a date there.
  if (refusal.resetsFirst || refusal.resetsSecond) {
    focus(refusal.resetsFirst ? MaskEdBox1 : MaskEdBox2);
  }
  if (refusal.resetsFirst) MaskEdBox1.setText(emptyFirstDate);
  if (refusal.resetsSecond) MaskEdBox2.setText(emptySecondDate);
  return false;
}

int third::COMP_DT(const std::string& first, const std::string& second) {
  int order = 0;
  trap("COMP_DT", [&] { order = compareDates(first, second); });
  return order;
}

void third::MASKEDBOX2_KEYPRESS(Key& key) {
  trap("MASKEDBOX2_KEYPRESS", [&] {
    if (key != keys::Enter) return;
    key = keys::none;
    if (datesHold()) beginYear();
  });
}

void third::beginYear() {
  newYear_ = {};
  newYear_.firstDate = MaskEdBox1.text();
  newYear_.secondDate = MaskEdBox2.text();
  newYear_.firstKey = firstDateKey(yearOf(newYear_.firstDate));
  newYear_.secondKey = secondDateKey(yearOf(newYear_.secondDate));
  const auto existing = findYear();
  if (!existing->EOF_()) {
    if (!mayOverwrite()) return;
    // Nothing is deleted for a merge of which nothing would come.
    if (mode_ == "merge" && !anyOtherOfYear(*selectOthersOfYear())) return;
    overwrite(*existing);
  } else if (mode_ == "merge") {
    listSources();
  } else if (mode_ == "create" && registerNewYear()) {
    fillYear();
  }
}

RecordsetPtr third::findYear() {
  return context_.query("SELECT * FROM master where code_no='" + client() + "' and s_yr='" +
                        context_.host->escaped(newYear_.secondKey) + "' and f_yr='" +
                        context_.host->escaped(newYear_.firstKey) + "'");
}

// --- over an existing year ----------------------------------------------------------------------

bool third::mayOverwrite() {
  if (mode_ == "merge") {
    return context_.MsgBox("Do you want to overwrite previously saved data?", Buttons::YesNoCancel,
                           Icon::question, Answer::No) == Answer::Yes;
  }
  if (mode_ == "create") {
    return context_.host->CheckPass(right::overwrite) &&
           context_.MsgBox(
               "Duplicate date is not allowed !\r\n\r\n"
               "Do you want to overwrite previously saved data ?",
               Buttons::YesNo, Icon::question, Answer::No) == Answer::Yes;
  }
  context_.MsgBox("Duplicate date is not allowed.", Buttons::OK, Icon::information, Answer::OK,
                  "Warning");
  return false;
}

void third::overwrite(Recordset& existing) {
  takeRow(existing);
  openDeletion(existing, [this] {
    trap("MASKEDBOX2_KEYPRESS", [&] {
      // Asked anew: while the form was open somebody else may have removed the row as well.
      const auto left = findYear();
      newYear_.registered = !left->EOF_();
      if (newYear_.registered) takeRow(*left);
      registerYear();
      fillYear();
    });
  });
}

void third::takeRow(Recordset& row) {
  newYear_.table = row.text("tbl_nm");
  newYear_.count = row.integer("Count");
  newYear_.keptDates = {row.text("f_year_dt"), row.text("s_year_dt")};
}

// --- table and registry -------------------------------------------------------------------------

bool third::GETTABLE() {
  bool found = false;
  trap("GETTABLE", [&] {
    const Registry registry(*context_.host);
    const auto free = registry.freeNumber(clientCode_);
    newYear_.count = free.value_or(0);
    newYear_.table = free ? registry.tableOfNumber(*free) : "";
    newYear_.registered = false;
    context_.table = newYear_.table;
    found = !context_.table.empty();
    if (!found) {
      context_.forgetYear();
      context_.MsgBox("No blank database available. Delete one or more years database.");
    }
  });
  return found;
}

std::optional<std::string> third::GETTABLE1(const std::string& firstKey,
                                            const std::string& secondKey) {
  std::optional<std::string> table;
  trap("GETTABLE1", [&] {
    table = Registry(*context_.host).tableOf(clientCode_, {firstKey, secondKey});
  });
  return table;
}

void third::registerYear() {
  orSay("The trial balance of " + newYear_.text() +
            " was not created in full. Enter begins it again.",
        [&] { writeRegistryRow(); });
}

void third::writeRegistryRow() {
  const auto& year = newYear_;
  ServiceObject& host = *context_.host;
  const std::string first = host.date_prob_handle(year.firstDate);
  const std::string second = host.date_prob_handle(year.secondDate);
  const bool kept = year.registered;
  if (!kept) {
    host.ConQuery(
        "insert into master(code_no,f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr) values('" +
        client() + "'," + host.quoted(first) + "," + host.quoted(second) + "," +
        host.quoted(year.table) + "," + sqlNumber(year.count) + "," + host.quoted(year.firstKey) +
        "," + host.quoted(year.secondKey) + ")");
    newYear_.registered = true;
  }
  selectNewYear();
  if (!kept) {
    host.ConQuery(flushTables);
  } else if (first != year.keptDates[0] || second != year.keptDates[1]) {
    // The row stays, with the annexure that still hangs on it; only its dates are new.
    context_.change("update master set f_year_dt=" + host.quoted(first) +
                    ",s_year_dt=" + host.quoted(second) + " where count=" + sqlNumber(year.count) +
                    " and code_no='" + client() + "'");
  }
}

void third::selectNewYear() {
  context_.setYear({clientCode_, newYear_.table, newYear_.firstKey, newYear_.secondKey});
}

// Under a number of its own. The context has the new year whole or, when there is no row of it, the
// one that it had.
bool third::registerNewYear() {
  const Context::Year before = context_.year();
  if (!GETTABLE()) return false;
  closeEditorOf(newYear_.table);  // it shows a year that somebody deleted
  try {
    registerYear();
  } catch (...) {
    if (!newYear_.registered) context_.setYear(before);
    throw;
  }
  return true;
}

void third::fillYear() {
  if (mode_ == "merge") {
    listSources();
    return;
  }
  const std::string created = "Trial balance of " + newYear_.text() + " created";
  const std::string partly = created + ", but the previous year was not taken over in full.";
  status(created + ".");
  bool taken = false;
  orSay(partly, [&] { taken = offerPreviousYear(); });
  if (!taken) {
    status(partly);
    return;
  }
  finishYear();
  status(created + ".");
}

void third::finishYear() {
  loadYears();
  flexgrid2.setCurrent(flexgrid2.find(1, shownDate(newYear_.secondKey)));
}

// --- the year before ----------------------------------------------------------------------------

bool third::offerPreviousYear() {
  const auto years = Registry(*context_.host).yearsOf(clientCode_);
  const RegisteredYear* previous = latestBefore(years, newYear_.secondKey);
  if (!previous) {
    context_.MsgBox("No previous years available.", Buttons::OK, Icon::information);
    return true;
  }
  const Answer answer = context_.MsgBox("Do you want to load previous year particulars.",
                                        Buttons::YesNo, Icon::question, Answer::Yes);
  return answer != Answer::Yes || DATA_TRANSFER(previous->table);
}

bool third::DATA_TRANSFER(const std::string& previousTable) {
  bool done = false;
  trap("DATA_TRANSFER", [&] {
    const bool figures = context_.MsgBox("Do you want to Import Figures also?", Buttons::YesNo,
                                         Icon::question, Answer::No) == Answer::Yes;
    settlePostings(*context_.host, context_.unposted);
    const Sql table = sqlName(newYear_.table);
    long srno = context_
                    .query("Select max(srno) as maxsrno from " + table + " Where Code_No='" +
                           client() + "'")
                    ->integer("maxsrno");
    const auto rows = context_.query("SELECT * FROM " + sqlName(previousTable) +
                                     " WHERE CODE_NO='" + client() + "' ORDER BY SrNo");
    const Busy busy(*context_.host, "Loading previous year....");
    Progress& progress = context_.host->objProgress();
    progress.Max(rows->RecordCount());
    const int code = rows->column("Code_No");
    const int partId = rows->column("PartId");
    const int allId = rows->column("AllId");
    const int amount = rows->column("Amt");
    const int nid = rows->column("nid");
    for (; !rows->EOF_(); rows->MoveNext()) {
      context_.host->ConQuery(
          "insert into " + table + "(srno,code_no,partid,allid,amt,nid) values(" +
          sqlNumber(++srno) + ",'" + context_.host->escaped(rows->text(code)) + "'," +
          sqlNumber(rows->integer(partId)) + "," + sqlNumber(rows->integer(allId)) + "," +
          sqlNumber(figures ? rows->number(amount) : 0.0) + "," + sqlNumber(rows->integer(nid)) +
          ")");
      progress.update_pg();
    }
    context_.host->ConQuery(flushTables);
    done = true;
  });
  return done;
}

}  // namespace quillet
