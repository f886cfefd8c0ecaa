// quillograph-abacus-bench: the calculator on the program's own engine.
#include "AbacusProgram.h"

#include <QApplication>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Quillograph Abacus"));
  QApplication::setStyle(QStringLiteral("Fusion"));
  return abacus::RunAbacus(QApplication::arguments().mid(1));
}
