#pragma once

#include "SliderPane.h"

#include "plot2d/Plot.h"

#include <QLabel>
#include <QObject>
#include <QPushButton>
#include <QStatusBar>

namespace interaction {

// The main window's status bar: the progress word (pane 9000), the "Replot" pane (9001), and the
// thickness and quality sliders (9003, 9005) with their texts (9002, 9004). A new quality or
// thickness takes effect with the next replot.
class StatusPanes : public QObject {
  Q_OBJECT

public:
  StatusPanes(QStatusBar& bar, plot2d::Plot& plot);

  QString PaneText(int id) const;
  void SetPaneText(int id, const QString& text);
  QWidget* Pane(int id) const;
  SliderPane* Slider(const QString& caption) const;
  // The sliders and their texts from the plot, as the ribbon's start sets them.
  void Sync();

  void StatusBar_PaneClick(const QString& caption);
  void StatusBar_SliderPaneClick(const QString& caption, int command, int pos);

  // Of two numbers the larger, and the smaller; on a tie, b.
  static double max(double a, double b) { return a > b ? a : b; }
  static double min(double a, double b) { return a < b ? a : b; }

signals:
  void ReplotClicked();
  // A slider changed the plot's quality or thickness.
  void SliderChanged();

private:
  plot2d::Plot& m_plot;
  QLabel* m_status;
  QPushButton* m_replot;
  QLabel* m_thicknessText;
  SliderPane* m_thickness;
  QLabel* m_qualityText;
  SliderPane* m_quality;
};

}  // namespace interaction
