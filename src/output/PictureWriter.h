#pragma once

#include "plot2d/Plot.h"
#include "plot3d/Plot3D.h"

#include <QImage>
#include <QString>

// The export page's pictures beyond the plots' own SavePicture: the scenes at their own size for
// the clipboard, and the same drawings written as SVG and PDF. Sizes are the scenes' sizes in
// logical pixels (15 twips each), whatever screen the scenes are shown on; a PDF page has the
// physical size of the picture, at 96 pixels to the inch.
namespace output {

// The 2D picture at the scene's size in logical pixels, with an alpha channel when the background
// is transparent. A scene shown on a dense screen is sampled again for it.
QImage FlatPicture(const plot2d::Plot& scene);
// The surface at the scene's size in logical pixels.
QImage FlatPicture(const plot3d::Plot3D& scene);

// Write the drawing as vectors: background, grid, shaded regions, axes, numbers, curves, dots,
// labels and frame as the plot paints them; regions known only cell by cell (the sides of
// implicit curves) stay pictures inside the file. A surface is its rendered picture. Each raises
// core::RuntimeError 75 with the system's reason when the file cannot be written.
void WriteSvg(const plot2d::Plot& scene, const QString& name);
void WriteSvg(const plot3d::Plot3D& scene, const QString& name);
void WritePdf(const plot2d::Plot& scene, const QString& name);
void WritePdf(const plot3d::Plot3D& scene, const QString& name);

}  // namespace output
