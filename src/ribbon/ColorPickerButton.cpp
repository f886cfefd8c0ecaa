#include "ColorPickerButton.h"

#include "ColorPalette.h"
#include "Icons.h"
#include "RibbonText.h"

#include <QIconEngine>
#include <QMenu>
#include <QPainter>
#include <QWidgetAction>

namespace ribbon {

namespace {

// An icon that carries a colour: the control's own icon over a bar of the colour, or, for a
// control without an icon, a rounded swatch. It paints at the size asked for, so that it stays
// sharp at any scale.
class SwatchIconEngine : public QIconEngine {
public:
  SwatchIconEngine(QIcon base, QColor color) : m_base(std::move(base)), m_color(std::move(color)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (mode == QIcon::Disabled) painter->setOpacity(0.45);
    const qreal unit = rect.height() / 16.0;
    if (m_base.isNull()) {
      PaintSwatch(*painter, QRectF(rect).adjusted(1.5 * unit, 1.5 * unit, -1.5 * unit, -1.5 * unit), 2.5 * unit);
    } else {
      const int bar = qRound(3.5 * unit);
      const QRect top(rect.x(), rect.y(), rect.width(), rect.height() - bar);
      m_base.paint(painter, top, Qt::AlignCenter, mode, state);
      PaintSwatch(*painter, QRectF(rect.x() + unit, rect.bottom() + 1 - bar + unit * 0.5, rect.width() - 2 * unit, bar - unit),
                  unit);
    }
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new SwatchIconEngine(m_base, m_color); }

private:
  void PaintSwatch(QPainter& painter, const QRectF& box, qreal radius) const {
    const QColor edge = m_color.lightness() > 200 ? QColor(0x9c, 0xa3, 0xaf) : m_color.darker(130);
    painter.setPen(QPen(edge, qMax<qreal>(1.0, box.height() / 14.0)));
    painter.setBrush(m_color);
    painter.drawRoundedRect(box, radius, radius);
  }

  QIcon m_base;
  QColor m_color;
};

}  // namespace

ColorPickerButton::ColorPickerButton(CommandControl& control, CommandBars& bars, platform::ColorChooser& chooser,
                                     ButtonStyle style, QWidget* parent)
    : RibbonButton(control, bars, style, parent), m_chooser(chooser), m_baseIcon(IconFor(control.IconName())) {
  setProperty("colorPicker", true);
  setPopupMode(QToolButton::MenuButtonPopup);
  BuildMenu();
  Follow();
}

void ColorPickerButton::BuildMenu() {
  auto* menu = new QMenu(this);
  menu->setObjectName(QStringLiteral("RibbonColorMenu"));
  m_palette = new ColorPalette(menu);
  auto* grid = new QWidgetAction(menu);
  grid->setDefaultWidget(m_palette);
  menu->addAction(grid);
  menu->addSeparator();
  m_more = menu->addAction(IconFor(QStringLiteral("color-picker")), tr("More colours..."));
  m_more->setObjectName(QStringLiteral("MoreColours"));
  connect(m_palette, &ColorPalette::Picked, this, &ColorPickerButton::Pick);
  connect(m_more, &QAction::triggered, this, &ColorPickerButton::ChooseMore);
  connect(menu, &QMenu::aboutToShow, this, [this] {
    if (Control() != nullptr) m_palette->SetCurrent(ToQColor(Control()->Color()));
  });
  setMenu(menu);
}

void ColorPickerButton::Follow() {
  RibbonButton::Follow();
  if (Control() == nullptr) return;
  const QColor color = ToQColor(Control()->Color());
  if (color == m_swatch && !icon().isNull()) return;
  m_swatch = color;
  setIcon(QIcon(new SwatchIconEngine(m_baseIcon, m_swatch)));
}

void ColorPickerButton::Pick(const QColor& color) {
  if (menu() != nullptr) menu()->hide();
  CommandControl* control = Control();
  if (control == nullptr || !control->Enabled()) return;
  control->SetColor(FromQColor(color));
  Bars().Execute(*control);
}

void ColorPickerButton::ChooseMore() {
  CommandControl* control = Control();
  if (control == nullptr || !control->Enabled()) return;
  const QString title = control->ToolTip().isEmpty() ? PlainCaption(control->Caption()) : control->ToolTip();
  // The dialog runs its own event loop: the ribbon may be built again before it returns.
  const QPointer<ColorPickerButton> self(this);
  const QPointer<CommandControl> target(control);
  const std::optional<QColor> chosen = m_chooser.Choose(ToQColor(control->Color()), title);
  if (!self || !target || !chosen || !chosen->isValid()) return;
  target->SetColor(FromQColor(*chosen));
  Bars().Execute(*target);
}

}  // namespace ribbon
