#include "desktop/report_style.h"

#include "desktop/text.h"
#include "suite/preferences.h"

namespace quillet::desktop {

ReportStyle ReportStyle::of(const suite::Settings& settings) {
  const std::string orientation = suite::preferences::orientation.in(settings);
  return {orientation == "portrait"    ? Orientation::portrait
          : orientation == "landscape" ? Orientation::landscape
                                       : Orientation::automatic,
          view::groupingNamed(suite::preferences::grouping.in(settings))};
}

QString ReportStyle::shown(const suite::ReportCell& cell) const {
  return toQt(cell.align == Align::right ? view::grouped(cell.text, grouping) : cell.text);
}

}  // namespace quillet::desktop
