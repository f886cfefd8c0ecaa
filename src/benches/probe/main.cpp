// quillograph-curve-probe: one function examined over a range.
#include "ProbeProgram.h"

int main(int argc, char** argv) {
  return benches::BenchMain(argc, argv, QStringLiteral("Quillograph Curve Probe"), probe::ProbeProgram);
}
