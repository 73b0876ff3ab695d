#include "statements/statement_page.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "books/amount.h"
#include "data/text.h"

namespace quillet {
namespace {

constexpr const char* withoutHead = "Groups without a head";
constexpr const char* profit = "Profit/(Loss)";

struct KindTexts {
  const char* caption;
  const char* total;
};

KindTexts textsOf(HeadKind kind) {
  switch (kind) {
    case HeadKind::liability:
      return {"EQUITY AND LIABILITIES", "Total equity and liabilities"};
    case HeadKind::asset:
      return {"ASSETS", "Total assets"};
    case HeadKind::income:
      return {"INCOME", "Total income"};
    case HeadKind::expense:
      return {"EXPENSES", "Total expenses"};
  }
  return {};
}

bool isZero(const TwoAmounts& amounts) { return amounts == TwoAmounts{}; }

std::string nameOf(const ScheduleGroup& group) {
  return group.lostHead.empty()
             ? group.name
             : group.name + " (its head \"" + group.lostHead + "\" is not in the list)";
}

class Writer {
 public:
  void kinds(const StatementsByHead& statements, std::initializer_list<HeadKind> kinds) {
    for (const HeadKind kind : kinds) write(kind, statements);
  }

  void result(const StatementsByHead& statements) {
    total(std::string(profit) + " for the year", 0, statements.result);
  }
  void difference(const StatementsByHead& statements) {
    const TwoAmounts difference = statements.difference();
    if (!isZero(difference)) {
      total("Difference: assets less equity and liabilities", 0, difference);
    }
  }

  void unmapped(const StatementsByHead& statements, std::initializer_list<HeadKind> kinds) {
    bool any = false;
    for (const HeadKind kind : kinds) {
      for (const ScheduleGroup& group : statements.of(kind).unmapped.groups) {
        if (!std::exchange(any, true)) caption("GROUPS WITHOUT A HEAD", 0);
        page_.rows.push_back({.text = nameOf(group) + ", in " + textsOf(kind).total,
                              .level = 1,
                              .hasAmounts = true,
                              .amounts = group.amounts,
                              .schedule = unmappedSchedules_[static_cast<std::size_t>(kind)]});
      }
    }
  }

  StatementPage page() { return std::move(page_); }

 private:
  using Heads = std::vector<HeadFigures>;

  void caption(const std::string& text, int level) {
    page_.rows.push_back({.text = text, .level = level, .emphasised = true});
  }
  void total(const std::string& text, int level, const TwoAmounts& amounts) {
    page_.rows.push_back({.text = text,
                          .level = level,
                          .hasAmounts = true,
                          .emphasised = true,
                          .total = true,
                          .amounts = amounts});
  }

  int schedule(const HeadFigures& figures, const std::string& name) {
    Schedule made;
    const int note = figures.head.note;
    made.title = note == 0 ? name : "Note " + std::to_string(note) + ": " + name;
    for (const ScheduleGroup& group : figures.groups) {
      made.rows.push_back({.text = nameOf(group),
                           .hasAmounts = true,
                           .emphasised = true,
                           .amounts = group.amounts});
      for (const ScheduleLedger& ledger : group.ledgers) {
        made.rows.push_back(
            {.text = ledger.name, .level = 1, .hasAmounts = true, .amounts = ledger.amounts});
      }
    }
    made.rows.push_back({.text = "Total",
                         .hasAmounts = true,
                         .emphasised = true,
                         .total = true,
                         .amounts = figures.amounts});
    page_.schedules.push_back(std::move(made));
    return static_cast<int>(page_.schedules.size());
  }

  void head(const HeadFigures& figures, const std::string& name, int level) {
    page_.rows.push_back({.text = name,
                          .level = level,
                          .note = figures.head.note,
                          .hasAmounts = true,
                          .amounts = figures.amounts,
                          .schedule = schedule(figures, name)});
  }

  // A section that one head of its name makes up needs no caption, and one head no total.
  TwoAmounts section(const Heads& heads, std::size_t from, std::size_t to, bool onlyOne) {
    const StatutoryHead& first = heads[from].head;
    const bool many = to - from > 1;
    const bool captioned = (many || first.name != first.section) &&
                           !equalIgnoringCase(first.section, textsOf(first.kind).caption);
    if (captioned) caption(first.section, 1);
    TwoAmounts sum{};
    std::string heading;
    for (std::size_t i = from; i < to; ++i) {
      const StatutoryHead& each = heads[i].head;
      const int level = captioned ? 2 : 1;
      if (each.heading != heading && !each.heading.empty()) caption(each.heading, level);
      heading = each.heading;
      head(heads[i], each.name, heading.empty() ? level : level + 1);
      for (const std::size_t year : {0, 1}) sum[year] += heads[i].amounts[year];
    }
    if (many && !onlyOne) total("Total " + first.section, 1, sum);
    return sum;
  }

  void write(HeadKind kind, const StatementsByHead& statements) {
    const KindFigures& figures = statements.of(kind);
    const Heads& heads = figures.heads;
    const bool whole = figures.unmapped.groups.empty();
    // What an expense leaves of the profit can be said where nothing is still to be mapped.
    const bool steps = kind == HeadKind::expense && whole &&
                       statements.of(HeadKind::income).unmapped.groups.empty();
    TwoAmounts left = statements.of(HeadKind::income).total;
    caption(textsOf(kind).caption, 0);
    bool several = false;
    for (std::size_t from = 0, to = 0; from < heads.size(); from = to) {
      const std::string& section_ = heads[from].head.section;
      while (to < heads.size() && heads[to].head.section == section_) ++to;
      const bool last = to == heads.size();
      const TwoAmounts sum = section(heads, from, to, from == 0 && last && whole);
      several = several || !last;
      for (const std::size_t year : {0, 1}) left[year] -= sum[year];
      if (steps && !last) {
        total(std::string(profit) + " before " + heads[to].head.section, 0, left);
      }
    }
    if (!whole) {
      head(figures.unmapped, withoutHead, 1);
      unmappedSchedules_[static_cast<std::size_t>(kind)] = static_cast<int>(page_.schedules.size());
    }
    if (!steps || !several) total(textsOf(kind).total, 0, figures.total);
  }

  StatementPage page_;
  std::array<int, 4> unmappedSchedules_{};
};

constexpr auto ofBalanceSheet = {HeadKind::liability, HeadKind::asset};
constexpr auto ofProfitAndLoss = {HeadKind::income, HeadKind::expense};

}  // namespace

StatementPage balanceSheet(const StatementsByHead& statements) {
  Writer writer;
  writer.kinds(statements, ofBalanceSheet);
  writer.difference(statements);
  writer.unmapped(statements, ofBalanceSheet);
  return writer.page();
}

StatementPage profitAndLoss(const StatementsByHead& statements) {
  Writer writer;
  writer.kinds(statements, ofProfitAndLoss);
  writer.result(statements);
  writer.unmapped(statements, ofProfitAndLoss);
  return writer.page();
}

StatementPage allHeads(const StatementsByHead& statements) {
  Writer writer;
  writer.kinds(statements, ofBalanceSheet);
  writer.difference(statements);
  writer.kinds(statements, ofProfitAndLoss);
  writer.result(statements);
  writer.unmapped(statements,
                  {HeadKind::liability, HeadKind::asset, HeadKind::income, HeadKind::expense});
  return writer.page();
}

std::string agreementText(const ServiceObject& host, const StatementsByHead& statements) {
  const TwoAmounts difference = statements.difference();
  const auto differs = [&](Money by) {
    return (by < Money() ? "Equity and liabilities exceed assets by "
                         : "Assets exceed equity and liabilities by ") +
           groupedAmount(host, abs(by));
  };
  if (isZero(difference)) return "Both sides agree";
  if (difference[1].isZero()) return differs(difference[0]) + '.';
  const std::string before = "Last year: " + differs(difference[1]) + '.';
  return difference[0].isZero() ? before : differs(difference[0]) + ". " + before;
}

}  // namespace quillet
