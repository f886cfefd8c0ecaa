#include "RowBuilder.h"

#include "ColorButton.h"
#include "ConstantSlider.h"
#include "RowMetrics.h"

#include "core/ColorNames.h"
#include "core/Tag.h"
#include "core/Twips.h"
#include "mathx/MthX.h"
#include "ribbon/Icons.h"

#include <QGraphicsOpacityEffect>
#include <QStyle>
#include <QTextEdit>
#include <QToolTip>

namespace rows {

using core::Px;
using namespace metrics;

namespace {

QFrame* Line(QWidget* parent, const char* name) {
  auto* line = new QFrame(parent);
  line->setObjectName(QString::fromLatin1(name));
  line->setProperty("activeLine", true);
  line->hide();
  return line;
}

constexpr double kProblemSize = 270;  // twips: the warning mark, under the button beside the editor

// How much of a hidden row's equation shows through: enough to read, plainly not drawn.
constexpr double kHiddenOpacity = 0.4;

QToolButton* ProblemMark(QFrame* parent) {
  auto* mark = new QToolButton(parent);
  mark->setObjectName(QStringLiteral("imgProblem"));
  mark->setAutoRaise(true);
  mark->setIconSize(QSize(16, 16));
  // Our own amber sign: the desktop's warning icon can be a plain bubble that does not stand out.
  mark->setIcon(ribbon::IconFor(QStringLiteral("row-warning")));
  mark->setAccessibleName(QObject::tr("Cannot be drawn"));
  // Within reach of the keyboard, and a click or a key tells the reason where a pointer cannot hover.
  mark->setFocusPolicy(Qt::TabFocus);
  QObject::connect(mark, &QToolButton::clicked, mark, [mark] {
    QToolTip::showText(mark->mapToGlobal(QPoint(0, mark->height())), mark->toolTip(), mark);
  });
  mark->hide();
  return mark;
}

}  // namespace

FunctionRow RowBuilder::Create(QWidget& picFunction, platform::ColorChooser& chooser, int index, bool showNote) {
  FunctionRow row;
  row.grpFunction = new QFrame(&picFunction);
  row.grpFunction->setObjectName(QStringLiteral("grpFunction"));
  row.grpFunction->setFocusPolicy(Qt::ClickFocus);
  row.grpFunction->setAccessibleName(QObject::tr("Row %1").arg(index + 1));
  core::SetTag(row.grpFunction, QString::fromLatin1(kDefaultAttributes));

  row.colrFunction = new ColorButton(chooser, row.grpFunction);
  row.colrFunction->SetCaption(QString::number(index + 1));
  row.colrFunction->setGeometry(Px(kColorLeft), Px(kEditorTop + (kMinEditorHeight - kColorSize) / 2), Px(kColorSize),
                                Px(kColorSize));

  row.mthFunction = new mathx::MthX(row.grpFunction);
  core::SetTag(row.mthFunction, core::kQuiet);
  row.mthFunction->setObjectName(QStringLiteral("mthFunction"));
  row.mthFunction->setAccessibleName(QObject::tr("Row %1").arg(index + 1));
  row.mthFunction->SetForeColor(16711680);
  row.mthFunction->move(Px(kEditorLeft), Px(kEditorTop));
  row.mthFunction->resize(Px(kEditorWidth), Px(kMinEditorHeight));
  row.mthFunction->setCursor(Qt::PointingHandCursor);
  row.mthFunction->setToolTip(QObject::tr("Click to edit this row"));
  row.mthFunction->SetPlaceholderText(QObject::tr("Click to type an equation"));

  row.btnMore = new QToolButton(row.grpFunction);
  row.btnMore->setObjectName(QStringLiteral("btnMore"));
  row.btnMore->setAccessibleName(QObject::tr("Menu of row %1").arg(index + 1));
  row.btnMore->setIcon(ribbon::IconFor(QStringLiteral("row-more")));
  row.btnMore->setAutoRaise(true);
  row.btnMore->setToolTip(QObject::tr("More for this row"));
  row.btnMore->setFocusPolicy(Qt::TabFocus);

  row.rchfunNote = new QTextEdit(row.grpFunction);
  row.rchfunNote->setObjectName(QStringLiteral("rchfunNote"));
  row.rchfunNote->setVisible(showNote);
  row.rchfunNote->setGeometry(row.mthFunction->geometry());
  row.rchfunNote->setPlainText(QString::fromLatin1(kDefaultNote));
  row.rchfunNote->selectAll();

  const auto icon = [&row](const char* name) {
    auto* image = new QToolButton(row.grpFunction);
    image->setObjectName(QString::fromLatin1(name));
    image->setAutoRaise(true);
    image->setIconSize(QSize(16, 16));
    image->setGeometry(row.colrFunction->geometry());
    image->setFocusPolicy(Qt::NoFocus);
    image->hide();
    return image;
  };
  row.imgInvisible = icon("imgInvisible");
  row.imgNote = icon("imgNote");
  row.imgProblem = ProblemMark(row.grpFunction);

  row.sliConstant = new ConstantSlider(row.grpFunction);
  row.sliConstant->hide();

  row.ActiveLine_UP = Line(row.grpFunction, "ActiveLine_UP");
  row.ActiveLine_Down = Line(row.grpFunction, "ActiveLine_Down");
  row.ActiveLine_Left = Line(row.grpFunction, "ActiveLine_Left");
  row.ActiveLine_Right = Line(row.grpFunction, "ActiveLine_Right");
  PlaceFrame(row);
  return row;
}

void RowBuilder::Destroy(FunctionRow& row) {
  for (QWidget* widget : {static_cast<QWidget*>(row.mthFunction), static_cast<QWidget*>(row.colrFunction),
                          static_cast<QWidget*>(row.btnMore), static_cast<QWidget*>(row.rchfunNote),
                          static_cast<QWidget*>(row.ActiveLine_UP), static_cast<QWidget*>(row.ActiveLine_Down),
                          static_cast<QWidget*>(row.ActiveLine_Left), static_cast<QWidget*>(row.ActiveLine_Right),
                          static_cast<QWidget*>(row.imgInvisible), static_cast<QWidget*>(row.imgNote),
                          static_cast<QWidget*>(row.imgProblem), static_cast<QWidget*>(row.sliConstant),
                          static_cast<QWidget*>(row.grpFunction)}) {
    if (widget == nullptr) continue;
    // A handler of the row itself may be running (its menu removes it): go when it has returned.
    widget->hide();
    widget->setParent(nullptr);
    widget->deleteLater();
  }
  row = FunctionRow{};
}

void RowBuilder::FixEditorWidth(FunctionRow& row) {
  row.mthFunction->resize(Px(kEditorWidth), row.mthFunction->height());
}

void RowBuilder::PlaceFrame(FunctionRow& row) {
  const QRect editor = row.mthFunction->geometry();
  const int top = Px(kFrameTop);
  const int bottom = Px(std::max<double>(core::Tw(editor.height()), kMinEditorHeight)) + editor.top();
  const int left = editor.left() - Px(kFrameOutset);
  const int right = editor.left() + Px(kEditorWidth) + Px(kFrameOutset);
  const int line = std::max(1, Px(kFrameLine));
  row.ActiveLine_UP->setGeometry(left, top, right - left, line);
  row.ActiveLine_Down->setGeometry(left, bottom, right - left, line);
  row.ActiveLine_Left->setGeometry(left, top, line, bottom - top + line);
  row.ActiveLine_Right->setGeometry(right - line, top, line, bottom - top + line);
  const int more = Px(kMoreSize);
  row.btnMore->setGeometry(right + Px(kMoreGap), editor.top() + (Px(kMinEditorHeight) - more) / 2, more, more);
  const int mark = Px(kProblemSize);
  row.imgProblem->setGeometry(row.btnMore->x() + (more - mark) / 2, row.btnMore->geometry().bottom() + 1, mark, mark);
  // Under the frame, from the editor's left to the button's right.
  row.sliConstant->setGeometry(editor.left(), bottom + line + Px(kSliderGap), row.btnMore->geometry().right() - editor.left(),
                               Px(kSliderHeight) - Px(kSliderGap));
}

double RowBuilder::SliderHeight(const FunctionRow& row) { return row.sliConstant->isHidden() ? 0 : kSliderHeight; }

void RowBuilder::ShowProblem(FunctionRow& row, const QString& why) {
  row.imgProblem->setToolTip(why);
  row.imgProblem->setAccessibleDescription(why);
  row.imgProblem->setVisible(!why.isEmpty());
}

QString RowBuilder::Problem(const FunctionRow& row) {
  return row.imgProblem->isHidden() ? QString() : row.imgProblem->toolTip();
}

// Through an effect rather than the text's colour, which the input tabs set for every row.
void RowBuilder::ShowDrawn(FunctionRow& row, bool drawn) {
  if (drawn) {
    row.mthFunction->setGraphicsEffect(nullptr);
  } else if (row.mthFunction->graphicsEffect() == nullptr) {
    auto* faded = new QGraphicsOpacityEffect(row.mthFunction);
    faded->setOpacity(kHiddenOpacity);
    row.mthFunction->setGraphicsEffect(faded);
  }
}

// What a screen reader says of a row: its number and colour as the editor's and the colour
// button's names, and the equation with what the row is in the editor's description.
void RowBuilder::Speak(FunctionRow& row, int index, const QString& equation, bool drawn, bool note) {
  const QString colour = core::ColorName(row.colrFunction->Color());
  const QString number = QString::number(index + 1);
  QStringList parts;
  if (note) {
    parts << QObject::tr("Note") << row.rchfunNote->toPlainText().simplified();
  } else {
    parts << (equation.isEmpty() ? QObject::tr("empty row") : equation);
    if (!drawn) parts << QObject::tr("hidden: not drawn");
  }
  row.mthFunction->setAccessibleName(QObject::tr("Row %1, %2").arg(number, colour));
  row.mthFunction->setAccessibleDescription(parts.join(QStringLiteral(", ")));
  row.rchfunNote->setAccessibleName(QObject::tr("Note of row %1").arg(number));
  row.colrFunction->setAccessibleName(QObject::tr("Colour of row %1: %2").arg(number, colour));
}

}  // namespace rows
