// A grid in a list view of the system: the list asks for what it shows, nothing is copied into it.
// Used by the grids of a form and by the lists under text boxes.
#pragma once

#include <windows.h>

#include <optional>
#include <vector>

#include "controls/grid.h"
#include "view/shown_rows.h"
#include "windows/ui/metrics.h"

namespace quillet::windows {

// By the grid's numbers; row 0 and column -1 for none.
struct GridCell {
  int row = 0;
  int column = -1;
  bool operator==(const GridCell&) const = default;
};

class GridList {
 public:
  enum class Headings { shown, none };
  // Makes the list view; whoever has the parent owns it.
  GridList(Grid& grid, HWND parent, Headings headings);
  ~GridList();
  GridList(const GridList&) = delete;
  GridList& operator=(const GridList&) = delete;

  HWND window() const { return window_; }
  HWND header() const;
  const view::ShownRows& rows() const { return rows_; }

  // The fonts outlive the list, or the next call.
  void setMetrics(const Metrics& metrics);
  // Shows what changed in the grid.
  void refresh();
  // Scrolls to a row of the grid.
  void reveal(int row);
  // After the window's size changed.
  void resized();
  // The columns share so much width, and no scroll bar lies under them.
  void setRoom(int width);
  // What the list tells its parent: it asks for texts and is drawn here.
  std::optional<LRESULT> notified(NMHDR& what);

  // The height of that many rows, with headings and borders.
  int heightOf(int rows) const;
  // As much of that height as shows whole rows.
  int wholeRows(int height) const;
  // What a column of that width holds.
  int charactersOf(int pixels) const;
  // By the list's number; -1 for none.
  int gridColumn(int shown) const;
  GridCell cellAt(POINT place) const;
  RECT roomOf(GridCell cell) const;
  // The text of a cell that is too narrow for it.
  std::wstring cutText(GridCell cell) const;
  void scrollAcross(int pixels);

 private:
  void readColumns();
  void drawHeadings();
  int room() const;
  void arrangeColumns();
  void setWidths(int room);
  void showRows();
  void showCurrent();
  void select(int shown);
  void invalidateRow(int shown);
  LRESULT draw(const NMHDR& what);
  void drawRow(HDC paper, int shown);
  void drawEmpty(HDC paper);
  void tellText(NMHDR& what) const;
  int shownColumn(int column) const;
  const GridColumn& column(int at) const { return grid_.columns()[static_cast<std::size_t>(at)]; }

  Grid& grid_;
  HWND window_;
  const Metrics* metrics_ = nullptr;
  void* pictures_ = nullptr;  // an image list
  view::ShownRows rows_;
  std::vector<int> columns_;  // the grid's numbers of those shown
  unsigned content_ = 0;
  int room_ = 0;  // 0: the width of the window
  bool arranging_ = false;
  int current_ = -1;  // the row that is selected on the screen
};

}  // namespace quillet::windows
