#include "CommandLine.h"

#include <QApplication>
#include <QGuiApplication>
#include <QStringList>
#include <QTextStream>

#include <cstdio>
#include <memory>

int main(int argc, char** argv) {
  QStringList arguments;
  for (int i = 1; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
  // Drawing needs fonts, and so an application object; off screen unless told otherwise, so the
  // command runs where no display is.
  std::unique_ptr<QGuiApplication> application;
  if (cli::NeedsGui(arguments)) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (cli::NeedsWidgets(arguments)) application = std::make_unique<QApplication>(argc, argv);
    else application = std::make_unique<QGuiApplication>(argc, argv);
  }
  QTextStream in(stdin);
  QTextStream out(stdout);
  QTextStream err(stderr);
  return cli::Run(arguments, {in, out, err});
}
