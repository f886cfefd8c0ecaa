// quillograph-area-bench: Riemann sums. With --picture FILE [--size WxH] it saves
// its window in a typical state, for the manual.
#include "AreaWindow.h"
#include "benches/common/BenchProgram.h"

#include <QLineEdit>
#include <QSpinBox>

namespace {

benches::BenchProgram AreaProgram() {
  const auto stage = [](QWidget& widget) {
    // sin(x) over [0, pi] by the midpoint rule with eight strips.
    auto& window = static_cast<area::AreaWindow&>(widget);
    window.FunctionField()->setText(QStringLiteral("sin(x)"));
    window.ToField()->setText(QStringLiteral("pi"));
    window.ApplyInputs();
    window.CountBox()->setValue(8);
  };
  return {QStringLiteral("quillograph-area-bench"), QSize(1150, 720), [] { return std::make_unique<area::AreaWindow>(); }, stage};
}

}  // namespace

int main(int argc, char** argv) { return benches::BenchMain(argc, argv, QStringLiteral("Area Bench"), AreaProgram); }
