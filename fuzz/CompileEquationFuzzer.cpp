#include "FuzzInput.h"

#include "plotcompiler/EquationCompiler.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString text = FuzzText(data, size);
  plotcompiler::CompileEquation(text, false);
  plotcompiler::CompileEquation(text, true);
  plotcompiler::DomainToInequality(text);
  return 0;
}
