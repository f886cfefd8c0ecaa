// The same loops, built for AVX2; only called where the processor has it.
#include "ElementKernelsImpl.h"

namespace plot2d {

const ElementKernels& Avx2ElementKernelTable() { return kernels::kTable; }

}  // namespace plot2d
