#include "desktop/flat_style.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>

#include "desktop/style_shapes.h"
#include "desktop/theme.h"
#include "desktop/usual_pixels.h"

namespace quillet::desktop {
namespace {

QColor buttonColour(const QStyleOption* option) {
  const QPalette& palette = option->palette;
  const QColor plain = palette.color(QPalette::Button);
  const bool on = has(option, QStyle::State_On);
  const QColor base = on ? theme::blend(accent(option), plain, 0.18) : plain;
  if (has(option, QStyle::State_Sunken))
    return theme::blend(palette.color(QPalette::Text), base, 0.12);
  if (has(option, QStyle::State_MouseOver) && has(option, QStyle::State_Enabled)) {
    return theme::blend(accent(option), base, 0.08);
  }
  return base;
}

void button(QPainter* painter, const QStyleOption* option) {
  drawArea(painter, option, buttonColour(option));
  if (!has(option, QStyle::State_On)) return;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(accent(option));
  const double one = unit(option);
  const QRectF side(option->rect.left() + 3 * one, option->rect.top() + 5 * one, 3 * one,
                    option->rect.height() - 10 * one);
  painter->drawRoundedRect(side, 1.5 * one, 1.5 * one);
  painter->restore();
}

// A bar without arrows: the thumb alone, clearer under the pointer.
void scrollBar(QPainter* painter, const QStyleOptionSlider& bar, const QRect& thumb) {
  const QColor ground = bar.palette.color(QPalette::Base);
  painter->fillRect(bar.rect, ground);
  if (bar.minimum == bar.maximum) return;
  const bool live = has(&bar, QStyle::State_MouseOver) || has(&bar, QStyle::State_Sunken);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(theme::blend(bar.palette.color(QPalette::Text), ground, live ? 0.45 : 0.25));
  const double inset = 3 * unit(&bar);
  const QRectF shape = QRectF(thumb).adjusted(inset, inset, -inset, -inset);
  const double corner = std::min(shape.width(), shape.height()) / 2;
  painter->drawRoundedRect(shape, corner, corner);
  painter->restore();
}

void headerSection(QPainter* painter, const QStyleOption* option) {
  const QRect& rect = option->rect;
  painter->fillRect(rect, theme::header(option->palette));
  painter->setPen(theme::line(option->palette));
  painter->drawLine(rect.bottomLeft(), rect.bottomRight());
  painter->setPen(theme::blend(theme::line(option->palette), theme::header(option->palette), 0.5));
  painter->drawLine(rect.topRight() + QPoint(0, 4), rect.bottomRight() - QPoint(0, 4));
}

// Between the entries of a menu.
void menuLine(QPainter* painter, const QStyleOption* option) {
  const int thick = qRound(unit(option));
  const int inset = 4 * thick;
  const QRect& rect = option->rect;
  painter->fillRect(rect.left() + inset, rect.center().y(), rect.width() - 2 * inset, thick,
                    theme::line(option->palette));
}

void headerArrow(QPainter* painter, const QStyleOption* option) {
  const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option);
  if (!header || header->sortIndicator == QStyleOptionHeader::None) return;
  // The platform's sense: the arrow of an ascending order points down.
  const bool down = header->sortIndicator == QStyleOptionHeader::SortDown;
  drawChevron(painter, QRectF(option->rect).adjusted(-2, -2, 2, 2), theme::dimmed(option->palette),
              down ? Points::down : Points::up);
}

constexpr int comboArrow = 20;

int scaled(int pixels, const QStyleOption* option, const QWidget* widget) {
  const int line = widget   ? widget->fontMetrics().height()
                   : option ? option->fontMetrics.height()
                            : QFontMetrics(QApplication::font()).height();
  return qRound(pixels * std::max(1.0, line / theme::usualLine));
}

void progressContents(QPainter* painter, const QStyleOptionProgressBar& bar) {
  QRectF room = QRectF(bar.rect);
  const double corner = cornerRadius(&bar);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(
      theme::blend(bar.palette.color(QPalette::Text), bar.palette.window().color(), 0.12));
  painter->drawRoundedRect(room, corner, corner);
  const double whole = std::max(1, bar.maximum - bar.minimum);
  room.setWidth(room.width() * std::clamp((bar.progress - bar.minimum) / whole, 0.0, 1.0));
  painter->setBrush(accent(&bar));
  if (room.width() > 0) painter->drawRoundedRect(room, corner, corner);
  painter->restore();
}

}  // namespace

FlatStyle::FlatStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void FlatStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
  switch (element) {
    case PE_PanelButtonCommand:
      return button(painter, option);
    case PE_PanelLineEdit: {
      const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
      const QPalette::ColorRole role =
          has(option, State_ReadOnly) ? QPalette::Window : QPalette::Base;
      const QColor fill = option->palette.color(role);
      if (frame && frame->lineWidth == 0) return painter->fillRect(option->rect, fill);
      return drawArea(painter, option, fill);
    }
    case PE_PanelMenu:
      painter->fillRect(option->rect, option->palette.color(QPalette::Base));
      return drawFrame(painter, option);
    case PE_Frame:
      if (widget && widget->inherits("QAbstractScrollArea")) return drawFrame(painter, option);
      return drawArea(painter, option, Qt::transparent);
    case PE_FrameFocusRect: {
      // Buttons and tables show the focus in their border.
      if (widget && (widget->inherits("QPushButton") || widget->inherits("QAbstractItemView")))
        return;
      QStyleOption outline(*option);
      const int one = qRound(unit(option));
      outline.rect = option->rect.adjusted(-2 * one, -one, 2 * one, one);
      outline.state |= State_HasFocus;
      return drawArea(painter, &outline, Qt::transparent);
    }
    case PE_PanelScrollAreaCorner:
      return painter->fillRect(option->rect, option->palette.color(QPalette::Base));
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
      return drawTickMark(painter, option);
    case PE_IndicatorRadioButton:
      return drawRadioMark(painter, option);
    case PE_IndicatorHeaderArrow:
      return headerArrow(painter, option);
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void FlatStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
  switch (element) {
    case CE_HeaderSection:
    case CE_HeaderEmptyArea:
      return headerSection(painter, option);
    case CE_PushButtonLabel: {
      const auto* label = qstyleoption_cast<const QStyleOptionButton*>(option);
      if (!label || !widget || !widget->property(leadingText).toBool()) break;
      const int margin = theme::spacing(*widget) * 3 / 2;
      drawItemText(painter, option->rect.adjusted(margin, 0, -margin, 0),
                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, option->palette,
                   has(option, State_Enabled), label->text, QPalette::ButtonText);
      return;
    }
    case CE_MenuItem: {
      const auto* entry = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
      if (!entry || entry->menuItemType != QStyleOptionMenuItem::Separator) break;
      return menuLine(painter, option);
    }
    case CE_ProgressBarGroove:
      return;
    case CE_ProgressBarContents:
      if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option)) {
        return progressContents(painter, *bar);
      }
      break;
    default:
      break;
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void FlatStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
  if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
      bar && control == CC_ScrollBar) {
    return scrollBar(painter, *bar,
                     subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget));
  }
  const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
  if (control != CC_ComboBox || !combo || combo->editable) {
    return QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
  drawArea(painter, option, buttonColour(option));
  const QRect arrow = subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget);
  const QPalette::ColorGroup group =
      has(option, State_Enabled) ? QPalette::Active : QPalette::Disabled;
  drawChevron(painter, arrow, option->palette.color(group, QPalette::ButtonText));
}

QSize FlatStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                  const QSize& contents, const QWidget* widget) const {
  QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  const bool lineHigh = type == CT_PushButton || type == CT_LineEdit || type == CT_ComboBox;
  if (lineHigh && widget) {
    // Boxes and buttons side by side are of one height.
    const int step = theme::spacing(*widget);
    size.setHeight(option->fontMetrics.height() + step + step / 4);
    if (type == CT_PushButton) size.setWidth(std::max(contents.width() + 3 * step, 10 * step));
  }
  if (type == CT_ComboBox && widget)
    size.rwidth() += scaled(comboArrow, option, widget) - comboArrow;
  // Fusion leaves room for a tick of 21 pixels, and draws it as high as the entry.
  if (type == CT_MenuItem) size.rwidth() += std::max(0, qRound(size.height() * 0.79) - 21);
  if (type == CT_ItemViewItem && widget) size.rheight() += theme::spacing(*widget) / 2;
  if (type == CT_HeaderSection && widget) {
    size.setHeight(std::max(size.height(), option->fontMetrics.height() + theme::spacing(*widget)));
  }
  return size;
}

QRect FlatStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                SubControl part, const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control == CC_ComboBox && (part == SC_ComboBoxArrow || part == SC_ComboBoxEditField)) {
    const int arrow = scaled(comboArrow, option, widget);
    const int margin = scaled(4, option, widget);
    const QRect& whole = option->rect;
    const QRect place = part == SC_ComboBoxArrow ? whole.adjusted(whole.width() - arrow, 0, 0, 0)
                                                 : whole.adjusted(margin, 2, -arrow, -2);
    return visualRect(option->direction, whole, place);
  }
  if (control != CC_ScrollBar || !bar) {
    return QProxyStyle::subControlRect(control, option, part, widget);
  }
  const bool upright = bar->orientation == Qt::Vertical;
  const int room = upright ? bar->rect.height() : bar->rect.width();
  const int least = pixelMetric(PM_ScrollBarSliderMin, bar, widget);
  const qint64 range = qint64{bar->maximum} - bar->minimum;
  const qint64 whole = range + bar->pageStep;
  const int share = whole > 0 ? static_cast<int>(qint64{bar->pageStep} * room / whole) : room;
  const int length = range > 0 ? std::clamp(share, std::min(least, room), room) : room;
  const int start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                            room - length, bar->upsideDown);
  const auto stretch = [&](int from, int size) {
    return upright ? QRect(0, from, bar->rect.width(), size)
                   : QRect(from, 0, size, bar->rect.height());
  };
  switch (part) {
    case SC_ScrollBarSlider:
      return visualRect(bar->direction, bar->rect, stretch(start, length));
    case SC_ScrollBarGroove:
      return bar->rect;
    case SC_ScrollBarSubPage:
      return visualRect(bar->direction, bar->rect, stretch(0, start));
    case SC_ScrollBarAddPage:
      return visualRect(bar->direction, bar->rect, stretch(start + length, room - start - length));
    default:
      return {};
  }
}

QIcon FlatStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                              const QWidget* widget) const {
  struct Mark {
    StandardPixmap which;
    QRgb colour;
    char16_t sign;
  };
  static constexpr Mark marks[] = {{SP_MessageBoxInformation, 0xff2f6f9f, u'i'},
                                   {SP_MessageBoxQuestion, 0xff2f6f9f, u'?'},
                                   {SP_MessageBoxWarning, 0xffb7791f, u'!'},
                                   {SP_MessageBoxCritical, 0xffb3372f, u'!'}};
  for (const Mark& mark : marks) {
    if (mark.which != which) continue;
    const int side = pixelMetric(PM_MessageBoxIconSize, option, widget);
    const double ratio = widget ? widget->devicePixelRatioF() : qApp->devicePixelRatio();
    return QIcon(messageMark(QColor(mark.colour), QChar(mark.sign), side, ratio));
  }
  return QProxyStyle::standardIcon(which, option, widget);
}

int FlatStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
  switch (metric) {
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_ButtonDefaultIndicator:
      return 0;
    default:
      break;
  }
  const std::optional<int> usual = usualPixels(metric);
  return usual ? scaled(*usual, option, widget) : QProxyStyle::pixelMetric(metric, option, widget);
}

int FlatStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* answer) const {
  switch (hint) {
    case SH_UnderlineShortcut:
      return 1;
    case SH_DialogButtonLayout:
      return QDialogButtonBox::WinLayout;
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_ComboBox_Popup:
    case SH_ItemView_ActivateItemOnSingleClick:
      return 0;
    default:
      return QProxyStyle::styleHint(hint, option, widget, answer);
  }
}

}  // namespace quillet::desktop
