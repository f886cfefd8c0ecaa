#pragma once

#include "CaptionButton.h"
#include "platform/Desktop.h"
#include "platform/FileDialogs.h"
#include "platform/MessageBoxes.h"
#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3DWidget.h"
#include "plotcompiler/Plot3DControl.h"
#include "plotcompiler/PlotControl.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>
#include <QWidget>

#include <functional>

namespace output {

// The backstage page "Save as picture": a preview plot and surface of their own, into which the
// project is drawn at a size that the user chooses (up to 16384 pixels a side), with display options for
// this picture alone, and buttons that save what the preview shows as PNG, JPEG, BMP, SVG or PDF,
// or copy it. The main window's plot is only read: its size, range and display settings.
class pageSaveAsPicture : public QWidget {
  Q_OBJECT

public:
  // The replot driver, drawing the main window's rows into the plots it is given.
  using Replot = std::function<void(plotcompiler::PlotControl&, plotcompiler::Plot3DControl*)>;

  // mainPlot: the main window's plot; selectedTab: the index of its input tab (3 is the surface);
  // replot: the driver; boxes, files and desktop: the questions, the file dialog and the clipboard.
  pageSaveAsPicture(const plot2d::PlotWidget& mainPlot, std::function<int()> selectedTab, Replot replot,
                    platform::MessageBoxes& boxes, platform::FileDialogs& files, platform::Desktop& desktop,
                    QWidget* parent = nullptr);

  // Each time the page opens: the main plot's size and range, the preview for its tab, the boxes
  // from the main plot, the chosen size over it, and the rows drawn anew at full quality.
  void StartUp();

  // A number with its unit glued on ("10cm", "1440twip") in the target unit: "twip", "pixle",
  // "cm" or "inch" (see PictureSize.h).
  static double ChangeScale(const QString& value, const QString& target);

  // The preview's size in twips, as the fields' units are worked out from it.
  double PlotWidth() const;
  double PlotHeight() const;

  // The page's widgets by their names.
  plot2d::PlotWidget& Plot() { return *m_plot; }
  plot3d::Plot3DWidget& Plot3D() { return *m_plot3d; }
  QFrame* grpPreview() const { return m_grpPreview; }
  QScrollArea* rszPreview() const { return m_rszPreview; }
  QFrame* grpOptions() const { return m_grpOptions; }
  QLineEdit* txtWidth() const { return m_txtWidth; }
  QLineEdit* txtHeight() const { return m_txtHeight; }
  QComboBox* cmbScaleWidth() const { return m_cmbScaleWidth; }
  QComboBox* cmbScaleHeight() const { return m_cmbScaleHeight; }
  QCheckBox* chkShowAxis() const { return m_chkShowAxis; }
  QCheckBox* chkShowGrid() const { return m_chkShowGrid; }
  QCheckBox* chkShowNumbers() const { return m_chkShowNumbers; }
  QCheckBox* chkOuterFrame() const { return m_chkOuterFrame; }
  QCheckBox* chkTransparent() const { return m_chkTransparent; }
  QCheckBox* btnShowTips() const { return m_btnShowTips; }
  QLineEdit* txtThick() const { return m_txtThick; }
  QWidget* updownTick() const { return m_updownTick; }
  QToolButton* updownTickUp() const { return m_tickUp; }
  QToolButton* updownTickDown() const { return m_tickDown; }
  QPushButton* btnOK() const { return m_btnOK; }
  QPushButton* btnReplot() const { return m_btnReplot; }
  CaptionButton* btnPNG() const { return m_btnPNG; }
  CaptionButton* btnJpg() const { return m_btnJpg; }
  CaptionButton* btnBMP() const { return m_btnBMP; }
  CaptionButton* btnSVG() const { return m_btnSVG; }
  CaptionButton* btnPDF() const { return m_btnPDF; }
  CaptionButton* btnCopy() const { return m_btnCopy; }
  QProgressBar* PB() const { return m_pb; }
  QFrame* backSep1() const { return m_backSep1; }
  QLabel* lblSize() const { return m_lblSize; }
  QLabel* lblStatus() const { return m_lblStatus; }

  // The handlers, as the widgets call them.
  void btnOK_Click();
  void btnReplot_Click();
  void cmbScaleWidth_Click();
  void cmbScaleHeight_Click();
  void updownTick_UpClick();
  void updownTick_DownClick();
  void txtThick_Change();

  // Waits, letting events other than the user's run, while the preview surface is being computed.
  void WaitForSurface();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  enum class Output { Png, Jpg, Bmp, Svg, Pdf };
  struct Side;

  void BuildPreview(QWidget* column);
  QWidget* BuildSettings();
  QWidget* BuildSize();
  QFrame* BuildOptions();
  QWidget* BuildSaving();
  void Form_Load();
  void SetBoxesFromMainPlot();
  void ApplySide(const Side& side);
  void FitFrame();
  void FollowMainPlotSize();
  void RunReplot();
  void OptionClicked(QCheckBox* box, void (plot2d::Plot::*set)(bool));
  void ThicknessFromField();
  void Save(Output output);
  void Write(Output output, const QString& name);
  void CopyPicture();
  bool PreviewIs2D() const { return !m_plot->isHidden(); }

  const plot2d::PlotWidget& m_main;
  std::function<int()> m_selectedTab;
  Replot m_replot;
  platform::MessageBoxes& m_boxes;
  platform::FileDialogs& m_files;
  platform::Desktop& m_desktop;
  QSize m_size;  // the preview's size in pixels of 15 twips
  // What the size fields held when no one had chosen a size yet: the main plot's size in pixels.
  QString m_untouchedWidth, m_untouchedHeight;
  bool m_sizeChosen = false;
  // Whether a thickness was chosen with the arrows, or the field holds a typed one: until then the
  // preview takes the main plot's at each opening.
  bool m_thicknessChosen = false;
  bool m_thicknessTyped = false;

  plot2d::PlotWidget* m_plot = nullptr;
  plot3d::Plot3DWidget* m_plot3d = nullptr;
  QFrame* m_grpPreview = nullptr;
  QScrollArea* m_rszPreview = nullptr;
  QFrame* m_grpOptions = nullptr;
  QLineEdit* m_txtWidth = nullptr;
  QLineEdit* m_txtHeight = nullptr;
  QComboBox* m_cmbScaleWidth = nullptr;
  QComboBox* m_cmbScaleHeight = nullptr;
  QCheckBox* m_chkShowAxis = nullptr;
  QCheckBox* m_chkShowGrid = nullptr;
  QCheckBox* m_chkShowNumbers = nullptr;
  QCheckBox* m_chkOuterFrame = nullptr;
  QCheckBox* m_chkTransparent = nullptr;
  QCheckBox* m_btnShowTips = nullptr;
  QLineEdit* m_txtThick = nullptr;
  QWidget* m_updownTick = nullptr;
  QToolButton* m_tickUp = nullptr;
  QToolButton* m_tickDown = nullptr;
  QPushButton* m_btnOK = nullptr;
  QPushButton* m_btnReplot = nullptr;
  CaptionButton* m_btnPNG = nullptr;
  CaptionButton* m_btnJpg = nullptr;
  CaptionButton* m_btnBMP = nullptr;
  CaptionButton* m_btnSVG = nullptr;
  CaptionButton* m_btnPDF = nullptr;
  CaptionButton* m_btnCopy = nullptr;
  QProgressBar* m_pb = nullptr;
  QFrame* m_backSep1 = nullptr;
  QLabel* m_lblSize = nullptr;
  QLabel* m_lblStatus = nullptr;
};

}  // namespace output
