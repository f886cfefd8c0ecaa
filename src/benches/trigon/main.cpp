// quillograph-trigon-bench: the unit circle. With --picture FILE [--size WxH] it saves
// its window in a typical state, for the manual.
#include "TrigonWindow.h"
#include "UnitCircle.h"
#include "benches/common/BenchProgram.h"

namespace {

benches::BenchProgram TrigonProgram() {
  const auto stage = [](QWidget& widget) {
    static_cast<trigon::TrigonWindow&>(widget).Circle()->SetAngle(60);
  };
  return {QStringLiteral("quillograph-trigon-bench"), QSize(1100, 700), [] { return std::make_unique<trigon::TrigonWindow>(); }, stage};
}

}  // namespace

int main(int argc, char** argv) { return benches::BenchMain(argc, argv, QStringLiteral("Trigon Bench"), TrigonProgram); }
