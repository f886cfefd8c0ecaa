// The same loops, built for AVX2; only called where the processor has it.
#include "ElementKernelsImpl.h"

namespace mathlang {

const ElementKernels& Avx2ElementKernelTable() { return kernels::kTable; }

}  // namespace mathlang
