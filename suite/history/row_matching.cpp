#include "suite/history/row_matching.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

namespace quillet::suite {
namespace {

auto contentOf(const BookRow& row) {
  return std::tie(row.voucher, row.partId, row.allId, row.balance, row.date, row.details);
}
auto pairOf(const BookRow& row) { return std::tie(row.voucher, row.partId, row.allId); }
auto ledgerOf(const BookRow& row) { return std::tie(row.voucher, row.partId); }

class Matching {
 public:
  Matching(std::vector<BookRow> before, std::vector<BookRow> after)
      : before_(std::move(before)), after_(std::move(after)) {
    for (auto* rows : {&before_, &after_}) std::ranges::stable_sort(*rows, {}, &BookRow::order);
  }

  template <class Key>
  void pairBy(Key key) {
    if (before_.empty() || after_.empty()) return;
    for (auto* rows : {&before_, &after_}) {
      std::ranges::stable_sort(*rows,
                               [&](const BookRow& a, const BookRow& b) { return key(a) < key(b); });
    }
    std::vector<BookRow> left[2];
    auto old = before_.begin();
    auto now = after_.begin();
    while (old != before_.end() && now != after_.end()) {
      if (key(*old) < key(*now)) {
        left[0].push_back(std::move(*old++));
      } else if (key(*now) < key(*old)) {
        left[1].push_back(std::move(*now++));
      } else {
        pairs_.push_back({std::move(*old++), std::move(*now++)});
      }
    }
    std::move(old, before_.end(), std::back_inserter(left[0]));
    std::move(now, after_.end(), std::back_inserter(left[1]));
    before_ = std::move(left[0]);
    after_ = std::move(left[1]);
  }

  std::vector<RowPair> take() {
    for (BookRow& row : before_) pairs_.push_back({std::move(row), {}});
    for (BookRow& row : after_) pairs_.push_back({{}, std::move(row)});
    std::ranges::stable_sort(pairs_, [](const RowPair& a, const RowPair& b) {
      return std::pair(a.any().voucher, a.any().order) < std::pair(b.any().voucher, b.any().order);
    });
    return std::move(pairs_);
  }

 private:
  std::vector<BookRow> before_;
  std::vector<BookRow> after_;
  std::vector<RowPair> pairs_;
};

}  // namespace

bool BookRow::saysSameAs(const BookRow& other) const {
  return contentOf(*this) == contentOf(other);
}

std::vector<RowPair> matchRows(std::vector<BookRow> before, std::vector<BookRow> after) {
  Matching matching(std::move(before), std::move(after));
  matching.pairBy(contentOf);
  matching.pairBy(pairOf);
  matching.pairBy(ledgerOf);
  return matching.take();
}

}  // namespace quillet::suite
