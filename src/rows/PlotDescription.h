#pragma once

#include <QString>

namespace core {
struct SharedState;
}
namespace plot2d {
class Plot;
}

namespace rows {

class FunctionList;

// What the plot shows, in words, for a screen reader: the range, then each row that is drawn
// with its number, colour, kind and equation ("Row 1, red: curve, y equals x squared").
class PlotDescription {
public:
  static QString Of(const FunctionList& rows, const core::SharedState& state, const plot2d::Plot& plot);
};

}  // namespace rows
