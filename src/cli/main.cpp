#include "CommandLine.h"

#include <QStringList>
#include <QTextStream>

#include <cstdio>

int main(int argc, char** argv) {
  QStringList arguments;
  for (int i = 1; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
  QTextStream in(stdin);
  QTextStream out(stdout);
  QTextStream err(stderr);
  return cli::Run(arguments, {in, out, err});
}
