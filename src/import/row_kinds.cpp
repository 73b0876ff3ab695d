#include "import/row_kinds.h"

#include <algorithm>
#include <array>

#include "data/names.h"
#include "import/heading_words.h"
#include "import/headings.h"
#include "import/row_reading.h"

namespace quillet {
namespace {

using Name = SumRow::Name;

constexpr std::array<std::string_view, 9> totalWords{
    "TOTAL", "TOTALS", "SUBTOTAL", "CARRIED", "BROUGHT", "C F", "B F", "C O", "\u0915\u0941\u0932"};
// What may stand beside them without naming anything.
constexpr std::array<std::string_view, 14> plainTotalWords{
    "TOTAL", "TOTALS", "SUBTOTAL", "GRAND", "SUB",     "NET",     "RS",
    "INR",   "OF",     "ALL",      "SUM",   "CARRIED", "BROUGHT", "FORWARD"};

std::vector<std::string> wordsIn(const std::string& words) {
  std::vector<std::string> list;
  for (std::size_t at = 0; at < words.size();) {
    const std::size_t end = std::min(words.find(' ', at), words.size());
    list.push_back(words.substr(at, end - at));
    at = end + 1;
  }
  return list;
}

Name totalNamed(const std::string& name) {
  const std::string words = plainWords(name);
  if (words.empty() || holds(totalWords, words)) return Name::total;
  const std::vector<std::string> list = wordsIn(words);
  const auto isTotal = [](const std::string& word) { return holds(totalWords, word); };
  if (std::none_of(list.begin(), list.end(), isTotal)) return Name::other;
  const bool plain = std::all_of(list.begin(), list.end(), [](const std::string& word) {
    return holds(plainTotalWords, word);
  });
  return plain ? Name::total : Name::totalWord;
}

Name nameKind(const std::string& name, const NameKnowledge& known) {
  const Name total = totalNamed(name);
  if (total == Name::total) return total;
  if (known.isGroup && known.isGroup(name)) return Name::group;
  if (known.isLedger && known.isLedger(name)) return Name::ledger;
  return total;
}

bool isHeadingAgain(const SourceRow& row) {
  int known = 0;
  for (const SourceCell& cell : row.cells) {
    if (looksLikeFigure(cell)) return false;
    if (cell.kind == SourceCell::Kind::text && headingWords(cell.text).known()) ++known;
  }
  return known > 1;
}

class SheetReading {
 public:
  SheetReading(const SourceSheet& sheet, const Mapping& mapping, const NameKnowledge& known,
               const std::map<int, RowKind>& chosen)
      : sheet_(sheet), mapping_(mapping), known_(known), chosen_(chosen), reader_(sheet, mapping) {}

  ImportRows run() {
    rows_.rows.resize(sheet_.rows.size());
    for (std::size_t i = 0; i < sheet_.rows.size(); ++i) readRow(i);
    const ExplainedSums sums = explainSums(sums_, reader_.sided());
    rows_.stated = sums.stated;
    rows_.explained = sums.explained;
    for (std::size_t i = 0; i < sums_.size(); ++i) takeOver(i);
    nameSections();
    for (const ImportRow& row : rows_.rows) {
      if (row.kind == RowKind::ledger) rows_.ledgers += {row.debit, row.credit};
    }
    return std::move(rows_);
  }

 private:
  static void settle(ImportRow& row, RowKind kind, const char* reason) {
    row.kind = kind;
    row.reason = reason;
  }

  void readRow(std::size_t index) {
    const SourceRow& source = sheet_.rows[index];
    ImportRow& row = rows_.rows[index];
    row.number = source.number;
    row.index = index;
    row.hidden = source.hidden;
    if (index < mapping_.firstRow()) {
      const bool above = mapping_.headingRows == 0 || index < mapping_.headingRow;
      return settle(row, RowKind::skipped, above ? "Above the headings" : "The headings");
    }
    ReadRow read = reader_.read(source, row);
    carryGroup(source, row);
    if (isUnderMergedAmount(source, row) && read.problem.empty() && !row.name.empty()) {
      read.problem = "One amount is merged over this row and the one above";
    }
    const auto chosen = chosen_.find(row.number);
    row.chosen = chosen != chosen_.end();
    if (row.chosen) {
      row.kind = chosen->second;
      row.reason = row.kind == RowKind::ledger ? read.problem : "As you said";
      if (row.kind == RowKind::ledger && !read.problem.empty()) row.kind = RowKind::error;
    } else {
      kindAlone(source, read, row);
    }
    takePart(index, read);
  }

  // A merged cell names the group of all rows that it covers.
  void carryGroup(const SourceRow& source, ImportRow& row) {
    const auto column = mapping_.column(ColumnRole::group);
    if (!column) return;
    const SourceCell& cell = cellAt(source, *column);
    if (cell.rows > 1) {
      merged_ = row.group;
      mergedEnd_ = row.index + static_cast<std::size_t>(cell.rows);
    } else if (row.index < mergedEnd_ && row.group.empty() && !row.name.empty()) {
      row.group = merged_;
    }
  }

  bool isUnderMergedAmount(const SourceRow& source, const ImportRow& row) {
    const bool under = row.index < amountEnd_;
    for (const ColumnRole role : {ColumnRole::debits, ColumnRole::credits, ColumnRole::amount}) {
      const auto column = mapping_.column(role);
      if (!column || cellAt(source, *column).rows == 1) continue;
      const auto rows = static_cast<std::size_t>(cellAt(source, *column).rows);
      amountEnd_ = std::max(amountEnd_, row.index + rows);
    }
    return under;
  }

  // What the row is by itself; a ledger where sums are to be looked for.
  void kindAlone(const SourceRow& source, const ReadRow& read, ImportRow& row) const {
    const bool figures =
        std::any_of(source.cells.begin(), source.cells.end(), [](const auto& cell) {
          return looksLikeFigure(cell) || cell.kind == SourceCell::Kind::error;
        });
    const bool total =
        !row.name.empty() && row.group.empty() && totalNamed(row.name) == Name::total;
    if (read.empty) return settle(row, RowKind::blank, "");
    if (isHeadingAgain(source)) return settle(row, RowKind::skipped, "The headings again");
    if (row.name.empty() && !read.hasAmount && !(figures && !read.problem.empty())) {
      return settle(row, RowKind::skipped, "Nothing in the columns that are read");
    }
    if (total && (!read.hasAmount || !read.problem.empty())) {
      return settle(row, RowKind::total, "A total");
    }
    if (!read.problem.empty()) return settle(row, RowKind::error, read.problem.c_str());
    if (row.name.empty() && !row.group.empty()) {
      return settle(row, RowKind::error, "An amount without a name");
    }
    if (read.hasAmount) return settle(row, RowKind::ledger, "");
    // The year may have an amount of it.
    if (read.hasFigure && known_.isLedger && known_.isLedger(row.name)) {
      return settle(row, RowKind::ledger, "No amount");
    }
    if (read.hasFigure || !row.group.empty()) return settle(row, RowKind::skipped, "No amount");
    settle(row, RowKind::heading, "No amount");
  }

  void takePart(std::size_t index, const ReadRow& read) {
    const ImportRow& row = rows_.rows[index];
    const bool amount = read.hasAmount && read.problem.empty() && row.kind != RowKind::error &&
                        row.kind != RowKind::skipped;
    const bool heading = row.kind == RowKind::heading && !read.hasAmount;
    if (!amount && !heading) return;
    SumRow sum;
    sum.amount = {row.debit, row.credit};
    sum.heading = heading;
    sum.sideless = read.sideless;
    sum.grouped = !row.group.empty();
    sum.unnamed = row.name.empty();
    sum.name = nameKind(row.name, known_);
    sum.bold = read.bold;
    sum.indent = read.indent;
    if (row.chosen) sum.fixed = row.kind;
    sums_.push_back(sum);
    places_.push_back(index);
  }

  void takeOver(std::size_t at) {
    const SumRow& sum = sums_[at];
    ImportRow& row = rows_.rows[places_[at]];
    if (row.chosen || sum.heading) return;
    row.kind = sum.kind;
    row.reason = sum.reason;
    row.question = sum.question;
    if (row.kind == RowKind::ledger && sum.sideless) {
      settle(row, RowKind::error, "The amount says neither Dr nor Cr");
    }
  }

  // The innermost sum around the row whose name is a group, else the innermost one.
  std::string parentOf(std::size_t at) const {
    std::string innermost;
    for (auto parent = sums_[at].parent; parent; parent = sums_[*parent].parent) {
      const std::string& name = rows_.rows[places_[*parent]].name;
      if (known_.isGroup && known_.isGroup(name)) return name;
      if (innermost.empty()) innermost = name;
    }
    return innermost;
  }

  void nameSections() {
    std::string heading;
    for (std::size_t at = 0; at < sums_.size(); ++at) {
      ImportRow& row = rows_.rows[places_[at]];
      if (row.kind == RowKind::heading) heading = row.name;
      if (row.kind == RowKind::total) heading.clear();
      if (row.kind != RowKind::ledger) continue;
      row.section = parentOf(at);
      if (row.section.empty()) row.section = heading;
    }
  }

  const SourceSheet& sheet_;
  const Mapping& mapping_;
  const NameKnowledge& known_;
  const std::map<int, RowKind>& chosen_;
  RowReader reader_;
  ImportRows rows_;
  std::vector<SumRow> sums_;
  std::string merged_;  // the group of the rows before mergedEnd_
  std::size_t mergedEnd_ = 0;
  std::size_t amountEnd_ = 0;        // of the rows under an amount that is merged over them
  std::vector<std::size_t> places_;  // of the sums among the rows
};

}  // namespace

ImportRows readRows(const SourceSheet& sheet, const Mapping& mapping, const NameKnowledge& known,
                    const std::map<int, RowKind>& chosen) {
  return SheetReading(sheet, mapping, known, chosen).run();
}

}  // namespace quillet
