#include "ElementKernelsImpl.h"
#include "VectorMath.h"

namespace mathlang {

#ifdef QUILLOGRAPH_HAVE_AVX2
const ElementKernels& Avx2ElementKernelTable();    // ElementKernelsAvx2.cpp
const ElementKernels& Avx512ElementKernelTable();  // ElementKernelsAvx512.cpp
#endif

const ElementKernels& BaselineElementKernels() { return kernels::kTable; }

const ElementKernels* Avx2ElementKernels() {
#ifdef QUILLOGRAPH_HAVE_AVX2
  if (ProcessorHasAvx2()) return &Avx2ElementKernelTable();
#endif
  return nullptr;
}

const ElementKernels* Avx512ElementKernels() {
#ifdef QUILLOGRAPH_HAVE_AVX2
  if (ProcessorHasAvx512()) return &Avx512ElementKernelTable();
#endif
  return nullptr;
}

const ElementKernels& ChosenElementKernels() {
  static const ElementKernels& chosen = Avx512ElementKernels() ? *Avx512ElementKernels()
                                        : Avx2ElementKernels() ? *Avx2ElementKernels()
                                                               : kernels::kTable;
  return chosen;
}

}  // namespace mathlang
