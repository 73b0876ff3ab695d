#include "suite/history/change_texts.h"

#include "books/amount.h"

namespace quillet::suite {
namespace {

using Of = Change::Of;

const char* nameOf(Of of) {
  switch (of) {
    case Of::year:
      return "Year";
    case Of::line:
      return "Line";
    case Of::voucher:
      return "Voucher";
    case Of::stock:
      return "Closing stock";
    case Of::binding:
      return "Binding";
    case Of::ledger:
      return "Ledger";
    case Of::group:
      return "Group";
    case Of::mapping:
      return "Mapping";
    case Of::head:
      return "Binding head";
  }
  return "";
}

std::string subjectOfChange(const Change& change) {
  const BookRow& row = change.any();
  if (change.of == Of::voucher) {
    return "Voucher " + std::to_string(row.voucher) + " of " + row.date;
  }
  // A mapping without a client is everybody's.
  if (change.of == Of::mapping && !row.date.empty()) return "Mapping of client " + row.date;
  return nameOf(change.of);
}

void addTo(std::string& text, const std::string& part) {
  if (!part.empty()) text += (text.empty() ? "" : "; ") + part;
}

std::string remarkOn(const Change& change, const ActNote& act) {
  std::string remark;
  if (act.takenBackBy != 0) addTo(remark, "Taken back on " + localTime(act.takenBackBy));
  if (act.takesBack != 0) addTo(remark, "Takes back the act of " + localTime(act.takesBack));
  addTo(remark, act.reason);
  if (change.of != Of::voucher) return remark;
  const auto& [before, after] = change.rows;
  if (before && after && before->date != after->date) addTo(remark, "Date was " + before->date);
  addTo(remark, change.any().details);
  if (before && after && before->details != after->details) {
    addTo(remark, "Narration was \"" + before->details + '"');
  }
  return remark;
}

}  // namespace

std::string balanceText(const ServiceObject& host, Money balance, bool withSide) {
  std::string text = plainAmount(host, abs(balance));
  if (!withSide || balance.isZero()) return text;
  return text + (balance < Money() ? " CR" : " DR");
}

ChangeTexts textsOf(const ServiceObject& host, Changes& changes, const Change& change) {
  const ActNote& act = changes.acts.of(change.at);
  const auto& [before, after] = change.rows;
  const BookRow& row = change.any();
  ChangeTexts texts;
  texts.when = localTime(change.at);
  texts.person = act.person;
  texts.station = act.station;
  texts.command = act.command;
  texts.form = act.form;
  texts.what = change.what();
  texts.of = subjectOfChange(change);
  if (row.partId != 0) texts.ledger = changes.names.ledger(row.partId, change.at);
  if (row.allId != 0) texts.group = changes.names.group(row.allId, change.at);
  if (before && after && before->allId != after->allId) {
    texts.oldGroup = changes.names.group(before->allId, change.at);
  }
  const auto said = [&](const BookRow& of) {
    return change.hasAmounts() ? balanceText(host, of.balance, change.of != Of::stock) : of.details;
  };
  if (before) texts.before = said(*before);
  if (after) texts.after = said(*after);
  texts.remark = remarkOn(change, act);
  return texts;
}

}  // namespace quillet::suite
