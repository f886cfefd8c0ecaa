#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <map>

namespace mathx {
class MthX;
}

namespace rows {

class FieldGuard;

// The 3D page: the surface on one of three pages of Tab_3D (a function of two variables or an
// implicit equation; a polar surface of theta and phi; a parametric surface of u and v) with
// their ranges, the mesh and the zoom.
class SurfacePage : public QWidget {
  Q_OBJECT

public:
  explicit SurfacePage(QWidget* parent = nullptr);

  QTabWidget* Tab_3D() const { return m_tabs; }
  // The editors and fields by name: "mth_3D_Function", "txt_thetaMin", ...
  QWidget* Field(const QString& name) const;
  QString Text(const QString& name) const;
  mathx::MthX* Editor(int index) const;  // 1 function, 2 polar, 3 to 5 parametric x, y, z
  QComboBox* cmb3DGrid() const { return m_grid; }
  QLineEdit* txt3DZoom() const { return m_zoom; }
  QPushButton* btnOK() const { return m_ok; }

  // Whether the zoom's text is a number from 0.25 to 3.
  static bool ZoomValid(const QString& text);

signals:
  void EditorClicked(int index);
  void Changed();
  // Tab_3D changed: the surface is drawn anew.
  void ReplotRequested();
  // btnOK: the zoom to apply, evaluated by the caller.
  void ZoomApplied(const QString& text);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QWidget* FunctionTab();
  QWidget* PolarTab();
  QWidget* ParametricTab();
  QLineEdit* RangeField(QWidget* parent, const char* name, const char* text);
  void ZoomEdited();

  QTabWidget* m_tabs;
  std::map<QString, QWidget*> m_fields;
  std::map<int, mathx::MthX*> m_editors;
  QComboBox* m_grid;
  QLineEdit* m_zoom;
  QPushButton* m_ok;
  FieldGuard* m_zoomGuard;
  QTimer m_zoomPause;  // applies a typed zoom when the typing pauses
};

}  // namespace rows
