// The Slope Bench: from secant to tangent. Started with no arguments it opens its window; with
// --picture FILE it saves the window in a typical state and exits.
#include "SlopePicture.h"
#include "SlopeWindow.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv) {
  bool picture = false;
  for (int i = 1; i < argc; ++i) picture = picture || QByteArrayView(argv[i]) == "--picture";
  if (picture && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Quillograph Slope Bench"));
  QApplication::setStyle(QStringLiteral("Fusion"));
  QString problem;
  const auto request = slope::SlopePicture::Read(QApplication::arguments(), problem);
  if (!problem.isEmpty()) {
    std::fprintf(stderr, "quillograph-slope-bench: %s\n", qPrintable(problem));
    return 2;
  }
  if (request) {
    problem = slope::SlopePicture::Write(*request);
    if (!problem.isEmpty()) std::fprintf(stderr, "quillograph-slope-bench: %s\n", qPrintable(problem));
    return problem.isEmpty() ? 0 : 1;
  }
  slope::SlopeWindow window;
  window.show();
  return application.exec();
}
