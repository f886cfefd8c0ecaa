#pragma once

#include "Drawing.h"
#include "NotablePoints.h"
#include "ViewTransform.h"

#include <QPointF>
#include <QSizeF>
#include <QString>

#include <vector>

namespace plot2d {

// The notable points of a drawing one at a time, as the keyboard goes through them: curve by
// curve in the drawing's order, and along each curve by x, wrapping round at either end. Points of
// one curve within a pixel of each other are one stop named after all their kinds, so that a
// minimum on the y axis is heard once, as "Minimum and y-Intercept", not twice at one place.
class NotableWalk {
public:
  struct Stop {
    QPointF At;
    std::vector<NotablePoint::Kind> Kinds;  // in the order of the kinds
    int Row = 0;       // the row of its curve, 0 where the curve is no row's
    int OtherRow = 0;  // for an intersection or a corner, the other curve's row
  };

  // Finds the stops of the drawing in the view and stands before the first.
  void Find(const Drawing& drawing, const ViewTransform& view);
  // Forgets the stops: the next walk finds them again, for the drawing of that time.
  void Clear();
  // Whether stops have been found since the last Clear (there may be none).
  bool Active() const { return m_active; }

  // One stop on (1) or back (-1), wrapping round; from before the first, back goes to the last.
  void Step(int by);
  void ToFirst();
  void ToLast();

  const std::vector<Stop>& Stops() const { return m_stops; }
  // The stop the walk stands on; none before the first step or where there are no stops.
  const Stop* Current() const;

  // "Minimum and y-Intercept", "Root, Minimum and y-Intercept".
  static QString KindsText(const Stop& stop);
  // What the tip beside the stop's dot says, as a tip over a dot does: "Maximum (1.5, 2.25)".
  QString TipText(QSizeF span) const;
  // What a screen reader says of the stop: "Maximum of row 2 at (1.5, 2.25), point 3 of 12", or
  // that there is nothing to go to.
  QString SpokenText(QSizeF span) const;

private:
  std::vector<Stop> m_stops;
  int m_current = -1;
  bool m_active = false;
};

}  // namespace plot2d
