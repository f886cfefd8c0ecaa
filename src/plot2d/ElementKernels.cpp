#include "ElementKernelsImpl.h"

namespace plot2d {

#ifdef QUILLOGRAPH_HAVE_AVX2
const ElementKernels& Avx2ElementKernelTable();  // ElementKernelsAvx2.cpp
#endif

const ElementKernels& BaselineElementKernels() { return kernels::kTable; }

const ElementKernels* Avx2ElementKernels() {
#ifdef QUILLOGRAPH_HAVE_AVX2
  static const bool supported = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
  if (supported) return &Avx2ElementKernelTable();
#endif
  return nullptr;
}

const ElementKernels& ChosenElementKernels() {
  static const ElementKernels& chosen = Avx2ElementKernels() ? *Avx2ElementKernels() : kernels::kTable;
  return chosen;
}

}  // namespace plot2d
