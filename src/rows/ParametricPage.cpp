#include "ParametricPage.h"

#include "PageEditor.h"

#include "core/Tag.h"
#include "mathx/MthX.h"

#include <QGridLayout>
#include <QHBoxLayout>

namespace rows {

ParametricPage::ParametricPage(platform::ColorChooser& chooser, QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("ParametricPage"));
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(12, 14, 12, 12);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(10);

  m_type = new QComboBox(this);
  m_type->setObjectName(QStringLiteral("cmbParametricType"));
  m_type->addItems({QStringLiteral("Cartesian"), QStringLiteral("Polar")});
  m_type->setCurrentIndex(0);
  m_type->setToolTip(tr("x and y of the parameter, or r and theta"));
  grid->addWidget(new QLabel(tr("Curve"), this), 0, 0);
  grid->addWidget(m_type, 0, 1, Qt::AlignLeft);

  m_labelX = new QLabel(QStringLiteral("x="), this);
  m_labelX->setObjectName(QStringLiteral("lbl_Parametric_X"));
  m_labelY = new QLabel(QStringLiteral("y="), this);
  m_labelY->setObjectName(QStringLiteral("lbl_Parametric_Y"));
  m_x = NewPageEditor(this, QStringLiteral("mthParametricX"), tr("cos(3t)"));
  m_y = NewPageEditor(this, QStringLiteral("mthParametricY"), tr("sin(2t)"));
  grid->addWidget(m_labelX, 1, 0, Qt::AlignRight);
  grid->addWidget(m_x, 1, 1);
  grid->addWidget(m_labelY, 2, 0, Qt::AlignRight);
  grid->addWidget(m_y, 2, 1);

  m_min = new QLineEdit(QStringLiteral("-pi"), this);
  m_min->setObjectName(QStringLiteral("txtThetaMin"));
  m_max = new QLineEdit(QStringLiteral("pi"), this);
  m_max->setObjectName(QStringLiteral("txtThetaMax"));
  m_color = new ColorButton(chooser, this);
  m_color->setObjectName(QStringLiteral("colrParametric"));
  m_color->SetColor(0x00A72D75);  // a plum, red in the low byte
  m_color->setFixedSize(28, 28);
  m_color->setToolTip(tr("Colour of the curve"));
  auto* range = new QHBoxLayout;
  range->setSpacing(8);
  range->addWidget(new QLabel(tr("Parameter from"), this));
  range->addWidget(m_min);
  range->addWidget(new QLabel(tr("to"), this));
  range->addWidget(m_max);
  range->addSpacing(12);
  range->addWidget(new QLabel(tr("Colour"), this));
  range->addWidget(m_color);
  range->addStretch();
  for (QLineEdit* edit : {m_min, m_max}) {
    edit->setFixedWidth(72);
    edit->setToolTip(tr("An expression: 2*pi, -pi/2 ..."));
    connect(edit, &QLineEdit::textEdited, this, &ParametricPage::Changed);
  }
  grid->addLayout(range, 3, 0, 1, 2);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(4, 1);

  int index = 1;
  for (mathx::MthX* editor : {m_x, m_y}) {
    connect(editor, &mathx::MthX::Clicked, this, [this, index] { emit EditorClicked(index); });
    connect(editor, &mathx::MthX::Change, this, [this, editor] {
      emit Changed();
      if (core::Tag(editor) != core::kQuiet) emit ReplotRequested();
    });
    ++index;
  }
  connect(m_color, &ColorButton::ColorChanged, this, &ParametricPage::Changed);
  connect(m_type, &QComboBox::currentIndexChanged, this, &ParametricPage::TypeChanged);
}

void ParametricPage::TypeChanged() {
  if (core::Tag(m_type) == core::kQuiet) return;
  emit Changed();
  const bool cartesian = m_type->currentText() == u"Cartesian";
  m_labelX->setText(cartesian ? QStringLiteral("x=") : QStringLiteral("r="));
  m_labelY->setText(cartesian ? QStringLiteral("y=") : QStringLiteral("\u03b8="));
  emit ReplotRequested();
}

}  // namespace rows
