#pragma once

#include "ColorButton.h"

#include "platform/ColorChooser.h"

#include <QCheckBox>
#include <QComboBox>
#include <QWidget>

#include <array>

namespace mathx {
class MthX;
}

namespace rows {

// The inequality page: one or two sides "y > f(x)", each a relation and an editor, the second
// taking part only while chkInequalityTwoEquation is checked; the colours of the boundary line
// and of the region.
class InequalityPage : public QWidget {
  Q_OBJECT

public:
  InequalityPage(platform::ColorChooser& chooser, QWidget* parent = nullptr);

  mathx::MthX* mthInequality(int i) const { return m_editors.at(static_cast<std::size_t>(i)); }
  QComboBox* cmbInequality(int i) const { return m_relations.at(static_cast<std::size_t>(i)); }
  QCheckBox* chkInequalityTwoEquation() const { return m_twoEquation; }
  QCheckBox* chkInequality() const { return m_first; }
  ColorButton* InequalityLineColor() const { return m_lineColor; }
  ColorButton* mnuInequalityColor() const { return m_fillColor; }

  // The click of chkInequalityTwoEquation, for the program's own use as well.
  void TwoEquationClicked();

signals:
  void EditorClicked(int index);
  void Changed();
  void ReplotRequested();

private:
  std::array<mathx::MthX*, 2> m_editors{};
  std::array<QComboBox*, 2> m_relations{};
  QCheckBox* m_first;
  QCheckBox* m_twoEquation;
  ColorButton* m_lineColor;
  ColorButton* m_fillColor;
};

}  // namespace rows
