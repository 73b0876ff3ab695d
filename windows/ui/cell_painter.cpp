#include "windows/ui/cell_painter.h"

#include <algorithm>

#include "view/figure_groups.h"
#include "windows/com/text.h"
#include "windows/ui/colours.h"

namespace quillet::windows {
namespace {

COLORREF colourOf(view::Ground ground) {
  switch (ground) {
    case view::Ground::currentInFocus:
      return GetSysColor(COLOR_HIGHLIGHT);
    case view::Ground::current:
      return shade(COLOR_HIGHLIGHT, COLOR_WINDOW, 0.22);
    case view::Ground::emphasised:
      return shade(COLOR_WINDOWTEXT, COLOR_WINDOW, 0.06);
    case view::Ground::everySecond:
      return shade(COLOR_WINDOWTEXT, COLOR_WINDOW, 0.035);
    case view::Ground::plain:
      break;
  }
  return GetSysColor(COLOR_WINDOW);
}

// In high contrast shades say nothing, and a row is chosen or not.
view::Ground clear(view::Ground ground) {
  const bool current = ground == view::Ground::current || ground == view::Ground::currentInFocus;
  return current ? view::Ground::currentInFocus : view::Ground::plain;
}

UINT alignmentOf(const GridColumn& column) {
  if (column.align == Align::right) return DT_RIGHT;
  return column.align == Align::center ? DT_CENTER : DT_LEFT;
}

}  // namespace

RECT CellPainter::textRoom(const RECT& cell) {
  const int margin = 3 * GetSystemMetrics(SM_CXEDGE);  // as the headings have it
  return {cell.left + margin, cell.top, cell.right - margin, cell.bottom};
}

void CellPainter::beginRow(int row, const RECT& room, view::Ground ground, bool enabled) {
  row_ = row;
  if (highContrast()) ground = clear(ground);
  SetBkColor(paper_, colourOf(ground));
  ExtTextOutW(paper_, 0, 0, ETO_OPAQUE, &room, nullptr, 0, nullptr);
  int text = ground == view::Ground::currentInFocus ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT;
  if (!enabled) text = COLOR_GRAYTEXT;
  SetTextColor(paper_, GetSysColor(text));
  SelectObject(paper_, grid_.rowEmphasised(row) ? metrics_.bold() : metrics_.font());
}

void CellPainter::drawCell(int column, const RECT& room) const {
  const GridColumn& what = grid_.columns()[static_cast<std::size_t>(column)];
  const std::string text = view::shownText(grid_, row_, column);
  if (what.tick) return drawTick(room, text == "1");
  if (text.empty()) return;
  RECT inside = textRoom(room);
  if (inside.right <= inside.left) return;
  const int width = inside.right - inside.left;
  const auto widthOf = [&](const std::string& of) { return metrics_.widthOf(wide(of)); };
  const std::wstring shown =
      wide(view::holdsFigures(what) ? view::figuresIn(width, text, widthOf) : text);
  DrawTextW(paper_, shown.c_str(), static_cast<int>(shown.size()), &inside,
            alignmentOf(what) | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void CellPainter::drawTick(const RECT& room, bool on) const {
  const int side = std::min<int>(metrics_.pixels(13), room.bottom - room.top - 2);
  const int left = (room.left + room.right - side) / 2;
  const int top = (room.top + room.bottom - side) / 2;
  RECT box{left, top, left + side, top + side};
  DrawFrameControl(paper_, &box, DFC_BUTTON,
                   DFCS_BUTTONCHECK | DFCS_FLAT | (on ? DFCS_CHECKED : 0U));
}

}  // namespace quillet::windows
