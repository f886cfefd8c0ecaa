#include "FuzzInput.h"

#include "mathlang/BlockProgram.h"
#include "mathlang/Derivative.h"
#include "mathlang/LineParser.h"
#include "plot2d/NotablePoints.h"
#include "plot2d/Plot.h"

// Every way a text reaches the plot engine: a function line, an expression, an inequality, an
// integral; what parses is also evaluated and drawn small, and its notable points are looked for
// beside a line they may cross or touch.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString text = FuzzText(data, size);
  const mathlang::ParsedLine line = mathlang::ParseLine(text);
  if (line.Ok()) {
    const mathlang::BlockProgram program(line.Tree, line.Right);
    program.At(0.5, -0.25, 1, 2, 3);
  }
  mathlang::ParseExpression(text);
  mathlang::Derivative(text);
  mathlang::ParseInequality(text);
  if (size < 200) {
    plot2d::Plot plot;
    plot.SetSize(QSize(64, 48));
    std::int32_t kind = 0;
    plot.AddFunction(1, text, 255, true, kind, true, true, false, 0);
    std::int32_t lineKind = 0;
    plot.AddFunction(2, QStringLiteral("y=x/2"), 0, false, lineKind, false, false, false, 0);
    plot.AddInequality(text, 0, 255, false, QString());
    bool second = false;
    QString none;
    plot.AddIntegral(text, -1, 2, 255, second, none);
    plot.Redraw();
    plot2d::FindNotablePoints(plot.LastDrawing(), 0, plot.View());
  }
  return 0;
}
