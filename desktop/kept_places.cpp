#include "desktop/kept_places.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QVariant>
#include <QWidget>

namespace quillet::desktop {
namespace {

// The size that a window was given before a person came to it.
constexpr const char* givenSize = "givenSize";

view::Bounds boundsOf(const QRect& rect) {
  return {rect.left(), rect.top(), rect.width(), rect.height()};
}

// All but what a title bar takes.
view::Bounds roomOn(const QScreen& screen) {
  const QRect room = screen.availableGeometry();
  return {room.left(), room.top(), room.width(), room.height() - 40};
}

}  // namespace

void KeptPlaces::use(suite::Settings* settings) {
  if (!settings) return useNothing();
  view::KeptPlaces::use(
      {[settings](const auto& section, const auto& key) { return settings->get(section, key); },
       [settings](const auto& section, const auto& key, const auto& value) {
         settings->set(section, key, value);
       }});
}

void KeptPlaces::restore(QWidget& window, const std::string& name) const {
  const auto wanted = place(name);
  if (!wanted) return;
  const auto& [left, top, width, height] = wanted->bounds;
  const QScreen* screen = QGuiApplication::screenAt(QRect(left, top, width, height).center());
  const view::Bounds room = roomOn(screen ? *screen : *window.screen());
  const view::Bounds fitting = view::within(wanted->bounds, room);
  window.resize(fitting.width, fitting.height);
  window.move(fitting.left, fitting.top);
  if (wanted->maximized) window.setWindowState(Qt::WindowMaximized);
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
  const QVariant given = window.property(givenSize);
  const bool moved = window.isMaximized() || (given.isValid() && given.toSize() != window.size());
  if (window.isMinimized() || (!isKept(name) && !moved)) return;
  const QRect rect =
      window.isMaximized() ? window.normalGeometry() : QRect(window.pos(), window.size());
  keepPlace(name, {boundsOf(rect), window.isMaximized()});
}

}  // namespace quillet::desktop
