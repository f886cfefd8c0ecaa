#pragma once

namespace plotcompiler {

// What the replot driver asks of a 3D plot, on the 3D tab.
class Plot3DControl {
public:
  virtual ~Plot3DControl() = default;
  virtual void Redraw() = 0;
};

}  // namespace plotcompiler
