// How large a form's window and its letters are, and where it stands.
#include <algorithm>

#include "windows/ui/dpi.h"
#include "windows/ui/extents.h"
#include "windows/ui/font_fitting.h"
#include "windows/ui/form_window.h"
#include "windows/ui/kept_window.h"

namespace quillet::windows {

// --- letters ------------------------------------------------------------------------------------

// What it shows may have become more, or fewer again.
void FormWindow::fitFonts() {
  if (IsIconic(window()) || (font_.shrunk == 1 && fits(needs_.bare, mostRoom()))) return;
  const double before = font_.shrunk;
  const UINT dpi = dpiOf(window());
  if (fittingPart(*views_, mostRoom(), dpi, font_) != before) takeFonts(dpi);
}

// It shows more than its window has room for: both years, another page.
void FormWindow::grow() {
  const auto now = placeOf(window());
  if (!now || now->maximized) return;
  const SIZE border = bordersOf(window());
  const RECT area = workArea(window());
  const view::Bounds room{area.left, area.top, area.right - area.left, area.bottom - area.top};
  view::Bounds wanted = now->bounds;
  wanted.width =
      std::max<int>(wanted.width, std::min<int>(room.width, needs_.least.cx + border.cx));
  wanted.height =
      std::max<int>(wanted.height, std::min<int>(room.height, needs_.least.cy + border.cy));
  if (wanted.width == now->bounds.width && wanted.height == now->bounds.height) return;
  wanted = view::within(wanted, room);
  // Nobody moved it: it opens again as it was designed.
  if (now->bounds == given_) given_ = wanted;
  MoveWindow(window(), wanted.left, wanted.top, wanted.width, wanted.height, TRUE);
}

// What its monitor has for the inside of the window.
SIZE FormWindow::mostRoom() const {
  const RECT area = workArea(window());
  const SIZE border = bordersOf(window());
  return {area.right - area.left - border.cx, area.bottom - area.top - border.cy};
}

void FormWindow::takeFonts(UINT dpi) {
  if (!IsIconic(window())) font_.shrunk = fittingPart(*views_, mostRoom(), dpi, font_);
  auto metrics = std::make_unique<Metrics>(dpi, font_);
  views_->setMetrics(*metrics);
  lists_->setMetrics(*metrics);
  metrics_ = std::move(metrics);
  place();
  lists_->refresh(*views_);
}

// --- size and place -----------------------------------------------------------------------------

void FormWindow::takeSize(HWND beside, const FormWindows::Place& wanted) {
  const RECT area = workArea(beside);
  place();
  const SIZE border = bordersOf(window());
  const RECT usual = usualPlace(form_.size, area);
  const LONG width = std::min(area.right - area.left,
                              std::max(usual.right - usual.left, needs_.least.cx + border.cx));
  const LONG height = std::min(area.bottom - area.top,
                               std::max(usual.bottom - usual.top, needs_.least.cy + border.cy));
  MoveWindow(window(), static_cast<int>((area.left + area.right - width) / 2),
             static_cast<int>((area.top + area.bottom - height) / 2), static_cast<int>(width),
             static_cast<int>(height), FALSE);
  moveTo(wanted);
}

void FormWindow::moveTo(const FormWindows::Place& place) {
  const Metrics::Wish font{form_.size.font, place.fontPoints, place.fontName, font_.shrunk};
  if (!(font == font_)) {
    font_ = font;
    guarded([&] { takeFonts(dpiOf(window())); });
  }
  if (!place.left && !place.top && !place.width && !place.height) return;
  RECT now{};
  GetWindowRect(window(), &now);
  const LONG left = place.left.value_or(now.left);
  const LONG top = place.top.value_or(now.top);
  const RECT wanted = withinReach({left, top, left + place.width.value_or(now.right - now.left),
                                   top + place.height.value_or(now.bottom - now.top)});
  MoveWindow(window(), wanted.left, wanted.top, wanted.right - wanted.left,
             wanted.bottom - wanted.top, TRUE);
  if (const auto reached = placeOf(window())) given_ = reached->bounds;
}

void FormWindow::restore() {
  if (const auto place = placeOf(window())) given_ = place->bounds;
  const auto kept = windows_.keptPlaces().place(form_.name());
  if (!kept) return;
  restorePlace(window(), *kept);
  maximizes_ = kept->maximized;
}

void FormWindow::keepPlace() noexcept {
  guarded([&] {
    view::KeptPlaces& kept = windows_.keptPlaces();
    const auto now = placeOf(window());
    const bool moved = now && (now->maximized || now->bounds != given_);
    if (now && (moved || kept.isKept(form_.name()))) kept.keepPlace(form_.name(), *now);
    kept.keepWidths();
  });
}

void FormWindow::bound(MINMAXINFO& bounds) const {
  const RECT area = workArea(window());
  const SIZE border = bordersOf(window());
  bounds.ptMinTrackSize = {std::min(needs_.least.cx + border.cx, area.right - area.left),
                           std::min(needs_.least.cy + border.cy, area.bottom - area.top)};
}

void FormWindow::resized(WPARAM how) {
  if (how == SIZE_MINIMIZED) return;
  place();
  lists_->refresh(*views_);
  windows_.perform([&] { form_.resized(); });
}

}  // namespace quillet::windows
