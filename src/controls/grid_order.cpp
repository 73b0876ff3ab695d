// The order of a grid's rows: by the texts of a column, their values or their days.
#include <algorithm>
#include <charconv>
#include <numeric>
#include <type_traits>

#include "controls/grid.h"
#include "data/text.h"

namespace quillet {
namespace {

// The value of a shown number; brackets and a leading minus make it negative.
double valueOf(const std::string& shown) {
  std::string digits;
  for (const char c : shown) {
    if ((c >= '0' && c <= '9') || c == '.') digits += c;
  }
  double value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  const bool negative = !shown.empty() && (shown.front() == '-' || shown.front() == '(');
  return negative ? -value : value;
}

// The moments of "1/4/2024", "01-04-2024" and "01/04/2024 16:45:30" in their order; what is no date
// comes first.
long long momentOf(const std::string& shown) {
  long long parts[6] = {};
  const char* at = shown.data();
  const char* end = at + shown.size();
  int read = 0;
  for (; read < 6 && at != end; ++read) {
    const auto [next, error] = std::from_chars(at, end, parts[read]);
    if (error != std::errc()) break;
    at = next == end ? end : next + 1;
  }
  const auto& [day, month, year, hour, minute, second] = parts;
  if (read < 3) return 0;
  return ((((year * 100 + month) * 100 + day) * 100 + hour) * 100 + minute) * 100 + second;
}

template <class T>
void permute(std::vector<T>& items, const std::vector<int>& order) {
  std::vector<T> sorted;
  sorted.reserve(items.size());
  for (const int from : order) sorted.push_back(std::move(items[static_cast<std::size_t>(from)]));
  items = std::move(sorted);
}

template <class Keys>
void orderBy(std::vector<int>& order, const Keys& sortKeys, bool ascending) {
  std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
    const auto& left = sortKeys[static_cast<std::size_t>(a)];
    const auto& right = sortKeys[static_cast<std::size_t>(b)];
    return ascending ? left < right : right < left;
  });
}

// Rows that head nothing get the keys of the row above that heads them, figures the sum of all.
template <class Keys>
void shareKeys(Keys& sortKeys, const Grid& grid) {
  for (std::size_t from = 0; from < sortKeys.size();) {
    std::size_t end = from + 1;
    while (end < sortKeys.size() && !grid.rowEmphasised(static_cast<int>(end) + 1)) ++end;
    if constexpr (std::is_same_v<typename Keys::value_type, double>) {
      sortKeys[from] = std::accumulate(sortKeys.begin() + from, sortKeys.begin() + end, 0.0);
    }
    std::fill(sortKeys.begin() + from + 1, sortKeys.begin() + end, sortKeys[from]);
    from = end;
  }
}

}  // namespace

void Grid::clearSort() {
  sortColumn_ = -1;
  sortAscending_ = true;
}

void Grid::sortBy(int column) {
  if (!sortable) return;
  sortAscending_ = column != sortColumn_ || !sortAscending_;
  sortColumn_ = column;
  std::vector<int> order(rows_.size());
  std::iota(order.begin(), order.end(), 0);
  const auto at = static_cast<std::size_t>(column);
  const auto orderByKeys = [&](auto keyOf) {
    std::vector<decltype(keyOf(std::string()))> sortKeys(rows_.size());
    std::transform(rows_.begin(), rows_.end(), sortKeys.begin(),
                   [&](const Row& row) { return keyOf(cellsOf(row)[at]); });
    if (outline) shareKeys(sortKeys, *this);
    orderBy(order, sortKeys, sortAscending_);
  };
  if (columns_.at(at).numeric) {
    orderByKeys(valueOf);
  } else if (columns_[at].dated) {
    orderByKeys(momentOf);
  } else {
    orderByKeys([](const std::string& text) { return upperCase(text); });
  }
  permute(rows_, order);
  if (current_ > 0) {
    current_ =
        static_cast<int>(std::find(order.begin(), order.end(), current_ - 1) - order.begin()) + 1;
  }
  changed();
  AfterSort();
}

void Grid::sortAgain() {
  if (sortColumn_ < 0) return;
  sortAscending_ = !sortAscending_;
  sortBy(sortColumn_);
}

}  // namespace quillet
