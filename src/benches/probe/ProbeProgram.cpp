#include "ProbeProgram.h"

#include "ProbeWindow.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>

namespace probe {

benches::BenchProgram ProbeProgram() {
  const auto stage = [](QWidget& widget) {
    auto& window = static_cast<ProbeWindow&>(widget);
    window.FunctionField()->setText(QStringLiteral("x^3-3x"));
    window.FromField()->setText(QStringLiteral("-3"));
    window.ToField()->setText(QStringLiteral("3"));
    window.StepField()->setText(QStringLiteral("0.5"));
    // The plot has its size before it is probed, so that its range fits the curve.
    QApplication::processEvents();
    window.Probe();
    for (int row = 0; row < window.Findings()->count(); ++row) {
      if (window.Findings()->item(row)->text().startsWith(QStringLiteral("Maximum"))) window.Findings()->setCurrentRow(row);
    }
  };
  return {QStringLiteral("quillograph-curve-probe"), QSize(1000, 640), [] { return std::make_unique<ProbeWindow>(); },
          stage};
}

int RunProbe(const QStringList& arguments) { return benches::RunBench(arguments, ProbeProgram()); }

}  // namespace probe
