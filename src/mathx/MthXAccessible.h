#pragma once

#include <QAccessibleWidget>

namespace mathx {

// What assistive technology is told an equation editor is: editable text where it takes typing,
// a button where it takes none and a click acts on it; its value is the equation as typed. Without it the editor is a bare "filler" that screen readers pass over.
class MthXAccessible : public QAccessibleWidget {
public:
  explicit MthXAccessible(QWidget* editor);

  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  QString text(QAccessible::Text kind) const override;

  // For QAccessible::installFactory: the interface of an equation editor, none for anything else.
  static QAccessibleInterface* Create(const QString& className, QObject* object);
};

}  // namespace mathx
