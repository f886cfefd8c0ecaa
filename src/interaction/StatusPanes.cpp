#include "StatusPanes.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"

#include <cmath>

namespace interaction {

namespace {

struct SliderRule {
  int Highest;
  int Line;
  int Page;
};

const QString kQuality = QStringLiteral("Plot Quality");
const QString kThickness = QStringLiteral("Plot Thickness");

}  // namespace

StatusPanes::StatusPanes(QStatusBar& bar, plot2d::Plot& plot) : QObject(&bar), m_plot(plot) {
  m_status = new QLabel(QStringLiteral("Ready..."));
  m_status->setObjectName(QStringLiteral("Pane9000"));
  m_status->setToolTip(QStringLiteral("Status"));
  m_status->setMinimumWidth(110);
  m_replot = new QPushButton(QStringLiteral("Replot"));
  m_replot->setObjectName(QStringLiteral("Pane9001"));
  m_replot->setToolTip(QStringLiteral("Replot All Functions Again."));
  m_replot->setFlat(true);
  m_replot->setCursor(Qt::PointingHandCursor);
  m_thicknessText = new QLabel;
  m_thicknessText->setObjectName(QStringLiteral("Pane9002"));
  m_thicknessText->setToolTip(kThickness);
  m_thickness = new SliderPane(kThickness, 7, 1, 2);
  m_thickness->setObjectName(QStringLiteral("Pane9003"));
  m_thickness->Slider()->setToolTip(kThickness);
  m_thickness->MinusButton()->setToolTip(QStringLiteral("Tickness -"));
  m_thickness->PlusButton()->setToolTip(QStringLiteral("Tickness +"));
  m_qualityText = new QLabel;
  m_qualityText->setObjectName(QStringLiteral("Pane9004"));
  m_qualityText->setToolTip(kQuality);
  m_quality = new SliderPane(kQuality, 100, 5, 20);
  m_quality->setObjectName(QStringLiteral("Pane9005"));
  m_quality->Slider()->setToolTip(QStringLiteral("Quality"));
  m_quality->MinusButton()->setToolTip(QStringLiteral("Quality -"));
  m_quality->PlusButton()->setToolTip(QStringLiteral("Quality +"));

  bar.addWidget(m_status, 1);
  for (QWidget* pane : {static_cast<QWidget*>(m_replot), static_cast<QWidget*>(m_thicknessText),
                        static_cast<QWidget*>(m_thickness), static_cast<QWidget*>(m_qualityText),
                        static_cast<QWidget*>(m_quality)}) {
    bar.addPermanentWidget(pane);
  }
  connect(m_replot, &QPushButton::clicked, this, [this] { StatusBar_PaneClick(m_replot->text()); });
  for (SliderPane* slider : {m_thickness, m_quality}) {
    connect(slider, &SliderPane::Scrolled, this,
            [this, slider](int command, int pos) { StatusBar_SliderPaneClick(slider->Caption(), command, pos); });
  }
  Sync();
}

QWidget* StatusPanes::Pane(int id) const {
  switch (id) {
    case 9000: return m_status;
    case 9001: return m_replot;
    case 9002: return m_thicknessText;
    case 9003: return m_thickness;
    case 9004: return m_qualityText;
    case 9005: return m_quality;
    default: return nullptr;
  }
}

QString StatusPanes::PaneText(int id) const {
  if (const auto* label = qobject_cast<const QLabel*>(Pane(id))) return label->text();
  if (const auto* button = qobject_cast<const QPushButton*>(Pane(id))) return button->text();
  return {};
}

void StatusPanes::SetPaneText(int id, const QString& text) {
  if (auto* label = qobject_cast<QLabel*>(Pane(id))) label->setText(text);
}

SliderPane* StatusPanes::Slider(const QString& caption) const {
  if (caption == kQuality) return m_quality;
  if (caption == kThickness) return m_thickness;
  return nullptr;
}

void StatusPanes::Sync() {
  m_thickness->SetPosition(static_cast<int>(std::lround(m_plot.Thickness())));
  m_quality->SetPosition(static_cast<int>(std::lround(m_plot.Quality())));
  m_thicknessText->setText(QStringLiteral("Thickness: ") + core::FormatNumber(m_plot.Thickness()));
  m_qualityText->setText(QStringLiteral("Quality: ") + core::FormatNumber(m_plot.Quality()));
}

void StatusPanes::StatusBar_PaneClick(const QString& caption) {
  if (caption == u"Replot") emit ReplotClicked();
}

void StatusPanes::StatusBar_SliderPaneClick(const QString& caption, int command, int pos) {
  const bool quality = caption == kQuality;
  if (!quality && caption != kThickness) return;
  const SliderRule rule = quality ? SliderRule{100, 5, 20} : SliderRule{7, 1, 2};
  const double value = quality ? m_plot.Quality() : m_plot.Thickness();
  double next = value;
  switch (command) {
    case 0: next = max(value - rule.Line, 1); break;
    case 1: next = min(value + rule.Line, rule.Highest); break;
    case 2: next = max(value - rule.Page, 1); break;
    case 3: next = min(value + rule.Page, rule.Highest); break;
    case 5: next = pos; break;
    case 6: next = 1; break;
    case 7: next = rule.Highest; break;
    default: break;
  }
  std::int32_t rounded = 0;
  try {
    rounded = core::RoundToInt32(next);
  } catch (const core::RuntimeError&) {
    return;
  }
  SliderPane* slider = quality ? m_quality : m_thickness;
  if (rounded == value) {
    slider->SetPosition(static_cast<int>(std::lround(value)));
    return;
  }
  if (quality) m_plot.SetQuality(next);
  else m_plot.SetThickness(next);
  slider->SetPosition(rounded);
  const double readBack = quality ? m_plot.Quality() : m_plot.Thickness();
  (quality ? m_qualityText : m_thicknessText)
      ->setText((quality ? QStringLiteral("Quality: ") : QStringLiteral("Thickness: ")) + core::FormatNumber(readBack));
  emit SliderChanged();
}

}  // namespace interaction
