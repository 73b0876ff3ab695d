// Grids as a script sees them: rows from 1, and of the columns those that a person sees.
#include <algorithm>

#include "controls/grid.h"
#include "controls/row_text.h"
#include "data/text.h"
#include "script/member.h"
#include "script/session.h"

namespace quillet::script {
namespace {

const Grid& grid(const Control& control) { return dynamic_cast<const Grid&>(control); }
Grid& grid(Control& control) { return dynamic_cast<Grid&>(control); }

std::vector<int> shownColumns(const Grid& grid) {
  std::vector<int> shown;
  for (int column = 0; column < grid.cols(); ++column) {
    if (!grid.columns()[column].hidden) shown.push_back(column);
  }
  return shown;
}

int mustBeRow(const Grid& grid, int row) {
  if (row >= 1 && row <= grid.rows()) return row;
  throw Error(describe(grid) + " has no row " + std::to_string(row) + "; there are " +
              std::to_string(grid.rows()));
}

int rowAt(const Call& call, int n, const Grid& grid) { return mustBeRow(grid, call.integer(n)); }

// A row that a person can point at.
int shownRow(const Grid& grid, int row) {
  if (!grid.rowHidden(mustBeRow(grid, row))) return row;
  throw Error("row " + std::to_string(row) + " of " + describe(grid) + " is hidden");
}

// By position among the columns shown, or by heading.
int columnAt(const Call& call, int n, const Grid& grid) {
  const auto shown = shownColumns(grid);
  if (call.isNumber(n)) {
    const int position = call.integer(n);
    if (position >= 1 && position <= std::ssize(shown)) {
      return shown[position - 1];
    }
    throw Error(describe(grid) + " shows no column " + std::to_string(position));
  }
  const std::string heading = call.text(n);
  for (const int column : shown) {
    if (equalIgnoringCase(grid.columns()[column].heading, heading)) {
      return column;
    }
  }
  throw Error(describe(grid) + " shows no column '" + heading + "'");
}

int heads(Call& call, Control& control) {
  std::vector<std::string> headings;
  for (const int column : shownColumns(grid(control))) {
    headings.push_back(grid(control).columns()[column].heading);
  }
  return call.give(headings);
}

int row(Call& call, Control& control) {
  const int wanted = rowAt(call, 2, grid(control));
  std::vector<std::string> cells;
  for (const int column : shownColumns(grid(control))) {
    cells.push_back(grid(control).cell(wanted, column));
  }
  return call.give(cells);
}

int cell(Call& call, Control& control) {
  const int wanted = rowAt(call, 2, grid(control));
  return call.give(grid(control).cell(wanted, columnAt(call, 3, grid(control))));
}

int hidden(Call& call, Control& control) {
  return call.give(grid(control).rowHidden(rowAt(call, 2, grid(control))));
}

int ticked(Call& call, Control& control) {
  return call.give(grid(control).ticked(rowAt(call, 2, grid(control))));
}

// The first row that a person sees with a cell of that text.
int rowWith(const Grid& grid, const std::string& text) {
  const auto shown = shownColumns(grid);
  for (int row = 1; row <= grid.rows(); ++row) {
    if (grid.rowHidden(row)) continue;
    for (const int column : shown) {
      if (grid.cell(row, column) == text) return row;
    }
  }
  throw Error(describe(grid) + " has no row with '" + text + "'");
}

// A drop-down list never has the focus; every other grid takes it when a person points into it.
void pointInto(Session& session, Grid& grid) {
  if (grid.takesFocus()) {
    focusOn(session, grid);
  } else {
    bringToFront(session, grid.form());
    if (!grid.shown()) throw Error(describe(grid) + " is hidden");
  }
}

int pick(Call& call, Control& control) {
  Grid& list = grid(control);
  int picked = 0;
  call.session().act([&] {
    pointInto(call.session(), list);
    // Looked up only now: leaving another control may have filled the grid anew.
    picked = call.isNumber(2) ? shownRow(list, call.integer(2)) : rowWith(list, call.text(2));
    list.setCurrent(picked);
    // A click into a drop-down list takes the row.
    if (list.dropOf() != nullptr) list.form().doubleClick(list);
    list.form().repairFocus();
  });
  return call.give(picked);
}

int doubleClick(Call& call, Control& control) {
  call.session().act([&] {
    pointInto(call.session(), grid(control));
    if (grid(control).current() == 0) throw Error(describe(control) + " has no current row");
    control.form().doubleClick(control);
  });
  return call.none();
}

int sort(Call& call, Control& control) {
  Grid& list = grid(control);
  call.session().act([&] {
    pointInto(call.session(), list);
    if (!list.sortable) throw Error(describe(list) + " keeps its order");
    list.sortBy(columnAt(call, 2, list));
  });
  return call.none();
}

int select(Call& call, Control& control) {
  Grid& list = grid(control);
  call.session().act([&] {
    pointInto(call.session(), list);
    if (call.isNumber(2)) {
      list.selection.extendTo(shownRow(list, call.integer(2)));
    } else {
      list.selection.selectAll();
    }
  });
  return call.none();
}

int copy(Call& call, Control& control) { return call.give(copiedRows(grid(control))); }

int tick(Call& call, Control& control) {
  Grid& list = grid(control);
  call.session().act([&] {
    pointInto(call.session(), list);
    const int wanted = shownRow(list, call.integer(2));
    const auto isTick = [](const GridColumn& column) { return column.tick; };
    if (std::none_of(list.columns().begin(), list.columns().end(), isTick)) {
      throw Error(describe(list) + " has no ticks");
    }
    list.setCurrent(wanted);
    list.tick(wanted, call.boolean(3, true));
  });
  return call.none();
}

int set(Call& call, Control& control) {
  Grid& list = grid(control);
  call.session().act([&] {
    pointInto(call.session(), list);
    const int wanted = shownRow(list, call.integer(2));
    const int column = columnAt(call, 3, list);
    const GridColumn& edited = list.columns()[column];
    if (!edited.editable) {
      throw Error("the column '" + edited.heading + "' of " + describe(list) + " cannot be edited");
    }
    list.setCurrent(wanted);
    list.edit(wanted, column, call.text(4));
  });
  return call.none();
}

constexpr Member members[] = {
    {"rows",
     [](const Call& call, const Control& control) { return call.give(grid(control).rows()); }},
    {"cols",
     [](const Call& call, const Control& control) {
       return call.give(static_cast<int>(shownColumns(grid(control)).size()));
     }},
    {"current",
     [](const Call& call, const Control& control) { return call.give(grid(control).current()); }},
    {"heads", nullptr, heads},
    {"row", nullptr, row},
    {"cell", nullptr, cell},
    {"hidden", nullptr, hidden},
    {"pick", nullptr, pick},
    {"dblclick", nullptr, doubleClick},
    {"sort", nullptr, sort},
    {"select", nullptr, select},
    {"copy", nullptr, copy},
    {"tick", nullptr, tick},
    {"ticked", nullptr, ticked},
    {"set", nullptr, set},
};

}  // namespace

std::span<const Member> gridMembers() { return members; }

}  // namespace quillet::script
