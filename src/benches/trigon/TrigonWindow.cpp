#include "TrigonWindow.h"

#include "ExactValues.h"
#include "TrigGraph.h"
#include "UnitCircle.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <cmath>
#include <numbers>

namespace trigon {

namespace {

constexpr const char* kHint = "Type an angle and press Enter: 135, 3pi/4, 2.1 rad or 45\u00B0. "
                              "Drag the point, or click the circle and use the arrow keys.";

QString DegreesText(double degrees) {
  if (degrees == std::round(degrees)) return QString::number(static_cast<long long>(degrees)) + u'\u00B0';
  return QString::number(degrees, 'g', 10) + u'\u00B0';
}

// "sin θ = √3/2 ≈ 0.866025": the exact text where there is one, and the decimal beside it unless
// the exact one is a whole number already.
QString ValueLine(const QString& name, const QString& exact, double value) {
  if (exact == u"undefined") return name + QStringLiteral(" is undefined (cos \u03B8 = 0)");
  if (exact.isEmpty()) return name + QStringLiteral(" \u2248 ") + DecimalText(value);
  bool whole = false;
  exact.toInt(&whole);
  if (whole) return name + QStringLiteral(" = ") + exact;
  return name + QStringLiteral(" = ") + exact + QStringLiteral("  \u2248 ") + DecimalText(value);
}

QLabel* ValueLabel(const QString& accessibleName, const QColor& color) {
  auto* label = new QLabel;
  label->setAccessibleName(accessibleName);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * 1.25);
  label->setFont(font);
  label->setStyleSheet(QStringLiteral("color: %1;").arg(color.name()));
  return label;
}

}  // namespace

TrigonWindow::TrigonWindow(QWidget* parent) : QWidget(parent), m_circle(new UnitCircle) {
  setWindowTitle(QStringLiteral("Trigon Bench \u2014 the unit circle"));
  setMinimumSize(900, 600);
  auto* root = new QVBoxLayout(this);
  root->setContentsMargins(14, 12, 14, 12);
  root->setSpacing(10);
  root->addWidget(BuildAngleRow());
  m_message = new QLabel;
  m_message->setWordWrap(true);
  m_message->setAccessibleName(QStringLiteral("Message"));
  root->addWidget(m_message);
  auto* body = new QHBoxLayout;
  body->setSpacing(14);
  auto* left = new QVBoxLayout;
  left->addWidget(m_circle, 1);
  left->addWidget(BuildValues());
  body->addLayout(left, 5);
  body->addWidget(BuildGraphs(), 6);
  root->addLayout(body, 1);
  connect(m_circle, &UnitCircle::AngleChanged, this, &TrigonWindow::ShowAngle);
  setTabOrder(m_angleField, m_unit);
  setTabOrder(m_unit, m_circle);
  Say(QString::fromUtf8(kHint), false);
  m_circle->SetAngle(30);
}

QWidget* TrigonWindow::BuildAngleRow() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* label = new QLabel(QStringLiteral("&Angle:"));
  m_angleField = new QLineEdit;
  m_angleField->setAccessibleName(QStringLiteral("Angle"));
  m_angleField->setPlaceholderText(QStringLiteral("30, pi/6, 3pi/4, 0.5 rad"));
  m_angleField->setMinimumWidth(180);
  label->setBuddy(m_angleField);
  auto* unitLabel = new QLabel(QStringLiteral("A plain &number is in"));
  m_unit = new QComboBox;
  m_unit->addItems({QStringLiteral("degrees"), QStringLiteral("radians")});
  m_unit->setAccessibleName(QStringLiteral("Unit of a plain number"));
  unitLabel->setBuddy(m_unit);
  layout->addWidget(label);
  layout->addWidget(m_angleField);
  layout->addSpacing(12);
  layout->addWidget(unitLabel);
  layout->addWidget(m_unit);
  layout->addStretch(1);
  connect(m_angleField, &QLineEdit::returnPressed, this, &TrigonWindow::ApplyTypedAngle);
  connect(m_unit, &QComboBox::currentIndexChanged, this, &TrigonWindow::ApplyTypedAngle);
  return row;
}

QWidget* TrigonWindow::BuildValues() {
  auto* box = new QGroupBox(QStringLiteral("Values"));
  auto* grid = new QGridLayout(box);
  grid->setVerticalSpacing(6);
  m_angleText = ValueLabel(QStringLiteral("Angle value"), palette().text().color());
  m_values = {ValueLabel(QStringLiteral("Sine value"), UnitCircle::kSinColor),
              ValueLabel(QStringLiteral("Cosine value"), UnitCircle::kCosColor),
              ValueLabel(QStringLiteral("Tangent value"), UnitCircle::kTanColor)};
  grid->addWidget(m_angleText, 0, 0);
  for (int i = 0; i < 3; ++i) grid->addWidget(m_values[static_cast<size_t>(i)], i + 1, 0);
  return box;
}

QWidget* TrigonWindow::BuildGraphs() {
  auto* column = new QWidget;
  auto* layout = new QVBoxLayout(column);
  layout->setContentsMargins(0, 0, 0, 0);
  const struct {
    const char* Title;
    const char* Row;
    QColor Color;
    double Reach;
  } graphs[] = {{"y = sin x", "y=sin(x)", UnitCircle::kSinColor, 1.5},
                {"y = cos x", "y=cos(x)", UnitCircle::kCosColor, 1.5},
                {"y = tan x", "y=tan(x)", UnitCircle::kTanColor, 4}};
  for (size_t i = 0; i < 3; ++i) {
    auto* title = new QLabel(QString::fromUtf8(graphs[i].Title) + QStringLiteral("   (x in radians, one turn)"));
    title->setStyleSheet(QStringLiteral("color: %1; font-weight: bold;").arg(graphs[i].Color.name()));
    m_graphs[i] = new TrigGraph(QStringLiteral("Graph of ") + QString::fromUtf8(graphs[i].Title),
                                QString::fromUtf8(graphs[i].Row), graphs[i].Color, graphs[i].Reach);
    layout->addWidget(title);
    layout->addWidget(m_graphs[i], 1);
  }
  return column;
}

void TrigonWindow::ApplyTypedAngle() {
  if (m_angleField->text().trimmed().isEmpty()) return;
  const AngleReading reading = m_reader.Read(m_angleField->text(), m_unit->currentIndex() == 1);
  if (!reading.Ok) {
    Say(reading.Message, true);
    return;
  }
  const double shown = WrapDegrees(reading.Degrees);
  m_circle->SetAngle(reading.Degrees);
  ShowAngle(shown);
  if (std::abs(shown - reading.Degrees) > 1e-9) {
    Say(QStringLiteral("%1 is the same point as %2: the bench shows angles from 0\u00B0 to 360\u00B0.")
            .arg(DegreesText(reading.Degrees), DegreesText(shown)),
        false);
  } else {
    Say(QString::fromUtf8(kHint), false);
  }
}

void TrigonWindow::ShowAngle(double degrees) {
  const double radians = degrees * std::numbers::pi / 180;
  const std::optional<TrigTexts> exact = ExactValues(degrees);
  const bool whole = degrees == std::round(degrees);
  m_angleText->setText(QStringLiteral("\u03B8 = ") + DegreesText(degrees) + (whole ? QStringLiteral(" = ") : QStringLiteral(" \u2248 ")) +
                       RadianText(degrees) + QStringLiteral(" rad"));
  const double values[3] = {std::sin(radians), std::cos(radians), std::tan(radians)};
  const QString names[3] = {QStringLiteral("sin \u03B8"), QStringLiteral("cos \u03B8"), QStringLiteral("tan \u03B8")};
  const QString texts[3] = {exact ? exact->Sin : QString(), exact ? exact->Cos : QString(),
                            exact ? exact->Tan : QString()};
  for (size_t i = 0; i < 3; ++i) {
    m_values[i]->setText(ValueLine(names[i], texts[i], values[i]));
    const bool undefined = texts[i] == u"undefined";
    m_graphs[i]->SetAngle(degrees, undefined ? std::nan("") : values[i]);
  }
  if (!m_angleField->hasFocus()) m_angleField->setText(DegreesText(degrees));
  m_circle->setAccessibleDescription(m_angleText->text() + QStringLiteral("; ") + m_values[0]->text() +
                                     QStringLiteral("; ") + m_values[1]->text() + QStringLiteral("; ") +
                                     m_values[2]->text());
}

void TrigonWindow::Say(const QString& text, bool problem) {
  m_message->setText(text);
  m_message->setStyleSheet(problem ? QStringLiteral("color: #b00020; font-weight: bold;")
                                   : QStringLiteral("color: #505050;"));
}

}  // namespace trigon
