#pragma once

#include <QByteArray>
#include <QIconEngine>

namespace ribbon {

// One of the program's own SVG icons, drawn in the look of the moment: its grey and blue strokes
// as written on light windows, lightened on dark ones. The look is read when the icon is painted,
// so buttons made before a change of theme follow it without being made again.
class ThemedIconEngine : public QIconEngine {
public:
  explicit ThemedIconEngine(QByteArray light);

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  QIconEngine* clone() const override;
  QString key() const override { return QStringLiteral("ThemedIconEngine"); }

  // Whether windows are dark at the moment, by the application's palette.
  static bool DarkWindows();

private:
  QByteArray m_light;
  QByteArray m_dark;
};

}  // namespace ribbon
