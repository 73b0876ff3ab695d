#include "books/two_years.h"

#include <utility>

#include "books/clients.h"
#include "books/trial_balance.h"
#include "data/table_names.h"

namespace quillet {

void TwoYears::setClient(const std::string& code, const std::string& name) {
  client_ = code;
  clientName_ = name;
}

void TwoYears::open(const ClientTable& books, const YearKeys& keys) {
  if (client_ != books.client) setClient(books.client, {});
  keys_ = keys;
  tables_[current] = books.table;
  tables_[previous].clear();
  gone_ = {};
}

void TwoYears::readRegisters() {
  if (!tables_[previous].empty()) return;
  if (clientName_.empty()) clientName_ = quillet::clientName(host_, client_);
  const Registry registry(host_);
  const auto before = registry.year(client_, keys(previous), YearSelect::editor);
  tables_[previous] =
      before ? registry.tableOfNumber(before->number) : std::string(trialBalancePrefix);
}

bool TwoYears::has(Year year) const {
  return !tables_[year].empty() && tables_[year] != trialBalancePrefix;
}

bool TwoYears::inView(Year year) const {
  return view_ == View::both || (view_ == View::previous) == (year == previous);
}

TwoYears::Lines TwoYears::read(const std::function<bool()>& offerImport) const {
  Lines lines;
  if (inView(current)) lines[current] = select(current);
  if (inView(current) && lines[current].empty() && has(previous) && offerImport) {
    lines[previous] = select(previous);
    if (!lines[previous].empty() && offerImport()) lines[current] = select(current);
    if (!inView(previous)) lines[previous].clear();
  } else if (inView(previous)) {
    lines[previous] = select(previous);
  }
  return lines;
}

std::vector<Line> TwoYears::select(Year year) const {
  return gone_[year] ? std::vector<Line>() : TrialBalance(host_, books(year)).lines();
}

void TwoYears::keep(Lines lines) {
  lines_ = std::move(lines);
  linesRead_ = true;
}

void TwoYears::forgetLines() {
  for (std::vector<Line>& lines : lines_) lines.clear();
  linesRead_ = false;
}

}  // namespace quillet
