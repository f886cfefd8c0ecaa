#pragma once

#include <QStringList>
#include <QTextStream>

#include <functional>
#include <optional>
#include <vector>

namespace cli {

// The streams a subcommand reads and writes, so that tests can run it in memory.
struct Streams {
  QTextStream& In;
  QTextStream& Out;
  QTextStream& Err;
};

// Runs quillograph-cli with its arguments (without the program's name) and returns the exit code:
// 0 on success, 2 for a usage error.
int Run(const QStringList& arguments, Streams streams);

// The text of --help: every subcommand with its arguments.
QString HelpText();

// Hands each text to handle: the given texts, or with none, each line of in as it arrives (a
// carriage return at the end of a line is dropped).
void ForEachText(const QStringList& texts, QTextStream& in, const std::function<void(const QString&)>& handle);

// count numbers separated by separator ("800x600", "-1,1"), or nothing when the text is not that.
std::optional<std::vector<double>> NumberList(const QString& text, int count, QChar separator);

// Whether a command draws, and so needs a QGuiApplication (fonts) before it runs.
bool NeedsGui(const QStringList& arguments);
// Whether it runs the main form, and so needs a QApplication.
bool NeedsWidgets(const QStringList& arguments);

}  // namespace cli
