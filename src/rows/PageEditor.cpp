#include "PageEditor.h"

#include "core/Twips.h"
#include "mathx/MthX.h"

namespace rows {

mathx::MthX* NewPageEditor(QWidget* parent, const QString& name, const QString& hint) {
  auto* editor = new mathx::MthX(parent);
  editor->setObjectName(name);
  editor->setProperty("pageEditor", true);
  editor->SetForeColor(16711680);
  editor->SetPlaceholderText(hint);
  editor->SetFramed(true);
  editor->setCursor(Qt::PointingHandCursor);
  editor->setToolTip(QObject::tr("Click to edit"));
  editor->setMinimumHeight(core::Px(795));
  return editor;
}

}  // namespace rows
