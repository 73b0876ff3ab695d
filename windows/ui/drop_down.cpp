#include "windows/ui/drop_down.h"

#include <commctrl.h>

#include "view/drop_down_place.h"
#include "view/form_controls.h"
#include "view/grid_acts.h"
#include "windows/ui/this_module.h"

namespace quillet::windows {
namespace {

// In coordinates of the form's window.
view::Bounds boundsOf(HWND field, HWND formWindow) {
  RECT room{};
  GetWindowRect(field, &room);
  MapWindowPoints(nullptr, formWindow, reinterpret_cast<POINT*>(&room), 2);
  return {room.left, room.top, room.right - room.left, room.bottom - room.top};
}

}  // namespace

// The list view inside.
class DropDown::Rows : public OwnedWindow {
 public:
  explicit Rows(DropDown& owner)
      : list(owner.grid_, owner.window(), GridList::Headings::none), owner_(owner) {
    adopt(list.window());
    ShowWindow(window(), SW_SHOWNA);
  }

  GridList list;

 protected:
  std::optional<LRESULT> handle(const WindowMessage& message) override {
    switch (message.id) {
      case WM_MOUSEACTIVATE:
        return MA_NOACTIVATE;
      case WM_NCCALCSIZE: {
        // A bar at the foot would take the room of a row, and that row then asks for one beside it.
        const LONG_PTR style = GetWindowLongPtrW(window(), GWL_STYLE);
        if (style & WS_HSCROLL) SetWindowLongPtrW(window(), GWL_STYLE, style & ~WS_HSCROLL);
        return {};
      }
      case WM_LBUTTONDOWN:
      case WM_LBUTTONDBLCLK:
        owner_.choose({static_cast<short>(LOWORD(message.longer)),
                       static_cast<short>(HIWORD(message.longer))});
        return 0;
      case WM_LBUTTONUP:
      case WM_RBUTTONDOWN:
      case WM_RBUTTONUP:
      case WM_MBUTTONDOWN:
      case WM_CONTEXTMENU:
        return 0;
      default:
        return {};
    }
  }

 private:
  DropDown& owner_;
};

DropDown::DropDown(Grid& grid, view::ActionRunner& runner, HWND formWindow)
    : grid_(grid), runner_(runner), formWindow_(formWindow) {
  adopt(CreateWindowExW(WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW, WC_STATICW, L"",
                        WS_POPUP | WS_BORDER | WS_CLIPCHILDREN, 0, 0, 0, 0, formWindow, nullptr,
                        thisModule(), nullptr));
  rows_ = std::make_unique<Rows>(*this);
}

DropDown::~DropDown() { detach(); }

void DropDown::setMetrics(const Metrics& metrics) {
  metrics_ = &metrics;
  rows_->list.setMetrics(metrics);
}

bool DropDown::wanted() const {
  return metrics_ && field_ && view::isDropped(grid_) && IsWindowVisible(field_) &&
         rows_->list.rows().count() > 0;
}

void DropDown::refresh() {
  if (detached_ || !window()) return;
  rows_->list.refresh();
  if (!wanted()) {
    ShowWindow(window(), SW_HIDE);
    return;
  }
  place();
}

void DropDown::place() {
  RECT client{};
  GetClientRect(formWindow_, &client);
  GridList& list = rows_->list;
  const int rows = list.rows().count();
  const view::Size wanted{metrics_->characters(view::dropDownCharacters(grid_)),
                          list.heightOf(view::dropDownRows(rows)) + 2};
  const view::Bounds at = view::dropDownPlace(
      boundsOf(field_, formWindow_), wanted, list.heightOf(view::dropDownLeastRows(rows)) + 2,
      {static_cast<int>(client.right), static_cast<int>(client.bottom)}, metrics_->pixels(4),
      list.heightOf(1) - list.heightOf(0));
  // All but the border, the list's own margin and the bar beside rows that have no room.
  const bool scrolls = list.heightOf(rows) + 2 > at.height;
  list.setRoom(at.width - 2 - 2 * GetSystemMetrics(SM_CXEDGE) -
               (scrolls ? GetSystemMetrics(SM_CXVSCROLL) : 0));
  POINT corner{at.left, at.top};
  ClientToScreen(formWindow_, &corner);
  SetWindowPos(window(), HWND_TOP, corner.x, corner.y, at.width, at.height,
               SWP_NOACTIVATE | SWP_SHOWWINDOW | SWP_NOOWNERZORDER);
}

void DropDown::choose(POINT place) {
  const int row = rows_->list.cellAt(place).row;
  if (!detached_) view::chooseRow(grid_, row, runner_);
}

std::optional<LRESULT> DropDown::handle(const WindowMessage& message) {
  switch (message.id) {
    case WM_MOUSEACTIVATE:
      return MA_NOACTIVATE;
    case WM_NOTIFY:
      if (detached_ || !rows_) return {};
      return rows_->list.notified(*reinterpret_cast<NMHDR*>(message.longer));
    case WM_SIZE:
      if (rows_ && rows_->window()) {
        MoveWindow(rows_->window(), 0, 0, LOWORD(message.longer), HIWORD(message.longer), TRUE);
      }
      return 0;
    default:
      return {};
  }
}

}  // namespace quillet::windows
