#pragma once

#include "plot2d/Plot.h"
#include "plot3d/Plot3D.h"

#include <QDialog>
#include <QHash>
#include <QTimer>

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace dialogs {

// The limits of the plot, in one of three modes that the form's tag names: "Plot Range" (the
// plot's current range), "Default Range" (the range a reset returns to) and "3D Range" (the box of
// the 3D plot). The fields are expressions. It grows open from nothing. When it loses the
// activation it applies nothing and is only put away, with what was typed: shown again, it holds
// the typed fields as they were, and the others follow the plot. OK, Cancel, Escape and closing
// the window end it.
class frmRange : public QDialog {
  Q_OBJECT

public:
  using Evaluate = std::function<double(const QString&)>;
  using Readable = std::function<bool(const QString&)>;

  frmRange(const QString& mode, plot2d::Plot& plot, std::function<void()> redrawPlot, plot3d::Plot3D& plot3d,
           std::function<void()> redrawPlot3D, Evaluate evaluate, QWidget* parent = nullptr);

  QLineEdit* Field(const QString& name) const;
  // Whether a field's text can be read as a number. A field that cannot turns red, and OK then
  // applies nothing and keeps the dialog open: the plot keeps its limits. Every text is readable
  // until this is given.
  void SetReadable(Readable readable) { m_readable = std::move(readable); }
  // Whether the field is shown red.
  bool Unreadable(const QString& name) const;
  QLabel* lblRange() const { return m_label; }
  QPushButton* btnCurrentRange() const { return m_range; }
  QPushButton* btnOK() const { return m_ok; }
  QPushButton* btnCancel() const { return m_cancel; }

  // Gone for good: OK, Cancel, Escape or the window closed.
  bool Unloading() const { return m_unloading; }

  void Form_Activate();
  void btnCurrentRange_Click();
  void btnOK_Click();
  // One tick of the opening animation, and the size it grows to.
  void Timer1_Timer();
  QSize TargetSize() const;

protected:
  bool event(QEvent* event) override;

private:
  QString Mode() const;
  bool Is3D() const { return Mode() == u"3D Range"; }
  void Fill(double xMin, double xMax, double yMin, double yMax);
  void Set(const char* field, const std::function<void(double)>& set);
  // Paints each shown field by its text; false, with the focus on the first red one, if any is.
  bool AllReadable();
  // Paints every field in use by its text and shows the start of each; the first red one.
  QLineEdit* RefreshFields();
  void MarkField(QLineEdit& field);
  void Unload();
  // A click elsewhere: put away, the fields as they are.
  void Leave();

  plot2d::Plot& m_plot;
  std::function<void()> m_redrawPlot;
  plot3d::Plot3D& m_plot3d;
  std::function<void()> m_redrawPlot3D;
  Evaluate m_evaluate;
  Readable m_readable;
  QLabel* m_label;
  QLabel* m_toZ;
  QPushButton* m_range;
  QPushButton* m_ok;
  QPushButton* m_cancel;
  QTimer m_timer;
  bool m_unloading = false;
  // Each field's text as the last activation filled it in: a field that differs was typed into.
  QHash<QString, QString> m_filled;
};

}  // namespace dialogs
