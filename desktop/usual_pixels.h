// The measures of the widgets' parts.
#pragma once

#include <QStyle>
#include <optional>

namespace quillet::desktop {

// How many pixels of the usual font a part takes, to be scaled with the font beside it; the
// platform would take pixels of the screen, however large the font is. Nothing for what it may
// measure.
std::optional<int> usualPixels(QStyle::PixelMetric metric);

}  // namespace quillet::desktop
