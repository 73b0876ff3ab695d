#include "windows/ui/grid_view.h"

#include <commctrl.h>

#include <utility>

#include "controls/row_text.h"
#include "controls/scoped_flag.h"
#include "view/grid_acts.h"
#include "windows/ui/clipboard.h"
#include "windows/ui/keys.h"
#include "windows/ui/message_scope.h"

namespace quillet::windows {
namespace {

POINT placeOf(const WindowMessage& message) {
  return {static_cast<short>(LOWORD(message.longer)), static_cast<short>(HIWORD(message.longer))};
}

}  // namespace

GridView::GridView(Grid& grid, view::ActionRunner& runner, HWND parent)
    : ControlView(grid, runner, parent),
      grid_(grid),
      list_(grid, parent, GridList::Headings::shown) {
  adopt(list_.window());
}

SIZE GridView::wantedSize(const Metrics& metrics) const {
  const int rows = grid_.fixedRows();
  const int height = list_.heightOf(rows > 0 ? rows : 3);
  const bool other = this->metrics() && this->metrics()->row() != metrics.row();
  return {metrics.characters(20),
          other ? MulDiv(height, metrics.row(), this->metrics()->row()) : height};
}

void GridView::metricsChanged() { list_.setMetrics(*metrics()); }

// Its first headings say what its rows are.
std::string GridView::ownName() const {
  std::string name;
  int told = 0;
  for (const GridColumn& column : grid_.columns()) {
    if (column.hidden || column.heading.empty() || told == 2) continue;
    name += (told++ == 0 ? "" : ", ") + column.heading;
  }
  return name.empty() ? ControlView::ownName() : name;
}

// The text of a list is nowhere to be seen, and many ask for no other name.
void GridView::tellName(const std::wstring& name) {
  ControlView::tellName(name);
  SetWindowTextW(window(), name.c_str());
}

void GridView::draw() {
  if (kept_) kept_->restoreWidths(grid_);
  list_.refresh();
  fitRows();
}

// A row is shown whole or not at all: what is left over of the height stays outside the list. A
// scroll bar that comes or goes changes how much that is.
void GridView::fitRows() {
  if (fitting_ || given_ == 0) return;
  const ScopedFlag guard(fitting_);
  RECT room{};
  GetWindowRect(window(), &room);
  if (room.bottom - room.top == list_.wholeRows(given_)) return;
  SetWindowPos(window(), nullptr, 0, 0, static_cast<int>(room.right - room.left), given_,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// --- keys ---------------------------------------------------------------------------------------

void GridView::keysTyped(const std::vector<Key>& typed) {
  ControlView::keysTyped(typed);
  if (detached() || typed.size() != 1 || !metrics()) return;
  const int across = metrics()->pixels(40);
  if (typed.front() == keys::Left) list_.scrollAcross(-across);
  if (typed.front() == keys::Right) list_.scrollAcross(across);
}

bool GridView::keepsKey(WPARAM code) const {
  if (editor_) return isEditingKey(code);
  const auto command = editingCommand(code);
  return command == WM_COPY || command == EM_SETSEL;
}

// Whatever else is pressed is none of the list's: it would choose rows by itself.
bool GridView::commandKey(WPARAM code) {
  if (editingCommand(code) == UINT{WM_PASTE}) takesCells(clipboardText(window()));
  if (code == VK_F2) {
    edit({grid_.current(), view::firstWritten(grid_, grid_.current())});
  } else {
    selectionKey(code);
  }
  return true;
}

// Selecting and copying rows, and ordering them without the mouse.
void GridView::selectionKey(WPARAM code) {
  if (isHeld(VK_MENU)) return;
  const auto command = editingCommand(code);
  if (command == WM_COPY) {
    setClipboardText(window(), spreadsheetText());
  } else if (command == EM_SETSEL) {
    view::selectAllRows(grid_, runner());
  } else if (isHeld(VK_CONTROL)) {
    if (code >= '1' && code <= '9')
      view::sortByShown(grid_, static_cast<int>(code - '0'), runner());
  } else if (isHeld(VK_SHIFT)) {
    const int end = view::extendSelection(grid_, namedKey(code), runner());
    if (end > 0 && !detached()) list_.reveal(end);
  }
}

// The rows that are copied, their lines ended as the system ends them.
std::string GridView::spreadsheetText() const {
  std::string text;
  for (const char c : copiedRows(grid_)) {
    if (c == '\n' && !text.ends_with('\r')) text += '\r';
    text += c;
  }
  return text;
}

void GridView::popUp() {
  perform([&] { grid_.Popup(); });
}

// --- editing a cell -----------------------------------------------------------------------------

bool GridView::edit(GridCell cell) {
  if (!view::isWritten(grid_, cell.row, cell.column) || !metrics()) return false;
  endEditing(true);
  edited_ = cell;
  const Align align = grid_.columns()[static_cast<std::size_t>(cell.column)].align;
  editor_ = std::make_unique<CellEditor>(window(), align, metrics()->font(), list_.roomOf(cell),
                                         grid_.cell(cell.row, cell.column),
                                         [this](bool taken) { endEditing(taken); });
  return true;
}

void GridView::endEditing(bool taken) {
  if (!editor_) return;
  // Moved out first: the focus that it gives back would end it again.
  std::unique_ptr<CellEditor> editor = std::exchange(editor_, nullptr);
  const std::string text = editor->text();
  if (GetFocus() == editor->window()) takeFocus();
  ShowWindow(editor->window(), SW_HIDE);
  MessageScope::discard(std::move(editor));
  if (!taken || detached() || edited_.row > grid_.rows()) return;
  perform([&] { grid_.edit(edited_.row, edited_.column, text); });
}

// --- mouse --------------------------------------------------------------------------------------

bool GridView::mousePressed(const WindowMessage& message, bool arrived) {
  takeFocus();  // ends the editing of a cell
  const GridCell cell = list_.cellAt(placeOf(message));
  if (detached() || cell.row == 0) return true;
  const bool left = message.id == WM_LBUTTONDOWN;
  const bool upTo = message.wide & MK_SHIFT;
  if (left && (upTo || message.wide & MK_CONTROL)) {
    view::selectRow(grid_, cell.row, upTo, runner());
    return true;
  }
  const bool wasCurrent = !arrived && cell.row == grid_.current();
  view::pressCell(grid_, cell.row, cell.column, left, runner());
  if (wasCurrent && left && !detached()) edit(cell);
  return true;
}

void GridView::doubleClicked(POINT place) {
  const GridCell cell = list_.cellAt(place);
  const auto editing = [&] { return edit(cell); };
  view::doubleClickCell(grid_, cell.row, cell.column, editing, runner());
}

void GridView::showTip(POINT place) {
  const GridCell cell = list_.cellAt(place);
  if (cell == tipped_) return;
  tipped_ = cell;
  tip_.show(window(), list_.cutText(cell), list_.roomOf(cell));
}

std::optional<LRESULT> GridView::received(const WindowMessage& message) {
  switch (message.id) {
    case WM_LBUTTONDBLCLK:
      doubleClicked(placeOf(message));
      return 0;
    case WM_RBUTTONUP:
      popUp();
      return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONDBLCLK:
      return 0;
    case WM_CONTEXTMENU:
      if (message.longer == -1) popUp();  // Shift+F10 or the menu key
      return 0;
    case WM_MOUSEMOVE:
      showTip(placeOf(message));
      return {};
    case WM_CHAR: {
      const auto used = ControlView::received(message);
      return used.value_or(0);
    }
    case WM_KILLFOCUS:
    case WM_SETFOCUS: {
      InvalidateRect(window(), nullptr, FALSE);  // the selection shows where the focus is
      return ControlView::received(message);
    }
    case WM_VSCROLL:
    case WM_HSCROLL:
    case WM_MOUSEWHEEL:
      endEditing(true);
      tipped_ = {};
      return {};
    case WM_SIZE: {
      endEditing(true);
      const LRESULT done = passOn(message);
      list_.resized();
      fitRows();
      return done;
    }
    case WM_WINDOWPOSCHANGING: {
      auto& wanted = *reinterpret_cast<WINDOWPOS*>(message.longer);
      if (wanted.flags & SWP_NOSIZE) return {};
      given_ = wanted.cy;
      wanted.cy = list_.wholeRows(given_);
      return {};
    }
    case WM_NOTIFY: {
      const LRESULT done = passOn(message);
      const auto& what = *reinterpret_cast<const NMHDR*>(message.longer);
      if (what.hwndFrom == list_.header() && !drawing() && !detached()) {
        headingUsed(what);
      }
      return done;
    }
    default:
      return ControlView::received(message);
  }
}

// --- what the list tells ------------------------------------------------------------------------

std::optional<LRESULT> GridView::notified(NMHDR& what) {
  if (detached()) return {};
  switch (what.code) {
    case LVN_ITEMCHANGED:
      rowChosen(what);
      return 0;
    case LVN_COLUMNCLICK: {
      endEditing(true);
      const int column = list_.gridColumn(reinterpret_cast<const NMLISTVIEW&>(what).iSubItem);
      if (column >= 0) perform([&] { grid_.sortBy(column); });
      return 0;
    }
    default:
      return list_.notified(what);
  }
}

// Keys and mouse go through the model; this comes from those who read the window to somebody.
void GridView::rowChosen(const NMHDR& told) {
  const auto& what = reinterpret_cast<const NMLISTVIEW&>(told);
  const bool chosen = (what.uNewState & LVIS_SELECTED) && !(what.uOldState & LVIS_SELECTED);
  const int row = list_.rows().gridRow(what.iItem);
  if (drawing() || !chosen || row < 1 || row == grid_.current()) return;
  perform([&] { grid_.setCurrent(row); });
}

void GridView::headingUsed(const NMHDR& told) {
  const auto& what = reinterpret_cast<const NMHEADERW&>(told);
  int width = 0;
  switch (told.code) {
    case HDN_BEGINTRACKW:
      return endEditing(true);
    case HDN_ENDTRACKW:  // the column is about to get the width
      if (what.pitem && (what.pitem->mask & HDI_WIDTH)) width = what.pitem->cxy;
      break;
    case HDN_DIVIDERDBLCLICKW:  // it has it
      width = ListView_GetColumnWidth(window(), what.iItem);
      break;
    default:
      break;
  }
  const int column = list_.gridColumn(what.iItem);
  if (width < 1 || column < 0) return;
  const int characters = list_.charactersOf(width);
  if (kept_ && characters != grid_.columns()[static_cast<std::size_t>(column)].width) {
    kept_->changeWidth(grid_, column, characters);
  }
  perform([&] { grid_.setColumnWidth(column, characters); });
}

}  // namespace quillet::windows
