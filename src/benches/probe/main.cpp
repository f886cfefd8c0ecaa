// quillograph-curve-probe: one function examined over a range.
#include "ProbeProgram.h"

#include <QApplication>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Quillograph Curve Probe"));
  QApplication::setStyle(QStringLiteral("Fusion"));
  return probe::RunProbe(QApplication::arguments().mid(1));
}
