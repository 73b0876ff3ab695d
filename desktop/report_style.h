// What a practice prefers of its printed reports.
#pragma once

#include <QString>

#include "suite/document.h"
#include "suite/settings.h"
#include "view/figure_groups.h"

namespace quillet::desktop {

struct ReportStyle {
  // Automatic is portrait wherever the texts can still be read with ease.
  enum class Orientation { automatic, portrait, landscape };

  Orientation orientation = Orientation::automatic;
  view::Grouping grouping = view::Grouping::asWritten;

  static ReportStyle of(const suite::Settings& settings);
  // The cell's text as it is painted.
  QString shown(const suite::ReportCell& cell) const;
};

}  // namespace quillet::desktop
