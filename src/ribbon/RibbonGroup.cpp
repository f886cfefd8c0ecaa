#include "RibbonGroup.h"

#include "ColorPickerButton.h"
#include "RibbonButton.h"
#include "RibbonSlider.h"
#include "RibbonText.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <vector>

namespace ribbon {

namespace {

constexpr int kRowsPerColumn = 3;

bool IsLarge(const CommandControl& control) {
  switch (control.Kind()) {
    case ControlKind::Button:
    case ControlKind::CheckBox:
    case ControlKind::Popup:
    case ControlKind::ColorPicker:
      return control.Large();
    default:
      return false;
  }
}

QFrame* ThinLine(const QString& name, QWidget* parent) {
  auto* line = new QFrame(parent);
  line->setObjectName(name);
  line->setFrameShape(QFrame::NoFrame);
  line->setAttribute(Qt::WA_StyledBackground);
  line->setFixedWidth(1);
  line->setAutoFillBackground(true);
  QPalette palette = line->palette();
  palette.setColor(QPalette::Window, QColor(0xe5, 0xe7, 0xeb));
  line->setPalette(palette);
  return line;
}

// A text of the ribbon that follows its control's caption ("Zoom: X and Y").
QLabel* LabelView(CommandControl& control, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(QStringLiteral("RibbonLabel"));
  label->setProperty("commandId", control.Id());
  label->setFixedHeight(RibbonButton::kRowHeight);
  label->setContentsMargins(4, 0, 4, 0);
  const QPointer<CommandControl> target(&control);
  const auto follow = [label, target] {
    if (!target) return;
    label->setText(PlainCaption(target->Caption()));
    label->setToolTip(RichToolTip(*target));
    label->setEnabled(target->Enabled());
    label->setHidden(!target->Visible());
  };
  QObject::connect(&control, &CommandControl::Changed, label, follow);
  follow();
  return label;
}

}  // namespace

QWidget* RibbonGroup::CreateView(CommandControl& control, CommandBars& bars, platform::ColorChooser& colors,
                                 QWidget* parent) {
  const ButtonStyle style = IsLarge(control) ? ButtonStyle::Large : ButtonStyle::Small;
  switch (control.Kind()) {
    case ControlKind::Button:
    case ControlKind::CheckBox:
    case ControlKind::Popup:
      return new RibbonButton(control, bars, style, parent);
    case ControlKind::ColorPicker:
      return new ColorPickerButton(control, bars, colors, style, parent);
    case ControlKind::Slider:
      return new RibbonSlider(control, bars, parent);
    case ControlKind::Label:
      return LabelView(control, parent);
    case ControlKind::Tab:
    case ControlKind::Group:
      return nullptr;
  }
  return nullptr;
}

RibbonGroup::RibbonGroup(CommandControl& group, CommandBars& bars, platform::ColorChooser& colors, QWidget* parent)
    : QWidget(parent), m_control(&group) {
  setObjectName(QStringLiteral("RibbonGroup"));
  setProperty("commandId", group.Id());
  auto* outer = new QHBoxLayout(this);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(0);
  auto* body = new QVBoxLayout;
  body->setContentsMargins(6, 4, 6, 2);
  body->setSpacing(2);
  m_columns = new QHBoxLayout;
  m_columns->setSpacing(2);
  body->addLayout(m_columns);
  body->addStretch(1);
  m_caption = new QLabel(this);
  m_caption->setObjectName(QStringLiteral("RibbonGroupCaption"));
  m_caption->setAlignment(Qt::AlignCenter);
  body->addWidget(m_caption);
  outer->addLayout(body);
  auto* separator = ThinLine(QStringLiteral("RibbonGroupSeparator"), this);
  outer->addWidget(separator);
  outer->setAlignment(separator, Qt::AlignVCenter);
  separator->setFixedHeight(RibbonButton::kLargeHeight);
  Build(bars, colors);
  connect(&group, &CommandControl::Changed, this, &RibbonGroup::Follow);
  Follow();
}

QVBoxLayout* RibbonGroup::NewColumn(bool behindLine) {
  if (behindLine && m_columns->count() > 0) {
    auto* line = ThinLine(QStringLiteral("RibbonColumnSeparator"), this);
    line->setFixedHeight(RibbonButton::kLargeHeight - 8);
    m_columns->addWidget(line, 0, Qt::AlignVCenter);
  }
  auto* column = new QVBoxLayout;
  column->setSpacing(2);
  column->setAlignment(Qt::AlignTop);
  m_columns->addLayout(column);
  return column;
}

void RibbonGroup::Build(CommandBars& bars, platform::ColorChooser& colors) {
  QVBoxLayout* smallColumn = nullptr;
  int rows = 0;
  for (const auto& child : m_control->Controls()) {
    QWidget* view = CreateView(*child, bars, colors, this);
    if (view == nullptr) continue;
    if (IsLarge(*child)) {
      NewColumn(child->BeginGroup())->addWidget(view);
      smallColumn = nullptr;
      continue;
    }
    if (smallColumn == nullptr || rows == kRowsPerColumn || child->BeginGroup()) {
      smallColumn = NewColumn(child->BeginGroup());
      rows = 0;
    }
    smallColumn->addWidget(view, 0, Qt::AlignLeft);
    ++rows;
  }
  LineUpSliders();
}

void RibbonGroup::LineUpSliders() {
  for (int i = 0; i < m_columns->count(); ++i) {
    QLayout* column = m_columns->itemAt(i)->layout();
    if (column == nullptr) continue;
    std::vector<RibbonSlider*> sliders;
    int width = 0;
    for (int row = 0; row < column->count(); ++row) {
      if (auto* slider = qobject_cast<RibbonSlider*>(column->itemAt(row)->widget())) {
        sliders.push_back(slider);
        width = qMax(width, slider->CaptionWidth());
      }
    }
    for (RibbonSlider* slider : sliders) slider->SetCaptionWidth(width);
  }
}

void RibbonGroup::Follow() {
  if (!m_control) return;
  m_caption->setText(PlainCaption(m_control->Caption()));
  setEnabled(m_control->Enabled());
  setHidden(!m_control->Visible());
}

}  // namespace ribbon
