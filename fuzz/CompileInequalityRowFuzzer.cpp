#include "FuzzInput.h"

#include "plotcompiler/EquationCompiler.h"
#include "plotcompiler/InequalityCompiler.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString text = FuzzText(data, size);
  const QString row = plotcompiler::CompileInequalityRow(text);
  plotcompiler::InequalityToDomain(text);
  // What the insert dialog stores is compiled again at every replot.
  plotcompiler::CompileEquation(row, false);
  return 0;
}
