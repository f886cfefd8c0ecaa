#include "BenchProgram.h"

#include <QApplication>
#include <QPixmap>

#include <cstdio>

namespace benches {

namespace {

constexpr int kLeast = 100;
constexpr int kMost = 8000;

std::optional<QSize> ReadSize(const QString& text) {
  const QStringList parts = text.split(u'x');
  bool width = false, height = false;
  const QSize size(parts.value(0).toInt(&width), parts.value(1).toInt(&height));
  if (parts.size() != 2 || !width || !height) return std::nullopt;
  if (std::min(size.width(), size.height()) < kLeast || std::max(size.width(), size.height()) > kMost) return std::nullopt;
  return size;
}

}  // namespace

std::optional<PictureRequest> ReadPictureRequest(const QStringList& arguments, QSize defaultSize, QString& problem) {
  problem.clear();
  PictureRequest request{QString(), defaultSize};
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const QString& argument = arguments[i];
    if ((argument == u"--picture" || argument == u"--size") && i + 1 >= arguments.size()) {
      problem = QStringLiteral("%1 needs a value").arg(argument);
      return std::nullopt;
    }
    if (argument == u"--picture") {
      request.File = arguments[++i];
    } else if (argument == u"--size") {
      const auto size = ReadSize(arguments[++i]);
      if (!size) {
        problem = QStringLiteral("--size wants WxH, such as %1x%2").arg(defaultSize.width()).arg(defaultSize.height());
        return std::nullopt;
      }
      request.Size = *size;
    } else {
      problem = QStringLiteral("unknown argument \"%1\"; the bench takes --picture FILE [--size WxH]").arg(argument);
      return std::nullopt;
    }
  }
  if (request.File.isEmpty()) return std::nullopt;
  return request;
}

QString WritePicture(const BenchProgram& program, const PictureRequest& request) {
  const std::unique_ptr<QWidget> window = program.MakeWindow();
  window->setAttribute(Qt::WA_DontShowOnScreen);
  window->resize(request.Size.expandedTo(window->minimumSize()));
  window->show();
  if (program.Stage) program.Stage(*window);
  QApplication::processEvents();
  if (!window->grab().save(request.File)) return QStringLiteral("cannot write the picture \"%1\"").arg(request.File);
  return {};
}

int RunBench(const QStringList& arguments, const BenchProgram& program) {
  const auto complain = [&program](const QString& problem) {
    std::fprintf(stderr, "%s: %s\n", qPrintable(program.Name), qPrintable(problem));
  };
  QString problem;
  const auto request = ReadPictureRequest(arguments, program.Size, problem);
  if (!problem.isEmpty()) {
    complain(problem);
    return 2;
  }
  if (request) {
    problem = WritePicture(program, *request);
    if (problem.isEmpty()) return 0;
    complain(problem);
    return 1;
  }
  const std::unique_ptr<QWidget> window = program.MakeWindow();
  window->resize(program.Size.expandedTo(window->minimumSize()));
  window->show();
  return QApplication::exec();
}

int BenchMain(int argc, char** argv, const QString& title, const std::function<BenchProgram()>& program) {
  // A picture is made off screen, on a machine with no display too.
  for (int i = 1; i < argc; ++i) {
    if (QByteArrayView(argv[i]) == "--picture" && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
      qputenv("QT_QPA_PLATFORM", "offscreen");
    }
  }
  QApplication application(argc, argv);
  QApplication::setApplicationName(title);
  QApplication::setStyle(QStringLiteral("Fusion"));
  return RunBench(QApplication::arguments().mid(1), program());
}

}  // namespace benches
