#include "windows/ui/form_views.h"

#include <algorithm>
#include <set>
#include <utility>

#include "controls/basic_controls.h"
#include "view/form_controls.h"
#include "windows/com/text.h"
#include "windows/ui/child_window.h"
#include "windows/ui/grid_view.h"
#include "windows/ui/make_view.h"

namespace quillet::windows {
namespace {

void collect(const LayoutItem& node, std::set<unsigned>& controls) {
  if (node.control && view::hasPlace(node)) controls.insert(node.id);
  for (const LayoutItem& child : node.children) collect(child, controls);
}

// Texts of commands one under the other begin at the left.
void leadText(HWND button, const Metrics& metrics) {
  SetWindowLongPtrW(button, GWL_STYLE, GetWindowLongPtrW(button, GWL_STYLE) | BS_LEFT);
  RECT margin{metrics.step(), 0, metrics.step() / 2, 0};
  SendMessageW(button, BCM_SETTEXTMARGIN, 0, reinterpret_cast<LPARAM>(&margin));
}

}  // namespace

FormViews::~FormViews() {
  for (const auto& [id, placed] : views_) {
    if (placed.label) DestroyWindow(placed.label);
  }
}

// --- the views of an arrangement ----------------------------------------------------------------

void FormViews::arrange() {
  std::set<unsigned> present;
  collect(form_.arrangement(), present);
  for (auto entry = views_.begin(); entry != views_.end();) {
    if (present.contains(entry->first)) {
      ++entry;
      continue;
    }
    setLabel(entry->second, {});
    ControlView::discard(std::move(entry->second.view));
    entry = views_.erase(entry);
  }
  add(form_.arrangement(), {});
  HWND below = HWND_TOP;
  order(form_.arrangement(), below);
}

void FormViews::add(const LayoutItem& node, const view::Place& place) {
  if (node.control && view::hasPlace(node)) {
    Placed& placed = views_[node.id];
    if (!placed.view) {
      placed.view = makeView(*node.control, runner_, window_);
      if (auto* grid = dynamic_cast<GridView*>(placed.view.get())) grid->keepWidthsIn(kept_);
      if (placed.view && metrics_) {
        placed.view->setMetrics(*metrics_);
        if (place.inList && view::isButton(node)) leadText(placed.view->window(), *metrics_);
      }
    }
    if (placed.view) {
      setLabel(placed, node.label);
    } else {
      views_.erase(node.id);
    }
  }
  const view::Place inside = view::placeIn(node, 0);
  for (const LayoutItem& child : node.children) add(child, inside);
}

void FormViews::setLabel(Placed& placed, const std::string& text) {
  if (placed.labelText == text) return;
  placed.labelText = text;
  if (text.empty()) {
    placed.view->setLabel(nullptr);
    DestroyWindow(std::exchange(placed.label, nullptr));
    return;
  }
  if (!placed.label) {
    placed.labelAt = {};
    placed.label = makeChild(L"STATIC", window_, SS_LEFT | SS_CENTERIMAGE);
    if (metrics_) {
      SendMessageW(placed.label, WM_SETFONT, reinterpret_cast<WPARAM>(metrics_->font()), FALSE);
    }
  }
  SetWindowTextW(placed.label, wide(text).c_str());
  placed.view->setLabel(placed.label);
}

// A label stands right before its control, for those who have the window read to them; a frame lies
// below what it holds.
void FormViews::order(const LayoutItem& node, HWND& below) {
  constexpr UINT staying = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
  for (const LayoutItem& child : node.children) order(child, below);
  const auto found = node.control ? views_.find(node.id) : views_.end();
  if (found == views_.end()) return;
  for (const HWND window : {found->second.label, found->second.view->window()}) {
    if (!window) continue;
    SetWindowPos(window, below, 0, 0, 0, 0, staying);
    below = window;
  }
}

void FormViews::setMetrics(const Metrics& metrics) {
  metrics_ = &metrics;
  for (auto& [id, placed] : views_) {
    placed.view->setMetrics(metrics);
    if (!placed.label) continue;
    SendMessageW(placed.label, WM_SETFONT, reinterpret_cast<WPARAM>(metrics.font()), TRUE);
  }
}

void FormViews::refresh() {
  const auto present = view::presentIds(form_);
  for (const auto& [id, placed] : views_) {
    // A control that the form has just removed is not asked any more.
    if (present.contains(id)) {
      placed.view->refresh();
    } else {
      placed.view->detach();
      ShowWindow(placed.view->window(), SW_HIDE);
      if (placed.label) ShowWindow(placed.label, SW_HIDE);
    }
  }
}

void FormViews::systemChanged(UINT message, WPARAM wide, LPARAM longer) {
  for (const auto& [id, placed] : views_) {
    SendMessageW(placed.view->window(), message, wide, longer);
  }
}

void FormViews::detach() {
  for (const auto& [id, placed] : views_) placed.view->detach();
}

ControlView* FormViews::viewOf(const Control* control) const {
  if (!view::isPresent(form_, control)) return nullptr;
  const auto found = views_.find(control->id());
  return found == views_.end() ? nullptr : found->second.view.get();
}

ControlView* FormViews::viewOf(HWND window) const {
  for (const auto& [id, placed] : views_) {
    if (placed.view->window() == window) return placed.view.get();
  }
  return nullptr;
}

// --- their places -------------------------------------------------------------------------------

Piece FormViews::pieceOf(const LayoutItem& node, const Metrics& metrics) const {
  Piece piece;
  const auto found = views_.find(node.id);
  if (found == views_.end()) return piece;
  const Placed& placed = found->second;
  const int step = metrics.step();
  piece.present = node.control->visible();
  piece.labelWidth = placed.label ? metrics.widthOf(wide(placed.labelText), false) : 0;
  if (node.kind == LayoutItem::Kind::frame) {
    const LONG margin = 3 * step / 2;
    if (!node.control->caption().empty()) {
      piece.inside = {margin, metrics.line() + margin, margin, margin};
    }
    return piece;
  }
  piece.wanted = piece.least = placed.view->wantedSize(metrics);
  if (dynamic_cast<const Label*>(node.control)) {
    piece.least.cx = 0;  // a long text is cut rather than widening the window
  } else if (view::isTable(node) && !view::hasFixedHeight(node)) {
    piece.least.cy = std::min<LONG>(piece.wanted.cy, 4 * metrics.row());
  }
  return piece;
}

SIZE FormViews::bare(const Metrics& metrics) const {
  const Layout::PieceOf pieces = [&](const LayoutItem& node) { return pieceOf(node, metrics); };
  return Layout(form_.arrangement(), metrics, pieces).bare();
}

FormViews::Needs FormViews::place(const RECT& room) {
  const Layout::PieceOf pieces = [this](const LayoutItem& node) {
    return pieceOf(node, *metrics_);
  };
  const Layout layout(form_.arrangement(), *metrics_, pieces);
  std::vector<Move> moves;
  for (const Placement& placement : layout.place(room)) {
    const auto found = views_.find(placement.control);
    if (found != views_.end()) put(found->second, placement, moves);
  }
  perform(moves);
  return {layout.least(), layout.bare()};
}

void FormViews::put(Placed& placed, const Placement& placement, std::vector<Move>& moves) {
  const auto move = [&](HWND window, RECT& at, const RECT& to) {
    if (!window || EqualRect(&at, &to)) return;
    at = to;
    moves.push_back({window, to});
  };
  move(placed.label, placed.labelAt, placement.label);
  move(placed.view->window(), placed.at, placement.place);
}

// All at once, so that the window is drawn once.
void FormViews::perform(const std::vector<Move>& moves) {
  constexpr UINT alone = SWP_NOZORDER | SWP_NOACTIVATE;
  HDWP together = moves.empty() ? nullptr : BeginDeferWindowPos(static_cast<int>(moves.size()));
  for (const auto& [window, to] : moves) {
    if (!together) break;
    together = DeferWindowPos(together, window, nullptr, to.left, to.top, to.right - to.left,
                              to.bottom - to.top, alone);
  }
  if (together && EndDeferWindowPos(together)) return;
  for (const auto& [window, to] : moves) {
    SetWindowPos(window, nullptr, to.left, to.top, to.right - to.left, to.bottom - to.top, alone);
  }
}

}  // namespace quillet::windows
