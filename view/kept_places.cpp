#include "view/kept_places.h"

#include <charconv>
#include <utility>

#include "controls/form.h"
#include "controls/grid.h"

namespace quillet::view {
namespace {

constexpr const char* windows = "Windows";
constexpr const char* columns = "Columns";
constexpr const char* dividers = "Dividers";

// Nothing when the text is no number within these bounds.
std::optional<int> numberIn(const std::string& text, int least, int most) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number);
  const bool sound = error == std::errc() && stopped == end && number >= least && number <= most;
  return sound ? std::optional(number) : std::nullopt;
}

// Null for one whose width is not kept here.
const GridColumn* keptColumn(const Grid& grid, int at) {
  const GridColumn& column = grid.columns()[static_cast<std::size_t>(at)];
  return column.stretch || grid.keepsWidths() ? nullptr : &column;
}

std::string keyOf(const Grid& grid, const GridColumn& column) {
  return grid.form().name() + '.' + grid.name() + '.' + column.heading;
}

}  // namespace

std::string KeptPlaces::kept(const char* section, const std::string& key) const {
  return store_.get ? store_.get(section, key) : std::string();
}

void KeptPlaces::keep(const char* section, const std::string& key, const std::string& value) {
  if (store_.set && kept(section, key) != value) store_.set(section, key, value);
}

std::optional<WindowPlace> KeptPlaces::place(const std::string& window) const {
  return windowPlaceIn(kept(windows, window));
}

bool KeptPlaces::isKept(const std::string& window) const { return !kept(windows, window).empty(); }

void KeptPlaces::keepPlace(const std::string& window, const WindowPlace& place) {
  keep(windows, window, textOf(place));
}

std::optional<int> KeptPlaces::width(const std::string& column) const {
  const auto changed = changed_.find(column);
  return changed == changed_.end() ? numberIn(kept(columns, column), 2, 200) : changed->second;
}

void KeptPlaces::restoreWidths(Grid& grid) const {
  for (int at = 0; at < grid.cols(); ++at) {
    const GridColumn* column = keptColumn(grid, at);
    const auto wanted = column ? width(keyOf(grid, *column)) : std::nullopt;
    if (wanted && *wanted != column->width) grid.setColumnWidth(at, *wanted);
  }
}

void KeptPlaces::changeWidth(const Grid& grid, int column, int characters) {
  if (const GridColumn* changed = keptColumn(grid, column)) {
    changed_[keyOf(grid, *changed)] = characters;
  }
}

void KeptPlaces::keepWidths() {
  for (const auto& [column, characters] : std::exchange(changed_, {})) {
    keep(columns, column, std::to_string(characters));
  }
}

std::optional<int> KeptPlaces::divider(const std::string& window) const {
  return numberIn(kept(dividers, window), 5, 95);
}

void KeptPlaces::keepDivider(const std::string& window, int percent) {
  keep(dividers, window, std::to_string(percent));
}

}  // namespace quillet::view
