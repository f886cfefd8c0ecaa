// quillograph-chain-bench: the chain rule, step by step.
#include "ChainProgram.h"

int main(int argc, char** argv) {
  return benches::BenchMain(argc, argv, QStringLiteral("Quillograph Chain Bench"), chain::ChainProgram);
}
