#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

// Every widget and form carries a free text, its tag. The mark "NOT" in a widget's tag tells its
// change handler to stay quiet while the program itself writes to the widget; a form's tag passes
// a parameter (a dialog's mode, a row index).
namespace core {

inline QString Tag(const QObject* object) { return object ? object->property("tag").toString() : QString(); }

inline void SetTag(QObject* object, const QString& tag) {
  if (object) object->setProperty("tag", tag);
}

inline const QString kQuiet = QStringLiteral("NOT");

}  // namespace core
