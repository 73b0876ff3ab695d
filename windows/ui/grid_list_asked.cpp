// What a list asks its owner for: the texts of its rows, and to draw them.
#include <commctrl.h>

#include "view/cell_look.h"
#include "windows/com/text.h"
#include "windows/ui/cell_painter.h"
#include "windows/ui/colours.h"
#include "windows/ui/grid_list.h"

namespace quillet::windows {

std::optional<LRESULT> GridList::notified(NMHDR& what) {
  switch (what.code) {
    case LVN_GETDISPINFOW:
      tellText(what);
      return 0;
    case NM_CUSTOMDRAW:
      return draw(what);
    default:
      return {};
  }
}

// For those who have the window read to them; what is seen is drawn below.
void GridList::tellText(NMHDR& what) const {
  LVITEMW& item = reinterpret_cast<NMLVDISPINFOW&>(what).item;
  if (!(item.mask & LVIF_TEXT) || item.cchTextMax < 1) return;
  std::wstring text;
  const int row = rows_.gridRow(item.iItem);
  const int at = gridColumn(item.iSubItem);
  if (row >= 1 && row <= grid_.rows() && at >= 0 && at < grid_.cols()) {
    text = wide(view::shownText(grid_, row, at));
    if (column(at).tick) text = text == L"1" ? L"checked" : L"not checked";
  }
  lstrcpynW(item.pszText, text.c_str(), item.cchTextMax);
}

LRESULT GridList::draw(const NMHDR& what) {
  const NMCUSTOMDRAW& drawing = reinterpret_cast<const NMLVCUSTOMDRAW&>(what).nmcd;
  switch (drawing.dwDrawStage) {
    case CDDS_PREPAINT:
      return rows_.count() == 0 ? CDRF_NOTIFYPOSTPAINT : CDRF_NOTIFYITEMDRAW;
    case CDDS_POSTPAINT:
      drawEmpty(drawing.hdc);
      return CDRF_DODEFAULT;
    case CDDS_ITEMPREPAINT:
      drawRow(drawing.hdc, static_cast<int>(drawing.dwItemSpec));
      return CDRF_SKIPDEFAULT;
    default:
      return CDRF_DODEFAULT;
  }
}

// What the grid says in place of its rows.
void GridList::drawEmpty(HDC paper) {
  if (!metrics_ || grid_.emptyText().empty()) return;
  RECT room{};
  GetClientRect(window_, &room);
  RECT headings{};
  if (IsWindowVisible(header())) GetClientRect(header(), &headings);
  InflateRect(&room, -2 * metrics_->step(), 0);
  room.top += headings.bottom + 2 * metrics_->step();
  const int saved = SaveDC(paper);
  SelectObject(paper, metrics_->font());
  SetBkMode(paper, TRANSPARENT);
  SetTextColor(paper, shade(COLOR_WINDOWTEXT, COLOR_WINDOW, 0.62));
  DrawTextW(paper, wide(grid_.emptyText()).c_str(), -1, &room,
            DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
  RestoreDC(paper, saved);
}

void GridList::drawRow(HDC paper, int shown) {
  const int row = rows_.gridRow(shown);
  // A handler may be changing the grid just now; the list is told afterwards.
  if (!metrics_ || row < 1 || row > grid_.rows() || columns_.empty()) return;
  const bool inFocus = GetFocus() == window_ || IsChild(window_, GetFocus());
  const RECT room = roomOf({row, columns_.front()});
  RECT client{};
  GetClientRect(window_, &client);
  const int saved = SaveDC(paper);
  CellPainter painter(paper, grid_, *metrics_);
  painter.beginRow(row, {client.left, room.top, client.right, room.bottom},
                   view::groundOf(grid_, row, shown, inFocus), IsWindowEnabled(window_));
  for (const int at : columns_) {
    if (at < grid_.cols()) painter.drawCell(at, roomOf({row, at}));
  }
  RestoreDC(paper, saved);
}

}  // namespace quillet::windows
