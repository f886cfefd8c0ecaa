#include "SlopeProgram.h"

#include "SlopeWindow.h"


namespace slope {

benches::BenchProgram SlopeProgram() {
  const auto stage = [](QWidget& widget) {
    // A trace walked up to x0 = 1, where the secant of step 0.5 stands above the tangent.
    static_cast<SlopeWindow&>(widget).Sweep(-2, 1, 30);
  };
  return {QStringLiteral("quillograph-slope-bench"), QSize(1200, 760), [] { return std::make_unique<SlopeWindow>(); }, stage};
}

}  // namespace slope
