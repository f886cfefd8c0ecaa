// The Chain Bench: the chain rule, step by step. Started with no arguments it opens its window; with
// --picture FILE it saves the window in a typical state and exits.
#include "ChainPicture.h"
#include "ChainWindow.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv) {
  bool picture = false;
  for (int i = 1; i < argc; ++i) picture = picture || QByteArrayView(argv[i]) == "--picture";
  if (picture && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Quillograph Chain Bench"));
  QApplication::setStyle(QStringLiteral("Fusion"));
  QString problem;
  const auto request = chain::ChainPicture::Read(QApplication::arguments(), problem);
  if (!problem.isEmpty()) {
    std::fprintf(stderr, "quillograph-chain-bench: %s\n", qPrintable(problem));
    return 2;
  }
  if (request) {
    problem = chain::ChainPicture::Write(*request);
    if (!problem.isEmpty()) std::fprintf(stderr, "quillograph-chain-bench: %s\n", qPrintable(problem));
    return problem.isEmpty() ? 0 : 1;
  }
  chain::ChainWindow window;
  window.show();
  return application.exec();
}
