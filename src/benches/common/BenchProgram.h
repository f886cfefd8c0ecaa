#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace benches {

// What the command line of every bench may ask for: "--picture FILE [--size WxH]", the window
// laid out off screen in a typical state and saved, for the manual.
struct PictureRequest {
  QString File;
  QSize Size;
};

// One bench as a program: its name for messages, the size its window starts at, how to make the
// window, and how to put it in the state the manual shows (after it is shown at its size).
struct BenchProgram {
  QString Name;  // "quillograph-abacus-bench"
  QSize Size;
  std::function<std::unique_ptr<QWidget>()> MakeWindow;
  std::function<void(QWidget&)> Stage;
};

// The arguments after the program's name. Nothing when no picture is asked for; problem says in
// words what is wrong with them.
std::optional<PictureRequest> ReadPictureRequest(const QStringList& arguments, QSize defaultSize, QString& problem);
// Makes the window, stages it off screen at the request's size and saves it; the problem in words,
// or empty.
QString WritePicture(const BenchProgram& program, const PictureRequest& request);
// The program with a running application: 0, 1 when the picture cannot be written, 2 for wrong
// arguments (told on standard error); with no arguments the window, until it is closed.
int RunBench(const QStringList& arguments, const BenchProgram& program);
// main: the application (off screen when only a picture is wanted), its name and style, then
// RunBench.
int BenchMain(int argc, char** argv, const QString& title, const std::function<BenchProgram()>& program);

}  // namespace benches
