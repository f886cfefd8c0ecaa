#include "frmRange.h"

#include "core/NumberText.h"
#include "core/Tag.h"
#include "core/Twips.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace dialogs {

using core::Px;

namespace {

constexpr double kWidth = 3210;
constexpr double kHeight = 2175;
constexpr double kHeight3D = 2670;
constexpr double kGrowWidth = 200;
constexpr double kGrowHeight = 150;
constexpr double kButtonMargin = 60;

const char* const kFields[] = {"txtXmin", "txtXmax", "txtYmin", "txtYmax", "txt_zMin", "txt_ZMAX"};

}  // namespace

frmRange::frmRange(const QString& mode, plot2d::Plot& plot, std::function<void()> redrawPlot, plot3d::Plot3D& plot3d,
                   std::function<void()> redrawPlot3D, Evaluate evaluate, QWidget* parent)
    : QDialog(parent, Qt::Tool | Qt::FramelessWindowHint),
      m_plot(plot),
      m_redrawPlot(std::move(redrawPlot)),
      m_plot3d(plot3d),
      m_redrawPlot3D(std::move(redrawPlot3D)),
      m_evaluate(std::move(evaluate)) {
  setObjectName(QStringLiteral("frmRange"));
  setAttribute(Qt::WA_DeleteOnClose);
  core::SetTag(this, mode);
  setWindowTitle(mode);

  m_label = new QLabel(QStringLiteral("Plot Range:"), this);
  m_label->setObjectName(QStringLiteral("lblRange"));
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(6);
  const char* between[] = {"<x<", "<y<", "<z<"};
  for (int row = 0; row < 3; ++row) {
    for (int side = 0; side < 2; ++side) {
      auto* field = new QLineEdit(QString::fromLatin1(side == 0 ? "-10" : "10"), this);
      field->setObjectName(QString::fromLatin1(kFields[row * 2 + side]));
      field->setAlignment(Qt::AlignCenter);
      field->setToolTip(tr("A number or an expression: 2*pi, -3/2 ..."));
      const char* axes[] = {"x", "y", "z"};
      field->setAccessibleName((side == 0 ? tr("Lowest %1") : tr("Highest %1")).arg(QLatin1String(axes[row])));
      connect(field, &QLineEdit::textEdited, this, [this, field] { MarkField(*field); });
      grid->addWidget(field, row, side * 2);
    }
    auto* label = new QLabel(QString::fromLatin1(between[row]), this);
    label->setAlignment(Qt::AlignCenter);
    if (row == 2) {
      label->setObjectName(QStringLiteral("lbl_TO_Z"));
      m_toZ = label;
    }
    grid->addWidget(label, row, 1);
  }
  m_range = new QPushButton(QStringLiteral("Current &Rnage"), this);
  m_range->setObjectName(QStringLiteral("btnCurrentRange"));
  m_ok = new QPushButton(QStringLiteral("&OK"), this);
  m_ok->setObjectName(QStringLiteral("btnOK"));
  m_ok->setDefault(true);
  m_cancel = new QPushButton(QStringLiteral("&Cancel"), this);
  m_cancel->setObjectName(QStringLiteral("btnCancel"));
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(m_range);
  buttons->addStretch();
  buttons->addWidget(m_ok);
  buttons->addWidget(m_cancel);
  auto* layout = new QGridLayout(this);
  layout->setSizeConstraint(QLayout::SetNoConstraint);  // it grows open from nothing
  layout->setContentsMargins(10, 8, 10, Px(kButtonMargin));
  layout->addWidget(m_label, 0, 0);
  layout->addLayout(grid, 1, 0);
  layout->setRowStretch(2, 1);
  layout->addLayout(buttons, 3, 0);

  connect(m_range, &QPushButton::clicked, this, &frmRange::btnCurrentRange_Click);
  connect(m_ok, &QPushButton::clicked, this, &frmRange::btnOK_Click);
  connect(m_cancel, &QPushButton::clicked, this, &frmRange::Unload);

  // It opens from nothing and grows to its size.
  const bool is3D = Is3D();
  for (const char* name : {"txt_zMin", "txt_ZMAX"}) Field(QString::fromLatin1(name))->setVisible(is3D);
  m_toZ->setVisible(is3D);
  resize(1, 1);
  connect(&m_timer, &QTimer::timeout, this, &frmRange::Timer1_Timer);
  m_timer.start(10);
}

QString frmRange::Mode() const { return core::Tag(this); }

QLineEdit* frmRange::Field(const QString& name) const { return findChild<QLineEdit*>(name); }

// The spec'd size, or what the controls need where the desktop's font is wider.
QSize frmRange::TargetSize() const {
  const QSize needed = minimumSizeHint();
  return {std::max(Px(kWidth), needed.width()), std::max(Px(Is3D() ? kHeight3D : kHeight), needed.height())};
}

void frmRange::Timer1_Timer() {
  const QSize target = TargetSize();
  const int w = width() < target.width() ? std::min(width() + Px(kGrowWidth), target.width()) : target.width();
  const int h = height() < target.height() ? std::min(height() + Px(kGrowHeight), target.height()) : target.height();
  if (QSize(w, h) != size()) resize(w, h);
  m_timer.setInterval(1);
}

void frmRange::Fill(double xMin, double xMax, double yMin, double yMax) {
  Field(QStringLiteral("txtXmin"))->setText(core::FormatNumber(xMin));
  Field(QStringLiteral("txtXmax"))->setText(core::FormatNumber(xMax));
  Field(QStringLiteral("txtYmin"))->setText(core::FormatNumber(yMin));
  Field(QStringLiteral("txtYmax"))->setText(core::FormatNumber(yMax));
}

void frmRange::Form_Activate() {
  // What the user typed stays; the rest is filled anew.
  QHash<QString, QString> typed;
  for (auto it = m_filled.cbegin(); it != m_filled.cend(); ++it) {
    const QString text = Field(it.key())->text();
    if (text != it.value()) typed.insert(it.key(), text);
  }
  if (!m_unloading && !m_timer.isActive()) m_timer.start(1);
  const QString mode = Mode();
  m_label->setText(mode + u':');
  const bool is3D = Is3D();
  for (const char* name : {"txt_zMin", "txt_ZMAX"}) Field(QString::fromLatin1(name))->setVisible(is3D);
  m_toZ->setVisible(is3D);
  if (mode == u"Plot Range") {
    Fill(m_plot.XMin(), m_plot.XMax(), m_plot.YMin(), m_plot.YMax());
    m_range->setText(QStringLiteral("Default Range"));
  } else if (mode == u"Default Range") {
    Fill(m_plot.DefaultXMin(), m_plot.DefaultXMax(), m_plot.DefaultYMin(), m_plot.DefaultYMax());
    m_range->setText(QStringLiteral("Default Range"));
    m_ok->setFocus();
  } else if (is3D) {
    Fill(m_plot3d.XMin(), m_plot3d.XMax(), m_plot3d.YMin(), m_plot3d.YMax());
    Field(QStringLiteral("txt_zMin"))->setText(core::FormatNumber(m_plot3d.ZMin()));
    Field(QStringLiteral("txt_ZMAX"))->setText(core::FormatNumber(m_plot3d.ZMax()));
  }
  m_filled.clear();
  for (const char* name : kFields) {
    const QString field = QString::fromLatin1(name);
    m_filled.insert(field, Field(field)->text());
  }
  for (auto it = typed.cbegin(); it != typed.cend(); ++it) Field(it.key())->setText(it.value());
  RefreshFields();
}

void frmRange::btnCurrentRange_Click() {
  const QString mode = Mode();
  if (mode == u"Plot Range") {
    Fill(m_plot.DefaultXMin(), m_plot.DefaultXMax(), m_plot.DefaultYMin(), m_plot.DefaultYMax());
  } else if (mode == u"Default Range") {
    Fill(m_plot.XMin(), m_plot.XMax(), m_plot.YMin(), m_plot.YMax());
  } else if (Is3D()) {
    for (int i = 0; i < 6; ++i) Field(QString::fromLatin1(kFields[i]))->setText(i % 2 == 0 ? QStringLiteral("-2") : QStringLiteral("2"));
  }
  RefreshFields();
}

// Each field evaluated alone and set at once: a later failure leaves the earlier limits set.
void frmRange::Set(const char* field, const std::function<void(double)>& set) {
  set(m_evaluate(Field(QString::fromLatin1(field))->text()));
}

bool frmRange::Unreadable(const QString& name) const {
  const QLineEdit* field = Field(name);
  return field && field->property("invalid").toBool();
}

void frmRange::MarkField(QLineEdit& field) {
  const bool red = m_readable && !m_readable(field.text());
  field.setProperty("invalid", red);
  field.setStyleSheet(red ? QStringLiteral("QLineEdit { background: rgb(255, 0, 0); color: white; }") : QString());
  field.setToolTip(red ? tr("This cannot be read as a number: the limit keeps its value")
                       : tr("A number or an expression: 2*pi, -3/2 ..."));
}

QLineEdit* frmRange::RefreshFields() {
  QLineEdit* first = nullptr;
  for (const char* name : kFields) {
    QLineEdit* field = Field(QString::fromLatin1(name));
    if (!Is3D() && (field->objectName() == u"txt_zMin" || field->objectName() == u"txt_ZMAX")) continue;
    MarkField(*field);
    // A long number shows its sign and integer part, not its last digits.
    if (!field->hasFocus()) field->setCursorPosition(0);
    if (!first && field->property("invalid").toBool()) first = field;
  }
  return first;
}

bool frmRange::AllReadable() {
  QLineEdit* first = RefreshFields();
  if (!first) return true;
  first->setFocus(Qt::OtherFocusReason);
  first->selectAll();
  return false;
}

void frmRange::btnOK_Click() {
  const QString mode = Mode();
  // A limit that cannot be read is not taken as 0: nothing is applied until every one is read.
  if (!AllReadable()) return;
  // The form goes away while pending events run: what comes after holds its own copies.
  const auto redrawPlot = m_redrawPlot;
  const auto redrawPlot3D = m_redrawPlot3D;
  if (mode == u"Plot Range") {
    Set("txtXmax", [this](double v) { m_plot.SetXMax(v); });
    Set("txtXmin", [this](double v) { m_plot.SetXMin(v); });
    Set("txtYmax", [this](double v) { m_plot.SetYMax(v); });
    Set("txtYmin", [this](double v) { m_plot.SetYMin(v); });
    Unload();
    QApplication::processEvents();
    if (redrawPlot) redrawPlot();
  } else if (mode == u"Default Range") {
    double v[4] = {};
    const char* names[] = {"txtXmin", "txtXmax", "txtYmin", "txtYmax"};
    for (int i = 0; i < 4; ++i) v[i] = m_evaluate(Field(QString::fromLatin1(names[i]))->text());
    m_plot.SetDefaultRange(v[0], v[1], v[2], v[3]);
    Unload();
    QApplication::processEvents();
  } else if (Is3D()) {
    Set("txtXmin", [this](double v) { m_plot3d.SetXMin(v); });
    Set("txtXmax", [this](double v) { m_plot3d.SetXMax(v); });
    Set("txtYmin", [this](double v) { m_plot3d.SetYMin(v); });
    Set("txtYmax", [this](double v) { m_plot3d.SetYMax(v); });
    Set("txt_zMin", [this](double v) { m_plot3d.SetZMin(v); });
    Set("txt_ZMAX", [this](double v) { m_plot3d.SetZMax(v); });
    Unload();
    QApplication::processEvents();
    if (redrawPlot3D) redrawPlot3D();
  }
}

void frmRange::Leave() {
  if (m_unloading || isHidden()) return;
  m_timer.stop();
  hide();
}

void frmRange::Unload() {
  if (m_unloading) return;
  m_unloading = true;
  m_timer.stop();
  close();
}

bool frmRange::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::WindowActivate: Form_Activate(); break;
    case QEvent::WindowDeactivate:
      if (QApplication::activeModalWidget() == nullptr) Leave();
      break;
    case QEvent::KeyPress:
      if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        Unload();
        return true;
      }
      break;
    default: break;
  }
  return QDialog::event(event);
}

}  // namespace dialogs
