// The same loops, built for AVX-512; only called where the processor has it.
#include "ElementKernelsImpl.h"

namespace mathlang {

const ElementKernels& Avx512ElementKernelTable() { return kernels::kTable; }

}  // namespace mathlang
