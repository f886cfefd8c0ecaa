#include "PictureIcons.h"

#include <QFont>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

#include <functional>

namespace output {

namespace {

using Drawing = std::function<void(QPainter&, const QRectF&, bool enabled)>;

// An icon whose every size is painted afresh, so it is sharp on any screen.
class DrawnIcon : public QIconEngine {
public:
  explicit DrawnIcon(Drawing draw) : m_draw(std::move(draw)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setRenderHint(QPainter::TextAntialiasing, true);
    const double side = std::min(rect.width(), rect.height());
    m_draw(*painter, QRectF(rect.center().x() - side / 2 + 0.5, rect.center().y() - side / 2 + 0.5, side, side),
           mode != QIcon::Disabled);
    painter->restore();
  }
  QIconEngine* clone() const override { return new DrawnIcon(m_draw); }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1);
  }
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override {
    QPixmap pixmap(size * scale);
    pixmap.fill(Qt::transparent);
    pixmap.setDevicePixelRatio(scale);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return pixmap;
  }

private:
  Drawing m_draw;
};

QColor Shown(QColor color, bool enabled) { return enabled ? color : QColor(0x9c, 0xa3, 0xaf); }

// A rising curve over a small grid of the page, in the accent colour.
void Curve(QPainter& painter, const QRectF& box, const QColor& accent, double line) {
  QPainterPath curve;
  curve.moveTo(box.left(), box.bottom());
  curve.cubicTo(box.left() + box.width() * 0.35, box.bottom() - box.height() * 0.1,
                box.left() + box.width() * 0.45, box.top(), box.right(), box.top() + box.height() * 0.15);
  painter.setPen(QPen(QColor(0xcb, 0xd5, 0xe1), line * 0.6));
  painter.drawLine(QPointF(box.left(), box.bottom()), QPointF(box.right(), box.bottom()));
  painter.drawLine(QPointF(box.left(), box.top()), QPointF(box.left(), box.bottom()));
  painter.setPen(QPen(accent, line * 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(curve);
}

}  // namespace

QIcon FileBadgeIcon(const QString& label, const QColor& accent) {
  return QIcon(new DrawnIcon([label, accent](QPainter& painter, const QRectF& r, bool enabled) {
    const double s = r.width();
    const double line = std::max(1.0, s / 32);
    const QColor colour = Shown(accent, enabled);
    // The page, with its top right corner folded.
    const QRectF page(r.left() + s * 0.16, r.top() + s * 0.04, s * 0.66, s * 0.92);
    const double fold = s * 0.2;
    QPainterPath sheet;
    sheet.moveTo(page.topLeft());
    sheet.lineTo(page.right() - fold, page.top());
    sheet.lineTo(page.right(), page.top() + fold);
    sheet.lineTo(page.bottomRight());
    sheet.lineTo(page.bottomLeft());
    sheet.closeSubpath();
    painter.setPen(QPen(QColor(0x94, 0xa3, 0xb8), line));
    painter.setBrush(Qt::white);
    painter.drawPath(sheet);
    QPainterPath corner;
    corner.moveTo(page.right() - fold, page.top());
    corner.lineTo(page.right() - fold, page.top() + fold);
    corner.lineTo(page.right(), page.top() + fold);
    corner.closeSubpath();
    painter.setBrush(QColor(0xe2, 0xe8, 0xf0));
    painter.drawPath(corner);
    Curve(painter, QRectF(page.left() + s * 0.1, page.top() + s * 0.16, page.width() - s * 0.22, s * 0.26), colour, line);
    // The band with the file type, reaching out over the page's left edge.
    const QRectF band(r.left() + s * 0.02, r.top() + s * 0.54, s * 0.72, s * 0.3);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(band, s * 0.06, s * 0.06);
    QFont font;
    font.setPixelSize(std::max(6, static_cast<int>(s * 0.22)));
    font.setWeight(QFont::Bold);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(band, Qt::AlignCenter, label);
  }));
}

QIcon ClipboardIcon(const QColor& accent) {
  return QIcon(new DrawnIcon([accent](QPainter& painter, const QRectF& r, bool enabled) {
    const double s = r.width();
    const double line = std::max(1.0, s / 32);
    const QColor colour = Shown(accent, enabled);
    const QRectF board(r.left() + s * 0.14, r.top() + s * 0.1, s * 0.72, s * 0.86);
    painter.setPen(QPen(QColor(0x94, 0xa3, 0xb8), line));
    painter.setBrush(QColor(0xf1, 0xf5, 0xf9));
    painter.drawRoundedRect(board, s * 0.08, s * 0.08);
    // The picture on it.
    const QRectF picture(board.left() + s * 0.1, board.top() + s * 0.2, board.width() - s * 0.2, board.height() - s * 0.3);
    painter.setBrush(Qt::white);
    painter.drawRect(picture);
    Curve(painter, picture.adjusted(s * 0.06, s * 0.08, -s * 0.06, -s * 0.08), colour, line);
    // The clip.
    const QRectF clip(r.left() + s * 0.34, r.top() + s * 0.03, s * 0.32, s * 0.16);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(clip, s * 0.04, s * 0.04);
  }));
}

}  // namespace output
