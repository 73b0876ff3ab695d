// Where windows stood and how wide columns were drawn, kept in settings from one run to the next.
// What a person changes is written when its window closes; what nobody changed is not kept.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "view/window_place.h"

namespace quillet {
class Grid;
}

namespace quillet::view {

class KeptPlaces {
 public:
  // The settings, by section and key; "" for what they do not hold.
  struct Store {
    std::function<std::string(const std::string& section, const std::string& key)> get;
    std::function<void(const std::string& section, const std::string& key,
                       const std::string& value)>
        set;
  };
  void use(Store store) { store_ = std::move(store); }
  // Nothing is kept from now on.
  void useNothing() { store_ = {}; }

  // Where the window of that name stood.
  std::optional<WindowPlace> place(const std::string& window) const;
  bool isKept(const std::string& window) const;
  void keepPlace(const std::string& window, const WindowPlace& place);

  // Gives the columns the widths that a person gave them, but those that take what others leave.
  void restoreWidths(Grid& grid) const;
  // A person gave a column this width, in characters. Written by keepWidths.
  void changeWidth(const Grid& grid, int column, int characters);
  void keepWidths();

  // How a window is divided, in per cent.
  std::optional<int> divider(const std::string& window) const;
  void keepDivider(const std::string& window, int percent);

 private:
  std::string kept(const char* section, const std::string& key) const;
  void keep(const char* section, const std::string& key, const std::string& value);
  std::optional<int> width(const std::string& column) const;

  Store store_;
  std::map<std::string, int> changed_;  // widths that are not written yet
};

}  // namespace quillet::view
