#include "desktop/usual_pixels.h"

namespace quillet::desktop {

std::optional<int> usualPixels(QStyle::PixelMetric metric) {
  switch (metric) {
    case QStyle::PM_DefaultFrameWidth:
      return 1;
    case QStyle::PM_FocusFrameHMargin:  // before the text of an entry
      return 4;
    case QStyle::PM_CheckBoxLabelSpacing:
    case QStyle::PM_RadioButtonLabelSpacing:
    case QStyle::PM_SplitterWidth:
      return 5;
    case QStyle::PM_HeaderMargin:
      return 6;
    case QStyle::PM_HeaderMarkSize:
      return 12;
    case QStyle::PM_IndicatorWidth:
    case QStyle::PM_IndicatorHeight:
    case QStyle::PM_ExclusiveIndicatorWidth:
    case QStyle::PM_ExclusiveIndicatorHeight:
    case QStyle::PM_ScrollBarExtent:
      return 14;
    case QStyle::PM_SmallIconSize:
    case QStyle::PM_ButtonIconSize:
    case QStyle::PM_ListViewIconSize:
    case QStyle::PM_LayoutLeftMargin:
    case QStyle::PM_LayoutTopMargin:
    case QStyle::PM_LayoutRightMargin:
    case QStyle::PM_LayoutBottomMargin:
      return 16;
    case QStyle::PM_MenuButtonIndicator:
      return 18;
    case QStyle::PM_ScrollBarSliderMin:
      return 26;
    case QStyle::PM_MessageBoxIconSize:
      return 48;
    default:
      return std::nullopt;
  }
}

}  // namespace quillet::desktop
