#include "desktop/screenshot.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QWidget>
#include <vector>

namespace quillet::desktop {
namespace {

bool liesOver(const QWidget& widget) {
  if (!widget.isVisible()) return false;
  const Qt::WindowType type = widget.windowType();
  return type == Qt::Dialog || type == Qt::Popup || type == Qt::SplashScreen;
}

}  // namespace

QImage screenshot(QWidget* front) {
  std::vector<QWidget*> layers;
  if (front && front->isVisible()) layers.push_back(front);
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget != front && liesOver(*widget)) layers.push_back(widget);
  }
  QRect whole;
  for (const QWidget* layer : layers) whole |= layer->geometry();
  if (whole.isEmpty()) return {};
  const double ratio = layers.front()->devicePixelRatioF();
  QImage image(whole.size() * ratio, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(ratio);
  image.fill(QApplication::palette().color(QPalette::Window));
  QPainter painter(&image);
  for (QWidget* layer : layers) {
    painter.drawPixmap(layer->geometry().topLeft() - whole.topLeft(), layer->grab());
    if (layer == layers.front()) continue;
    painter.setPen(QApplication::palette().color(QPalette::Mid));
    painter.drawRect(
        QRect(layer->geometry().topLeft() - whole.topLeft(), layer->size()).adjusted(0, 0, -1, -1));
  }
  return image;
}

}  // namespace quillet::desktop
