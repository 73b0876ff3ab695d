#include "windows/ui/grid_list.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <utility>

#include "controls/scoped_flag.h"
#include "view/column_widths.h"
#include "windows/com/text.h"
#include "windows/ui/cell_painter.h"
#include "windows/ui/child_window.h"

namespace quillet::windows {
namespace {

constexpr DWORD listStyle =
    LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS;

DWORD headingStyle(GridList::Headings headings) {
  return headings == GridList::Headings::none ? LVS_NOCOLUMNHEADER : 0;
}

view::CellMetrics cellMetrics(const Metrics& metrics) {
  return {metrics.characters(100) / 100.0, 2 * metrics.step()};
}

int formatOf(const GridColumn& column) {
  if (column.align == Align::right) return HDF_RIGHT;
  return column.align == Align::center ? HDF_CENTER : HDF_LEFT;
}

}  // namespace

GridList::GridList(Grid& grid, HWND parent, Headings headings)
    : grid_(grid),
      window_(makeChild(WC_LISTVIEWW, parent, listStyle | headingStyle(headings),
                        headings == Headings::shown ? WS_EX_CLIENTEDGE : 0)) {
  ListView_SetExtendedListViewStyle(window_, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
}

GridList::~GridList() {
  if (!pictures_) return;
  if (IsWindow(window_)) ListView_SetImageList(window_, nullptr, LVSIL_SMALL);
  ImageList_Destroy(static_cast<HIMAGELIST>(pictures_));
}

HWND GridList::header() const { return ListView_GetHeader(window_); }

void GridList::setMetrics(const Metrics& metrics) {
  metrics_ = &metrics;
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(metrics.font()), TRUE);
  // The list makes its rows as high as its pictures; there are none on them.
  const HIMAGELIST pictures = ImageList_Create(1, metrics.row(), ILC_COLOR, 1, 0);
  ListView_SetImageList(window_, pictures, LVSIL_SMALL);
  if (pictures_) ImageList_Destroy(static_cast<HIMAGELIST>(pictures_));
  pictures_ = pictures;
  content_ = 0;
}

// --- showing ------------------------------------------------------------------------------------

void GridList::refresh() {
  if (!metrics_) return;
  if (content_ != grid_.contentVersion()) {
    content_ = grid_.contentVersion();
    rows_.read(grid_);
    readColumns();
    drawHeadings();
    showRows();
  }
  if (rows_.count() == 0) InvalidateRect(window_, nullptr, TRUE);  // its words may be others
  arrangeColumns();
  showCurrent();
  InvalidateRect(window_, nullptr, FALSE);  // rows may have been selected
}

void GridList::reveal(int row) { ListView_EnsureVisible(window_, rows_.shownRow(row), FALSE); }

void GridList::resized() {
  if (!metrics_) return;
  arrangeColumns();
  if (current_ >= 0) ListView_EnsureVisible(window_, current_, FALSE);
}

// Columns stay when only what they hold has changed.
void GridList::readColumns() {
  const auto before = static_cast<int>(columns_.size());
  columns_.clear();
  for (int at = 0; at < grid_.cols(); ++at) {
    if (!column(at).hidden) columns_.push_back(at);
  }
  const auto after = static_cast<int>(columns_.size());
  for (int at = before; at-- > after;) ListView_DeleteColumn(window_, at);
  for (int at = before; at < after; ++at) {
    LVCOLUMNW added{};
    added.mask = LVCF_SUBITEM | LVCF_WIDTH;
    added.iSubItem = at;
    SendMessageW(window_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(at),
                 reinterpret_cast<LPARAM>(&added));
  }
}

// By the header itself: the list would align its first column at the left in any case.
void GridList::drawHeadings() {
  for (std::size_t at = 0; at < columns_.size(); ++at) {
    const GridColumn& what = column(columns_[at]);
    std::wstring text = wide(what.heading);
    HDITEMW heading{};
    heading.mask = HDI_TEXT | HDI_FORMAT;
    heading.pszText = text.data();
    heading.fmt = HDF_STRING | formatOf(what);
    if (columns_[at] == grid_.sortColumn()) {
      heading.fmt |= grid_.sortAscending() ? HDF_SORTUP : HDF_SORTDOWN;
    }
    SendMessageW(header(), HDM_SETITEMW, at, reinterpret_cast<LPARAM>(&heading));
  }
}

void GridList::showRows() {
  if (ListView_GetItemCount(window_) != rows_.count()) {
    select(-1);
    ListView_SetItemCountEx(window_, rows_.count(), LVSICF_NOSCROLL | LVSICF_NOINVALIDATEALL);
  }
  InvalidateRect(window_, nullptr, FALSE);
}

int GridList::room() const {
  if (room_ > 0) return room_;
  RECT client{};
  GetClientRect(window_, &client);
  return static_cast<int>(client.right);
}

void GridList::setRoom(int width) {
  room_ = width;
  arrangeColumns();
}

// Scroll bars come and go with the widths, and change the room.
void GridList::arrangeColumns() {
  if (arranging_) return;
  const ScopedFlag guard(arranging_);
  for (int turn = 0; turn < 2; ++turn) {
    const int before = room();
    setWidths(before);
    if (room() == before) break;
  }
}

void GridList::setWidths(int room) {
  std::vector<int> now(static_cast<std::size_t>(grid_.cols()));
  for (std::size_t at = 0; at < columns_.size(); ++at) {
    now[static_cast<std::size_t>(columns_[at])] =
        ListView_GetColumnWidth(window_, static_cast<int>(at));
  }
  std::vector<int> wanted = view::columnWidths(grid_.columns(), now, cellMetrics(*metrics_), room);
  // Nobody can widen a column without heading: the last one has what room there is.
  if (room_ > 0 && !columns_.empty()) {
    const int all = std::accumulate(wanted.begin(), wanted.end(), 0);
    int& last = wanted[static_cast<std::size_t>(columns_.back())];
    last = std::max(1, last + room - all);
  }
  for (std::size_t at = 0; at < columns_.size(); ++at) {
    const auto from = static_cast<std::size_t>(columns_[at]);
    if (wanted[from] != now[from]) {
      ListView_SetColumnWidth(window_, static_cast<int>(at), wanted[from]);
    }
  }
}

void GridList::select(int shown) {
  const int before = std::exchange(current_, shown);
  for (const int row : {before, shown}) {
    if (row < 0) continue;
    const UINT state = row == shown ? LVIS_SELECTED | LVIS_FOCUSED : 0;
    ListView_SetItemState(window_, row, state, LVIS_SELECTED | LVIS_FOCUSED);
    invalidateRow(row);
  }
}

// The list itself draws a row anew as far as its columns reach, but rows fill the window.
void GridList::invalidateRow(int shown) {
  RECT client{};
  GetClientRect(window_, &client);
  RECT row{};
  if (!ListView_GetItemRect(window_, shown, &row, LVIR_BOUNDS)) return;
  const RECT whole{client.left, row.top, client.right, row.bottom};
  InvalidateRect(window_, &whole, FALSE);
}

void GridList::showCurrent() {
  const int wanted = rows_.shownRow(grid_.current());
  if (wanted == current_) return;
  const int top = ListView_GetTopIndex(window_);
  const int visible = ListView_GetCountPerPage(window_);
  // What typing finds far down a list is shown with the names that follow it.
  const bool jumps = grid_.dropOf() && std::abs(current_ - wanted) > 1 &&
                     (wanted < top || wanted >= top + visible);
  select(wanted);
  if (wanted < 0) return;
  if (jumps) ListView_EnsureVisible(window_, std::min(wanted + visible, rows_.count()) - 1, FALSE);
  ListView_EnsureVisible(window_, wanted, FALSE);
}

// --- places -------------------------------------------------------------------------------------

// The list itself counts its headings only once it has been shown.
int GridList::heightOf(int rows) const {
  RECT room{0, 0, 1000, 1000};
  WINDOWPOS place{};
  HDLAYOUT layout{&room, &place};
  const bool hasHeadings = !(GetWindowLongPtrW(window_, GWL_STYLE) & LVS_NOCOLUMNHEADER);
  if (hasHeadings) Header_Layout(header(), &layout);
  const auto height = [&](int count) {
    return static_cast<int>(HIWORD(ListView_ApproximateViewRect(window_, -1, -1, count)));
  };
  RECT border{};
  AdjustWindowRectEx(&border, 0, FALSE,
                     static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_EXSTYLE)));
  return place.cy + rows * (height(1) - height(0)) + border.bottom - border.top;
}

int GridList::wholeRows(int height) const {
  const int row = heightOf(1) - heightOf(0);
  const bool hasBar = GetWindowLongPtrW(window_, GWL_STYLE) & WS_HSCROLL;
  const int room = height - heightOf(0) - (hasBar ? GetSystemMetrics(SM_CYHSCROLL) : 0);
  return row > 0 && room > row ? height - room % row : height;
}

int GridList::gridColumn(int shown) const {
  if (shown < 0 || shown >= static_cast<int>(columns_.size())) return -1;
  return columns_[static_cast<std::size_t>(shown)];
}

int GridList::shownColumn(int column) const {
  const auto found = std::find(columns_.begin(), columns_.end(), column);
  return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

int GridList::charactersOf(int pixels) const {
  return metrics_ ? cellMetrics(*metrics_).characters(pixels) : 0;
}

GridCell GridList::cellAt(POINT place) const {
  LVHITTESTINFO hit{};
  hit.pt = place;
  SendMessageW(window_, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  const int row = rows_.gridRow(hit.iItem);
  if (row < 1 || row > grid_.rows()) return {};
  return {row, gridColumn(hit.iSubItem)};
}

RECT GridList::roomOf(GridCell cell) const {
  RECT row{};
  row.left = LVIR_BOUNDS;
  const int shown = rows_.shownRow(cell.row);
  const int at = shownColumn(cell.column);
  if (shown < 0 || at < 0) return {};
  SendMessageW(window_, LVM_GETITEMRECT, static_cast<WPARAM>(shown),
               reinterpret_cast<LPARAM>(&row));
  RECT room{};
  SendMessageW(header(), HDM_GETITEMRECT, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(&room));
  return {row.left + room.left, row.top, row.left + room.right, row.bottom};
}

std::wstring GridList::cutText(GridCell cell) const {
  if (!metrics_ || cell.row < 1 || cell.row > grid_.rows() || cell.column < 0) return {};
  if (column(cell.column).tick) return {};
  const std::wstring text = wide(view::shownText(grid_, cell.row, cell.column));
  const RECT room = CellPainter::textRoom(roomOf(cell));
  return metrics_->widthOf(text) > room.right - room.left ? text : std::wstring();
}

void GridList::scrollAcross(int pixels) { ListView_Scroll(window_, pixels, 0); }

}  // namespace quillet::windows
