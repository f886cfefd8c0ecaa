#pragma once

#include <QString>

class QWidget;

namespace mathx {
class MthX;
}

namespace rows {

// An equation editor of the input pages: a typeset field that opens the insert dialog on a click,
// with a hint while it is empty.
mathx::MthX* NewPageEditor(QWidget* parent, const QString& name, const QString& hint);

}  // namespace rows
