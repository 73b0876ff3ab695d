// One import under review: a source, how it is read, what a person chose, and what follows from
// both for the year. Nothing is written from here.
#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "books/import_memory.h"
#include "books/line_import.h"
#include "import/columns.h"
#include "import/comparison.h"
#include "import/refusals.h"
#include "review/year_books.h"

namespace quillet {

// A row of the source, or a line of the year that the source has no more.
struct ReviewRow {
  const ImportRow* row = nullptr;          // null for a line that is gone
  const ProposedLine* line = nullptr;      // null unless the row is entered or cannot be read
  const Difference* difference = nullptr;  // from what stands in the year; null unless taken
  const std::string* question = nullptr;   // what stands in the way

  bool isGone() const { return row == nullptr; }
};

class ImportReview {
 public:
  // The text of the mapping that is remembered for headings.
  using Recall = std::function<std::string(const std::string& headings)>;
  // Under which groups ledgers mostly stand.
  using Usual = std::function<std::unordered_map<long, long>(const std::vector<long>& partIds)>;

  ImportReview(Recall recall, Usual usual) : recall_(std::move(recall)), usual_(std::move(usual)) {}

  // --- source and books

  // Looks for sheet and columns; choices of before are forgotten.
  void open(SourceBook book, YearBooks books);
  void forget();
  // The books were read anew; every choice stays.
  void setBooks(YearBooks books);
  bool isOpen() const { return books_.has_value(); }
  const SourceBook& book() const { return book_; }
  // Null for a book without sheets.
  const SourceSheet* sheet() const;
  std::size_t sheetIndex() const { return sheet_; }
  // What a person should look at before, as sentences; "" when nothing.
  std::string doubts() const;
  const YearBooks& books() const { return *books_; }

  // --- how it is read

  const Mapping& mapping() const { return mapping_; }
  void chooseSheet(std::size_t index);
  void chooseHeadings(std::size_t row, std::size_t rows);
  // Nothing: no column has that role.
  void setColumn(ColumnRole role, std::optional<std::size_t> column);
  void setFigures(FigureRules figures);

  // Finds out under which groups those ledgers mostly stand, each once. True when that is news.
  bool learnUsualGroups(std::vector<long> partIds);

  // --- choices

  const RowChoices& choices() const { return choices_; }
  // Changes the choices about rows, by their numbers.
  void choose(const std::vector<int>& rows, const std::function<void(RowChoice&)>& change);
  // Takes a line that is gone out of the year, or leaves it.
  void takeGone(LedgerGroup pair, bool taken);
  bool takes(const ReviewRow& row) const;
  // Whether a person chose anything that would be lost.
  bool touched() const { return touched_; }

  // --- what follows

  const std::vector<ReviewRow>& rows() const { return shown_; }
  const Proposals& proposals() const { return proposals_; }
  // What stands in the way, the difference apart.
  const std::vector<Refusal>& refusals() const { return refusals_; }
  std::string difference() const { return differenceOf(proposals_); }
  // What is written, with the vouchers on top.
  std::vector<ImportedLine> toWrite() const;
  // Of the year when that is written.
  SideTotals afterwards() const;
  ImportMemory::Additions additions(const std::string& note) const;

 private:
  void readSheet();
  void review();
  void refuse();
  void askAboutMoved();
  void compare();
  void collect();
  bool askUsualGroups();
  bool writes(const Difference& difference) const;

  Recall recall_;
  Usual usual_;
  SourceBook book_;
  std::size_t sheet_ = 0;
  std::optional<YearBooks> books_;
  NameKnowledge names_;  // of the books
  Mapping mapping_;
  std::vector<std::string> doubts_;
  RowChoices choices_;
  std::set<LedgerGroup> takenOut_;
  std::set<long> asked_;  // ledgers whose usual group was asked for
  bool touched_ = false;

  ImportRows rows_;
  Proposals proposals_;
  std::vector<Difference> differences_;
  std::vector<Refusal> refusals_;
  std::vector<ReviewRow> shown_;
};

}  // namespace quillet
