#include "ViewTransform.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace plot2d {

namespace {

// Orders a range and gives it a width the doubles can resolve.
void Normalise(double& low, double& high) {
  if (!std::isfinite(low)) low = -10;
  if (!std::isfinite(high)) high = 10;
  if (low > high) std::swap(low, high);
  const double minimum = std::max(1e-12, std::abs(low) * 1e-12);
  if (high - low < minimum) {
    const double middle = (low + high) / 2;
    low = middle - minimum;
    high = middle + minimum;
  }
}

}  // namespace

ViewTransform::ViewTransform(double xMin, double xMax, double yMin, double yMax, QSize size)
    : m_xMin(xMin), m_xMax(xMax), m_yMin(yMin), m_yMax(yMax),
      m_width(std::max(1, size.width())), m_height(std::max(1, size.height())) {
  Normalise(m_xMin, m_xMax);
  Normalise(m_yMin, m_yMax);
  m_xScale = m_width / (m_xMax - m_xMin);
  m_yScale = m_height / (m_yMax - m_yMin);
}

}  // namespace plot2d
