#pragma once

#include "plot2d/Plot.h"

#include <QString>

// The heavy scene: 100 explicit curves, 10 implicit, 5 polar and 2 inequalities, drawn at
// 1920x1080. A light scene is its first ten explicit curves alone.
inline void FillHeavyScene(plot2d::Plot& plot, int explicitCurves = 100, bool others = true) {
  const char* templates[] = {"y=sin(x*%1)*%2+%3", "y=%1*x^2/10+%2-%3", "y=tan(x+%1)+%2*0+%3*0", "y=sqrt(x+%1)*%2+%3",
                             "y=exp(x/%1)-%2+%3", "y=1/(x-%3)+%1*0+%2*0", "y=abs(x-%3)-%2+%1*0", "y=fix(x/%1)+%3+%2*0",
                             "y=x^3/%1/20-x+%3+%2*0", "y=cos(%1*x)*exp(-abs(x)/%2)+%3"};
  std::int32_t kind = 0;
  for (int k = 0; k < explicitCurves; ++k) {
    const QString line = QString(templates[k % 10]).arg(1 + k % 7).arg(1 + k % 3).arg(k % 9 - 4);
    plot.AddFunction(static_cast<std::int16_t>(k + 1), line, 255 + k * 1000, false, kind, false, false, false, 0);
  }
  if (!others) return;
  const char* implicit[] = {"x^2+y^2=%1", "x^2-y^2=%1", "sin(x)=cos(y)+%1/10", "x*y=%1", "(x^2+y^2-%1)^3=x^2*y^3",
                            "x^2/%1+y^2/4=1", "y^2=x^3-%1*x", "sin(x*y)=%1/10", "abs(x)+abs(y)=%1", "x^4+y^4=%1"};
  for (int k = 0; k < 10; ++k) {
    plot.AddFunction(static_cast<std::int16_t>(101 + k), QString(implicit[k]).arg(k + 1), 16711680, false, kind, false, false, false, 0);
  }
  const char* polar[] = {"r=theta/2", "r=2*sin(3*theta)", "r=4*cos(2*theta)", "r=1+cos(theta)*3", "r=theta;0<theta<20"};
  for (int k = 0; k < 5; ++k) plot.AddFunction(static_cast<std::int16_t>(111 + k), polar[k], 32768, false, kind, false, false, false, 0);
  plot.AddInequality("y<x^2-3", 128, 16776960, false, QString());
  plot.AddInequality("y>sin(x)*4", 128, 65535, true, "y<6");
}
