// quillograph-slope-bench: from secant to tangent.
#include "SlopeProgram.h"

int main(int argc, char** argv) {
  return benches::BenchMain(argc, argv, QStringLiteral("Quillograph Slope Bench"), slope::SlopeProgram);
}
