#pragma once

#include "ColorButton.h"

#include "platform/ColorChooser.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QWidget>

namespace mathx {
class MthX;
}

namespace rows {

// The parametric page: x and y (or r and theta) as functions of the parameter, its range and the
// curve's colour.
class ParametricPage : public QWidget {
  Q_OBJECT

public:
  ParametricPage(platform::ColorChooser& chooser, QWidget* parent = nullptr);

  mathx::MthX* mthParametricX() const { return m_x; }
  mathx::MthX* mthParametricY() const { return m_y; }
  QComboBox* cmbParametricType() const { return m_type; }
  QLineEdit* txtThetaMin() const { return m_min; }
  QLineEdit* txtThetaMax() const { return m_max; }
  ColorButton* colrParametric() const { return m_color; }
  QLabel* lbl_Parametric_X() const { return m_labelX; }
  QLabel* lbl_Parametric_Y() const { return m_labelY; }

signals:
  // 1 for x, 2 for y, as the insert dialog counts them.
  void EditorClicked(int index);
  void Changed();
  void ReplotRequested();

private:
  void TypeChanged();

  mathx::MthX* m_x;
  mathx::MthX* m_y;
  QComboBox* m_type;
  QLineEdit* m_min;
  QLineEdit* m_max;
  ColorButton* m_color;
  QLabel* m_labelX;
  QLabel* m_labelY;
};

}  // namespace rows
