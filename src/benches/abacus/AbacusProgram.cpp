#include "AbacusProgram.h"

#include "AbacusWindow.h"

#include <QApplication>
#include <QLineEdit>
#include <QPixmap>
#include <QRegularExpression>

#include <cstdio>

namespace abacus {

namespace {

constexpr QSize kPictureSize(560, 520);

void Complain(const QString& text) { std::fprintf(stderr, "quillograph-abacus-bench: %s\n", qPrintable(text)); }

std::optional<QSize> ReadSize(const QString& text) {
  static const QRegularExpression pattern(QStringLiteral("^(\\d{2,5})x(\\d{2,5})$"));
  const auto match = pattern.match(text);
  if (!match.hasMatch()) return std::nullopt;
  return QSize(match.captured(1).toInt(), match.captured(2).toInt());
}

}  // namespace

bool SaveAbacusPicture(const QString& file, QSize size) {
  AbacusWindow window;
  window.setAttribute(Qt::WA_DontShowOnScreen);
  for (const char* line : {"2+3*4", "sqrt(2)", "ans^2", "1/3"}) {
    window.Input()->setText(QString::fromLatin1(line));
    window.Evaluate();
  }
  window.SetUnit(AngleUnit::Degrees);
  window.Input()->setText(QStringLiteral("sin(30)"));
  window.Evaluate();
  window.Input()->setText(QStringLiteral("1/0"));
  window.Evaluate();
  window.resize(size.expandedTo(window.minimumSize()));
  window.show();
  QApplication::processEvents();
  return window.grab().save(file);
}

int RunAbacus(const QStringList& arguments) {
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
        Complain(QStringLiteral("--size takes WIDTHxHEIGHT, such as 560x520"));
        return 2;
      }
      size = *read;
    } else {
      Complain(QStringLiteral("unknown argument ") + a);
      return 2;
    }
  }
  if (!picture.isEmpty()) {
    if (SaveAbacusPicture(picture, size)) return 0;
    Complain(QStringLiteral("cannot write ") + picture);
    return 1;
  }
  AbacusWindow window;
  window.show();
  return QApplication::exec();
}

}  // namespace abacus
