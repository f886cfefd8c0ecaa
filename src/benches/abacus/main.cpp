// quillograph-abacus-bench: the calculator on the program's own engine.
#include "AbacusProgram.h"

int main(int argc, char** argv) {
  return benches::BenchMain(argc, argv, QStringLiteral("Quillograph Abacus"), abacus::AbacusProgram);
}
