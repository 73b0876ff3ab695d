// Where windows stood and how wide columns were drawn, kept in the practice's settings.
#pragma once

#include <string>

#include "suite/settings.h"
#include "view/kept_places.h"

class QWidget;

namespace quillet::desktop {

class KeptPlaces : public view::KeptPlaces {
 public:
  // Without settings nothing is kept from now on.
  void use(suite::Settings* settings);

  // Puts a window that is about to be shown where it stood, as far as the screen still has room.
  void restore(QWidget& window, const std::string& name) const;
  // It is on the screen: its contents may have made it larger than it was to be.
  static void shown(QWidget& window);
  void keep(const QWidget& window, const std::string& name);
};

}  // namespace quillet::desktop
