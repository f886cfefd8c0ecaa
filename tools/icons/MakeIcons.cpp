// quillograph-makeicons SVG OUTFOLDER SIZE...: the program's icon drawn as PNG pictures of the
// given sizes (OUTFOLDER/SIZExSIZE/quillograph.png), for the desktop's icon theme.
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() < 4) {
    std::fprintf(stderr, "usage: quillograph-makeicons SVG OUTFOLDER SIZE...\n");
    return 2;
  }
  QSvgRenderer svg(arguments[1]);
  if (!svg.isValid()) {
    std::fprintf(stderr, "quillograph-makeicons: cannot read %s\n", qPrintable(arguments[1]));
    return 1;
  }
  const QString name = QFileInfo(arguments[1]).completeBaseName();
  for (int i = 3; i < arguments.size(); ++i) {
    const int size = arguments[i].toInt();
    if (size < 8 || size > 1024) continue;
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    svg.render(&painter, QRectF(0, 0, size, size));
    painter.end();
    const QString folder = QStringLiteral("%1/%2x%2").arg(arguments[2]).arg(size);
    QDir().mkpath(folder);
    if (!image.save(folder + u'/' + name + QStringLiteral(".png"))) return 1;
  }
  return 0;
}
