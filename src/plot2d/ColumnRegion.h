#pragma once

#include <QPainterPath>

#include <functional>
#include <vector>

namespace plot2d {

// The region between two lines known column by column (at xs): one polygon from top to bottom
// for each run of columns that keep(i) accepts, broken where it refuses one.
QPainterPath ColumnRegion(const std::vector<double>& xs, const std::vector<double>& top,
                          const std::vector<double>& bottom, const std::function<bool(std::size_t)>& keep);

}  // namespace plot2d
