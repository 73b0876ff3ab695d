#include "view/window_place.h"

#include <algorithm>
#include <cstdio>

namespace quillet::view {
namespace {

constexpr const char* maximizedMark = " maximized";
constexpr int least = 100;
constexpr int most = 100'000;

}  // namespace

std::string textOf(const WindowPlace& place) {
  const auto& [left, top, width, height] = place.bounds;
  std::string text = std::to_string(width) + 'x' + std::to_string(height);
  for (const int offset : {left, top}) text += (offset < 0 ? "" : "+") + std::to_string(offset);
  return place.maximized ? text + maximizedMark : text;
}

std::optional<WindowPlace> windowPlaceIn(const std::string& text) {
  WindowPlace place;
  auto& [left, top, width, height] = place.bounds;
  if (std::sscanf(text.c_str(), "%6dx%6d%7d%7d", &width, &height, &left, &top) != 4) return {};
  place.maximized = text.ends_with(maximizedMark);
  if (textOf(place) != text) return {};
  const bool usable = std::min(width, height) >= least && std::max(width, height) <= most &&
                      std::max(std::abs(left), std::abs(top)) <= most;
  return usable ? std::optional(place) : std::nullopt;
}

Bounds within(Bounds wanted, const Bounds& screen) {
  wanted.width = std::min(wanted.width, screen.width);
  wanted.height = std::min(wanted.height, screen.height);
  wanted.left = std::clamp(wanted.left, screen.left, screen.left + screen.width - wanted.width);
  wanted.top = std::clamp(wanted.top, screen.top, screen.top + screen.height - wanted.height);
  return wanted;
}

}  // namespace quillet::view
