#include "AbacusProgram.h"

#include "AbacusWindow.h"

#include <QLineEdit>

namespace abacus {

benches::BenchProgram AbacusProgram() {
  const auto stage = [](QWidget& widget) {
    auto& window = static_cast<AbacusWindow&>(widget);
    for (const char* line : {"2+3*4", "sqrt(2)", "ans^2", "1/3"}) {
      window.Input()->setText(QString::fromLatin1(line));
      window.Evaluate();
    }
    window.SetUnit(AngleUnit::Degrees);
    window.Input()->setText(QStringLiteral("sin(30)"));
    window.Evaluate();
    window.Input()->setText(QStringLiteral("1/0"));
    window.Evaluate();
  };
  return {QStringLiteral("quillograph-abacus-bench"), QSize(560, 520), [] { return std::make_unique<AbacusWindow>(); },
          stage};
}

int RunAbacus(const QStringList& arguments) { return benches::RunBench(arguments, AbacusProgram()); }

}  // namespace abacus
