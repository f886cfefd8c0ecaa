#include "ThemedIconEngine.h"

#include "platform/Theme.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>

namespace ribbon {

ThemedIconEngine::ThemedIconEngine(QByteArray light)
    : m_light(std::move(light)), m_dark(platform::Theme::DarkSvg(m_light)) {}

bool ThemedIconEngine::DarkWindows() {
  return QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

void ThemedIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) {
  const qreal ratio = painter->device() != nullptr ? painter->device()->devicePixelRatioF() : 1.0;
  QPixmap picture = pixmap(rect.size() * ratio, mode, state);
  picture.setDevicePixelRatio(ratio);
  painter->drawPixmap(rect, picture);
}

QPixmap ThemedIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) {
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QSvgRenderer renderer(DarkWindows() ? m_dark : m_light);
  {
    QPainter painter(&image);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
  }
  QPixmap picture = QPixmap::fromImage(image);
  if (mode == QIcon::Normal || QApplication::style() == nullptr) return picture;
  // Disabled and selected icons look as the style makes them for any other icon.
  QStyleOption option;
  option.palette = QGuiApplication::palette();
  return QApplication::style()->generatedIconPixmap(mode, picture, &option);
}

QIconEngine* ThemedIconEngine::clone() const { return new ThemedIconEngine(*this); }

}  // namespace ribbon
