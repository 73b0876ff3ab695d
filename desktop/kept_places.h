// Where windows stood and how wide columns were drawn, kept in the settings from one run to the
// next. What a person changes is written when its window closes; what nobody changed is not kept.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "suite/settings.h"

class QWidget;

namespace quillet::desktop {

class KeptPlaces {
 public:
  // Without settings nothing is kept from now on.
  void use(suite::Settings* settings) { settings_ = settings; }

  // Puts a window that is about to be shown where it stood, as far as the screen still has room.
  void restore(QWidget& window, const std::string& name) const;
  // It is on the screen: its contents may have made it larger than it was to be.
  static void shown(QWidget& window);
  void keep(const QWidget& window, const std::string& name);

  // In characters; `column` tells form, grid and heading.
  std::optional<int> width(const std::string& column) const;
  void setWidth(const std::string& column, int characters) { changed_[column] = characters; }
  void keepWidths();

  // How a window is divided, in per cent.
  std::optional<int> divider(const std::string& name) const;
  void keepDivider(const std::string& name, int percent);

 private:
  std::string kept(const char* section, const std::string& key) const;
  void keep(const char* section, const std::string& key, const std::string& value);

  suite::Settings* settings_ = nullptr;
  std::map<std::string, int> changed_;  // widths that are not written yet
};

}  // namespace quillet::desktop
