#include "PlotDescription.h"

#include "ColorButton.h"
#include "FunctionList.h"
#include "RowKind.h"

#include "core/ColorNames.h"
#include "core/NumberText.h"
#include "core/TextFunctions.h"
#include "core/Tag.h"
#include "mathx/MthX.h"
#include "mathx/SpokenForm.h"
#include "plot2d/Plot.h"

#include <QStringList>
#include <QTextEdit>

namespace rows {

namespace {

QString KindOf(const QString& text, RowKind kind, bool constant) {
  if (constant) return QObject::tr("constant");
  switch (kind) {
    case RowKind::Point: return QObject::tr("points");
    case RowKind::Command: return QObject::tr("display command");
    case RowKind::Declaration: return QObject::tr("restricted curve");
    default: break;
  }
  const QString compact = QString(text).remove(u' ');
  if (compact.startsWith(QStringLiteral("r="))) return QObject::tr("polar curve");
  if (compact.startsWith(QStringLiteral("y=")) || compact.startsWith(QStringLiteral("x="))) return QObject::tr("curve");
  return QObject::tr("implicit curve");
}

// The words the list keeps for the row's screen reader, where they are for its text as it is.
QString Spoken(const FunctionRow& row, const QString& text) {
  if (row.mthFunction->property("spokenOf").toString() == text && row.mthFunction->property("spoken").isValid())
    return row.mthFunction->property("spoken").toString();
  return mathx::SpokenForm::OfRow(text);
}

bool Drawn(const FunctionRow& row) {
  const QStringList options = core::Split(core::Tag(row.grpFunction), QStringLiteral(","));
  return options.size() <= 4 || options.at(4) != u"False";
}

}  // namespace

QString PlotDescription::Of(const FunctionList& rows, const core::SharedState& state, const plot2d::Plot& plot) {
  QStringList parts;
  parts << QObject::tr("x from %1 to %2, y from %3 to %4")
               .arg(core::FormatNumber(plot.XMin()), core::FormatNumber(plot.XMax()), core::FormatNumber(plot.YMin()),
                    core::FormatNumber(plot.YMax()));
  int shown = 0;
  for (int i = 0; i <= rows.HighestIndex(); ++i) {
    const FunctionRow& row = rows.Row(i);
    const QString text = row.mthFunction->Text();
    const bool note = !row.rchfunNote->isHidden();
    const RowKind kind = KindOfRow(text, note);
    if (kind == RowKind::Note || kind == RowKind::Empty || !Drawn(row)) continue;
    const bool constant = ConstantOfRow(state, text, note).has_value();
    parts << QObject::tr("Row %1, %2: %3, %4")
                 .arg(i + 1)
                 .arg(core::ColorName(row.colrFunction->Color()), KindOf(text, kind, constant),
                      Spoken(row, text));
    ++shown;
  }
  if (shown == 0) parts << QObject::tr("Nothing is drawn");
  return parts.join(QStringLiteral(". ")) + u'.';
}

}  // namespace rows
