#include "desktop/kept_places.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QVariant>
#include <QWidget>
#include <charconv>
#include <utility>

#include "view/window_place.h"

namespace quillet::desktop {
namespace {

constexpr const char* windows = "Windows";
constexpr const char* columns = "Columns";
constexpr const char* dividers = "Dividers";
// The size that a window was given before a person came to it.
constexpr const char* givenSize = "givenSize";

// Nothing when the text is no number within these bounds.
std::optional<int> numberIn(const std::string& text, int least, int most) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number);
  const bool sound = error == std::errc() && stopped == end && number >= least && number <= most;
  return sound ? std::optional(number) : std::nullopt;
}

view::Bounds boundsOf(const QRect& rect) {
  return {rect.left(), rect.top(), rect.width(), rect.height()};
}

// All but what a title bar takes.
view::Bounds roomOn(const QScreen& screen) {
  const QRect room = screen.availableGeometry();
  return {room.left(), room.top(), room.width(), room.height() - 40};
}

}  // namespace

std::string KeptPlaces::kept(const char* section, const std::string& key) const {
  return settings_ ? settings_->get(section, key) : std::string();
}

void KeptPlaces::keep(const char* section, const std::string& key, const std::string& value) {
  if (settings_ && kept(section, key) != value) settings_->set(section, key, value);
}

void KeptPlaces::restore(QWidget& window, const std::string& name) const {
  const auto place = view::windowPlaceIn(kept(windows, name));
  if (!place) return;
  const auto& [left, top, width, height] = place->bounds;
  const QScreen* screen = QGuiApplication::screenAt(QRect(left, top, width, height).center());
  const view::Bounds room = roomOn(screen ? *screen : *window.screen());
  const view::Bounds fitting = view::within(place->bounds, room);
  window.resize(fitting.width, fitting.height);
  window.move(fitting.left, fitting.top);
  if (place->maximized) window.setWindowState(Qt::WindowMaximized);
}

void KeptPlaces::shown(QWidget& window) {
  if (window.property(givenSize).isValid()) return;
  // Its layouts come to rest.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  window.setProperty(givenSize, window.size().expandedTo(window.minimumSizeHint()));
  if (window.isMaximized()) return;
  window.resize(window.property(givenSize).toSize());
  // The window manager has placed it, and may not have put its frame around it yet.
  const QRect now(window.pos(), window.size());
  if (window.screen()->availableGeometry().contains(now)) return;
  const view::Bounds inside = view::within(boundsOf(now), roomOn(*window.screen()));
  window.move(inside.left, inside.top);
}

void KeptPlaces::keep(const QWidget& window, const std::string& name) {
  const bool known = !kept(windows, name).empty();
  const QVariant given = window.property(givenSize);
  const bool moved = window.isMaximized() || (given.isValid() && given.toSize() != window.size());
  if (window.isMinimized() || (!known && !moved)) return;
  const QRect rect =
      window.isMaximized() ? window.normalGeometry() : QRect(window.pos(), window.size());
  keep(windows, name, view::textOf({boundsOf(rect), window.isMaximized()}));
}

std::optional<int> KeptPlaces::width(const std::string& column) const {
  const auto changed = changed_.find(column);
  return changed == changed_.end() ? numberIn(kept(columns, column), 2, 200) : changed->second;
}

void KeptPlaces::keepWidths() {
  for (const auto& [column, characters] : std::exchange(changed_, {})) {
    keep(columns, column, std::to_string(characters));
  }
}

std::optional<int> KeptPlaces::divider(const std::string& name) const {
  return numberIn(kept(dividers, name), 5, 95);
}

void KeptPlaces::keepDivider(const std::string& name, int percent) {
  keep(dividers, name, std::to_string(percent));
}

}  // namespace quillet::desktop
