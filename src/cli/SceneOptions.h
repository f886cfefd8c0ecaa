#pragma once

#include "plot2d/Plot.h"

#include <QSize>
#include <QStringList>
#include <QTextStream>

#include <array>
#include <optional>

namespace cli {

// What a command that builds a plot scene takes from its options: the picture's size and range,
// the quality, and the rows and items to add. plot draws the scene; points lists its special
// points. Both build it the same way, so that they agree with each other and with the program.
struct SceneOptions {
  QSize Size{800, 600};
  std::optional<std::array<double, 4>> Range;
  double Quality = 100;
  double Thickness = 2;
  QStringList Lines, Points, Integrals, Inequalities, Parametrics;

  enum class Read : std::uint8_t { Taken, NotOurs, Invalid };
  // Reads the option at arguments[i] (and its value, moving i past it) if it is one of the
  // scene's: --size, --range, --quality, --thickness, --line, --point, --integral, --inequality,
  // --parametric. Invalid values are said on err behind "quillograph-cli COMMAND: ".
  Read Take(const QStringList& arguments, qsizetype& i, QTextStream& err, const QString& command);

  // Sets the scene's size, range, quality and thickness.
  void ApplyView(plot2d::Plot& plot) const;
  // Adds the rows and items, each line as the replot driver adds a row; false when an option's
  // text has not the form it wants (each such is said on err).
  bool AddItems(plot2d::Plot& plot, QTextStream& err, const QString& command) const;
};

}  // namespace cli
