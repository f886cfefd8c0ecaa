#include "MthXAccessible.h"

#include "MthX.h"

namespace mathx {

namespace {

const MthX& EditorOf(const QAccessibleWidget& accessible) { return *static_cast<const MthX*>(accessible.object()); }

}  // namespace

MthXAccessible::MthXAccessible(QWidget* editor) : QAccessibleWidget(editor) {}

QAccessible::Role MthXAccessible::role() const {
  return EditorOf(*this).EditMode() == 1 ? QAccessible::EditableText : QAccessible::Button;
}

QAccessible::State MthXAccessible::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  if (EditorOf(*this).EditMode() == 1) state.editable = true;
  return state;
}

QString MthXAccessible::text(QAccessible::Text kind) const {
  if (kind == QAccessible::Value) return EditorOf(*this).Text();
  return QAccessibleWidget::text(kind);
}

QAccessibleInterface* MthXAccessible::Create(const QString& className, QObject* object) {
  if (className == QLatin1String("mathx::MthX") && object != nullptr && object->isWidgetType())
    return new MthXAccessible(static_cast<QWidget*>(object));
  return nullptr;
}

}  // namespace mathx
