#pragma once

#include "cli/CommandLine.h"

// Runs quillograph-cli in memory with the given arguments and standard input.
struct CliResult {
  int Code;
  QString Out;
  QString Err;
};

inline CliResult RunCli(const QStringList& arguments, const QString& input = {}) {
  QString in = input;
  QString out;
  QString err;
  QTextStream inStream(&in);
  QTextStream outStream(&out);
  QTextStream errStream(&err);
  const int code = cli::Run(arguments, {inStream, outStream, errStream});
  return {code, out, err};
}
