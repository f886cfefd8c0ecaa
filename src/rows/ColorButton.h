#pragma once

#include "platform/ColorChooser.h"

#include <QAbstractButton>

#include <cstdint>

namespace rows {

// A colour picker: a swatch of the colour with a short caption on it (a row's number), which
// opens the colour dialog on a click or Space. Colours are kept as the forms keep them, red in
// the low byte.
class ColorButton : public QAbstractButton {
  Q_OBJECT

public:
  ColorButton(platform::ColorChooser& chooser, QWidget* parent = nullptr);

  std::int32_t Color() const { return m_color; }
  // Sets the colour; ColorChanged follows when it differs.
  void SetColor(std::int32_t color);
  std::int32_t DefaultColor() const { return m_defaultColor; }
  void SetDefaultColor(std::int32_t color) { m_defaultColor = color; }
  QString Caption() const { return text(); }
  void SetCaption(const QString& caption) { setText(caption); }

  QSize sizeHint() const override;

  static QColor ToQColor(std::int32_t color);
  static std::int32_t FromQColor(const QColor& color);

signals:
  void ColorChanged();
  void FocusIn();

protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

private:
  void Choose();

  platform::ColorChooser& m_chooser;
  std::int32_t m_color = 255;
  std::int32_t m_defaultColor = 255;
};

}  // namespace rows
