#include "ProbeProgram.h"

#include "ProbeWindow.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QRegularExpression>

#include <cstdio>

namespace probe {

namespace {

constexpr QSize kPictureSize(1000, 640);

void Complain(const QString& text) { std::fprintf(stderr, "quillograph-curve-probe: %s\n", qPrintable(text)); }

std::optional<QSize> ReadSize(const QString& text) {
  static const QRegularExpression pattern(QStringLiteral("^(\\d{2,5})x(\\d{2,5})$"));
  const auto match = pattern.match(text);
  if (!match.hasMatch()) return std::nullopt;
  return QSize(match.captured(1).toInt(), match.captured(2).toInt());
}

}  // namespace

bool SaveProbePicture(const QString& file, QSize size) {
  ProbeWindow window;
  window.setAttribute(Qt::WA_DontShowOnScreen);
  window.FunctionField()->setText(QStringLiteral("x^3-3x"));
  window.FromField()->setText(QStringLiteral("-3"));
  window.ToField()->setText(QStringLiteral("3"));
  window.StepField()->setText(QStringLiteral("0.5"));
  window.resize(size.expandedTo(window.minimumSize()));
  window.show();
  QApplication::processEvents();
  window.Probe();
  for (int row = 0; row < window.Findings()->count(); ++row) {
    if (window.Findings()->item(row)->text().startsWith(QStringLiteral("Maximum"))) window.Findings()->setCurrentRow(row);
  }
  QApplication::processEvents();
  return window.grab().save(file);
}

int RunProbe(const QStringList& arguments) {
  QString picture;
  QSize size = kPictureSize;
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const QString& a = arguments[i];
    if ((a == u"--picture" || a == u"--size") && i + 1 >= arguments.size()) {
      Complain(a + QStringLiteral(" needs a value"));
      return 2;
    }
    if (a == u"--picture") {
      picture = arguments[++i];
    } else if (a == u"--size") {
      const auto read = ReadSize(arguments[++i]);
      if (!read) {
        Complain(QStringLiteral("--size takes WIDTHxHEIGHT, such as 1000x640"));
        return 2;
      }
      size = *read;
    } else {
      Complain(QStringLiteral("unknown argument ") + a);
      return 2;
    }
  }
  if (!picture.isEmpty()) {
    if (SaveProbePicture(picture, size)) return 0;
    Complain(QStringLiteral("cannot write ") + picture);
    return 1;
  }
  ProbeWindow window;
  window.show();
  return QApplication::exec();
}

}  // namespace probe
