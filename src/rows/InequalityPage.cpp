#include "InequalityPage.h"

#include "PageEditor.h"

#include "core/Tag.h"
#include "mathx/MthX.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

namespace rows {

namespace {

constexpr std::int32_t kGrey = 12632256;

}  // namespace

InequalityPage::InequalityPage(platform::ColorChooser& chooser, QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("InequalityPage"));
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(12, 14, 12, 12);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(10);

  m_first = new QCheckBox(tr("First"), this);
  m_first->setObjectName(QStringLiteral("chkInequality"));
  m_first->setChecked(true);
  m_first->setEnabled(false);
  m_first->setToolTip(tr("The first inequality always takes part"));
  m_twoEquation = new QCheckBox(tr("And"), this);
  m_twoEquation->setObjectName(QStringLiteral("chkInequalityTwoEquation"));
  m_twoEquation->setToolTip(tr("Shade where both inequalities hold"));

  for (int i = 0; i < 2; ++i) {
    auto* relation = new QComboBox(this);
    relation->setObjectName(QStringLiteral("cmbInequality(%1)").arg(i));
    relation->addItems({QStringLiteral(">"), QStringLiteral("<"), QStringLiteral(">="), QStringLiteral("<=")});
    relation->setCurrentIndex(0);
    relation->setToolTip(tr("The relation between y and the right-hand side"));
    m_relations[static_cast<std::size_t>(i)] = relation;
    auto* editor = NewPageEditor(this, QStringLiteral("mthInequality(%1)").arg(i), i == 0 ? tr("x^2-4") : tr("x+2"));
    m_editors[static_cast<std::size_t>(i)] = editor;
    grid->addWidget(i == 0 ? m_first : m_twoEquation, i, 0);
    grid->addWidget(new QLabel(QStringLiteral("y"), this), i, 1);
    grid->addWidget(relation, i, 2);
    grid->addWidget(editor, i, 3);
    connect(editor, &mathx::MthX::Clicked, this, [this, i] { emit EditorClicked(i); });
    connect(editor, &mathx::MthX::Change, this, [this, editor] {
      emit Changed();
      if (core::Tag(editor) != core::kQuiet) emit ReplotRequested();
    });
    connect(relation, &QComboBox::currentIndexChanged, this, &InequalityPage::Changed);
  }
  grid->setColumnStretch(3, 1);

  m_lineColor = new ColorButton(chooser, this);
  m_lineColor->setObjectName(QStringLiteral("InequalityLineColor"));
  m_lineColor->SetColor(0x00B45A1E);  // a deep blue, red in the low byte
  m_lineColor->setToolTip(tr("Colour of the boundary line"));
  m_fillColor = new ColorButton(chooser, this);
  m_fillColor->setObjectName(QStringLiteral("mnuInequalityColor"));
  m_fillColor->SetColor(0x00FDC593);
  m_fillColor->setToolTip(tr("Colour of the region"));
  auto* colours = new QHBoxLayout;
  colours->setSpacing(8);
  colours->addWidget(new QLabel(tr("Line colour"), this));
  colours->addWidget(m_lineColor);
  colours->addSpacing(20);
  colours->addWidget(new QLabel(tr("Region colour"), this));
  colours->addWidget(m_fillColor);
  colours->addStretch();
  grid->addLayout(colours, 2, 0, 1, 4);
  grid->setRowStretch(3, 1);
  for (ColorButton* button : {m_lineColor, m_fillColor}) {
    button->setFixedSize(28, 28);
    connect(button, &ColorButton::ColorChanged, this, &InequalityPage::Changed);
  }

  connect(m_twoEquation, &QCheckBox::clicked, this, &InequalityPage::TwoEquationClicked);
  // The second side starts out of play.
  m_relations[1]->setEnabled(false);
  m_editors[1]->SetEditMode(0);
}

void InequalityPage::TwoEquationClicked() {
  const bool on = m_twoEquation->isChecked();
  m_relations[1]->setEnabled(on);
  m_editors[1]->SetEditMode(on ? 1 : 0);
  // An inert editor keeps its colour: the grey is for the record, the editor greys itself.
  if (!on) m_editors[1]->SetForeColor(kGrey);
  emit Changed();
  emit ReplotRequested();
}

}  // namespace rows
