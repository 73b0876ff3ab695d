#include "review/import_review.h"

#include <map>

#include "data/names.h"

namespace quillet {

using Kind = Difference::Kind;

// --- source and books ---------------------------------------------------------------------------

void ImportReview::open(SourceBook book, YearBooks books) {
  forget();
  book_ = std::move(book);
  books_ = std::move(books);
  names_ = books_->known.names();
  FoundColumns found = findColumns(book_, recall_);
  sheet_ = sheetOf(book_, found.mapping).value_or(0);
  mapping_ = std::move(found.mapping);
  doubts_ = std::move(found.doubts);
  readSheet();
}

void ImportReview::forget() {
  book_ = {};
  sheet_ = 0;
  books_.reset();
  mapping_ = {};
  doubts_.clear();
  choices_.clear();
  takenOut_.clear();
  asked_.clear();
  touched_ = false;
  shown_.clear();
  refusals_.clear();
  differences_.clear();
  rows_ = {};
  proposals_ = {};
}

void ImportReview::setBooks(YearBooks books) {
  books_ = std::move(books);
  names_ = books_->known.names();
  asked_.clear();
  readSheet();
}

const SourceSheet* ImportReview::sheet() const {
  return sheet_ < book_.sheets.size() ? &book_.sheets[sheet_] : nullptr;
}

std::string ImportReview::doubts() const {
  std::string text;
  for (const std::string& doubt : doubts_) text += (text.empty() ? "" : " ") + doubt;
  return text;
}

// --- how it is read -----------------------------------------------------------------------------

// Row numbers of another sheet mean other rows.
void ImportReview::chooseSheet(std::size_t index) {
  if (index >= book_.sheets.size()) return;
  sheet_ = index;
  choices_.clear();
  takenOut_.clear();
  FoundColumns found = findColumns(book_.sheets[index], recall_);
  mapping_ = std::move(found.mapping);
  doubts_ = std::move(found.doubts);
  readSheet();
}

void ImportReview::chooseHeadings(std::size_t row, std::size_t rows) {
  if (!sheet()) return;
  const std::string name = mapping_.sheet;
  FoundColumns found = columnsBelow(*sheet(), row, rows);
  mapping_ = std::move(found.mapping);
  mapping_.sheet = name;
  doubts_ = std::move(found.doubts);
  touched_ = true;
  readSheet();
}

void ImportReview::setColumn(ColumnRole role, std::optional<std::size_t> column) {
  if (const auto before = mapping_.column(role)) mapping_.setRole(*before, ColumnRole::none);
  if (column) mapping_.setRole(*column, role);
  // A person has looked at them.
  doubts_.clear();
  touched_ = true;
  readSheet();
}

void ImportReview::setFigures(FigureRules figures) {
  mapping_.figures = figures;
  touched_ = true;
  readSheet();
}

// --- choices ------------------------------------------------------------------------------------

void ImportReview::choose(const std::vector<int>& rows,
                          const std::function<void(RowChoice&)>& change) {
  const auto before = kindsOf(choices_);
  for (const int row : rows) change(choices_[row]);
  touched_ = true;
  if (kindsOf(choices_) == before) {
    review();
  } else {
    readSheet();
  }
}

void ImportReview::takeGone(LedgerGroup pair, bool taken) {
  touched_ = true;
  if (taken) {
    takenOut_.insert(pair);
  } else {
    takenOut_.erase(pair);
  }
  review();
}

bool ImportReview::takes(const ReviewRow& row) const {
  if (row.isGone()) return takenOut_.contains(row.difference->pair);
  return row.difference && row.difference->kind != Kind::same;
}

// --- what follows -------------------------------------------------------------------------------

void ImportReview::readSheet() {
  rows_ = {};
  // Vouchers are not lines.
  if (sheet() && !mapping_.hasVouchers())
    rows_ = readRows(*sheet(), mapping_, names_, kindsOf(choices_));
  review();
}

void ImportReview::review() {
  proposals_ = propose(rows_, books_->known, choices_);
  if (askUsualGroups()) proposals_ = propose(rows_, books_->known, choices_);
  for (ProposedLine& line : proposals_.lines) {
    // Written as the master has it, by whatever name it was remembered.
    if (line.partId != 0) line.ledger = books_->known.ledgerNames.at(line.partId);
  }
  compare();
  refuse();
  collect();
}

void ImportReview::refuse() {
  if (mapping_.hasVouchers()) {
    refusals_ = {{0,
                  "The sheet holds adjustment entries: their date and number. Lines of a trial "
                  "balance have none. \"Vouchers...\" leads to their review."}};
    return;
  }
  refusals_ = refusalsOf(mapping_, rows_, proposals_, true);
  askAboutMoved();
}

// A ledger that only came under another group would count twice.
void ImportReview::askAboutMoved() {
  std::unordered_map<long, const Difference*> left;
  for (const Difference& each : differences_) {
    if (each.kind == Kind::vanished && !writes(each)) left.emplace(each.pair.partId, &each);
  }
  for (const Difference& each : differences_) {
    const auto found = left.find(each.pair.partId);
    if (each.kind != Kind::isNew || each.pair.partId == 0 || found == left.end()) continue;
    const auto choice = choices_.find(each.row);
    if (choice != choices_.end() && choice->second.confirmed) continue;
    Refusal& refusal = refusals_.emplace_back();
    refusal.row = each.row;
    refusal.text = "In the year the ledger stands under \"" + found->second->group +
                   "\": choose that group, tick that line below to take it out, or confirm both.";
  }
}

bool ImportReview::askUsualGroups() {
  std::vector<long> unknown;
  for (const ProposedLine& line : proposals_.lines) {
    if (line.partId != 0 && line.groupState == GroupState::missing) unknown.push_back(line.partId);
  }
  return learnUsualGroups(std::move(unknown));
}

bool ImportReview::learnUsualGroups(std::vector<long> partIds) {
  std::erase_if(partIds, [this](long partId) { return !asked_.insert(partId).second; });
  if (partIds.empty()) return false;
  const auto found = usual_(partIds);
  books_->known.usualGroups.insert(found.begin(), found.end());
  return !found.empty();
}

void ImportReview::compare() {
  differences_.clear();
  // No line of the year is gone because a sheet holds vouchers.
  if (mapping_.hasVouchers()) return;
  differences_ = compareWithYear(proposals_, books_->known);
}

void ImportReview::collect() {
  std::unordered_map<int, const ProposedLine*> lines;
  std::unordered_map<int, const Difference*> differences;
  std::unordered_map<int, const std::string*> questions;
  for (const ProposedLine& line : proposals_.lines) lines[line.row] = &line;
  for (const Difference& each : differences_) {
    if (each.row != 0) differences[each.row] = &each;
  }
  for (const Refusal& refusal : refusals_) {
    if (refusal.row != 0) questions.emplace(refusal.row, &refusal.text);
  }
  const auto in = [](const auto& map, int key) {
    const auto found = map.find(key);
    return found == map.end() ? nullptr : found->second;
  };
  shown_.clear();
  shown_.reserve(rows_.rows.size() + differences_.size());
  for (const ImportRow& row : rows_.rows) {
    ReviewRow shown{&row, in(lines, row.number), nullptr, in(questions, row.number)};
    // A double is written with the row before it.
    if (shown.line && shown.line->taken) {
      const int first = shown.line->doubleOf != 0 ? shown.line->doubleOf : row.number;
      shown.difference = in(differences, first);
    }
    shown_.push_back(shown);
  }
  for (const Difference& each : differences_) {
    if (each.kind == Kind::vanished) shown_.push_back({nullptr, nullptr, &each, nullptr});
  }
}

bool ImportReview::writes(const Difference& difference) const {
  if (difference.kind == Kind::vanished) return takenOut_.contains(difference.pair);
  return difference.kind != Kind::same;
}

std::vector<ImportedLine> ImportReview::toWrite() const {
  std::vector<ImportedLine> lines;
  for (const Difference& each : differences_) {
    if (!writes(each)) continue;
    lines.push_back({each.pair.partId, each.pair.partId == 0 ? each.ledger : std::string(),
                     each.pair.allId, each.after + books_->postedOn(each.pair)});
  }
  return lines;
}

SideTotals ImportReview::afterwards() const {
  std::map<LedgerGroup, Money> balances;
  SideTotals totals;
  const auto add = [&](Money balance) {
    (balance < Money() ? totals.credit : totals.debit) += abs(balance);
  };
  for (const Line& line : books_->standing) {
    balances[{line.partId, line.allId}] += Money::rounded(line.balance());
  }
  for (const ImportedLine& line : toWrite()) {
    if (line.partId == 0) {
      add(line.balance);
    } else {
      balances[{line.partId, line.allId}] = line.balance;
    }
  }
  for (const auto& [pair, balance] : balances) add(balance);
  return totals;
}

ImportMemory::Additions ImportReview::additions(const std::string& note) const {
  ImportMemory::Additions additions;
  if (sheet()) additions.headings = headingFingerprint(*sheet());
  additions.mapping = textOf(mapping_);
  additions.file = book_.fingerprint;
  additions.note = note;
  for (const ReviewRow& row : shown_) {
    if (!row.line) continue;
    const auto found = choices_.find(row.row->number);
    if (found == choices_.end()) continue;
    const RowChoice& choice = found->second;
    if (choice.group) additions.groups.emplace_back(nameKey(row.line->ledger), *choice.group);
    if (choice.usesNearest.value_or(false) && row.line->partId != 0) {
      additions.ledgers.emplace_back(nameKey(row.row->name), row.line->partId);
    }
  }
  return additions;
}

}  // namespace quillet
