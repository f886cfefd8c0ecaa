// quillograph-trigon-bench: the unit circle bench. With --picture FILE [--size WxH] it lays its
// window out off screen at a typical angle, saves it to FILE and exits, for the manual.
#include "TrigonWindow.h"
#include "UnitCircle.h"

#include <QApplication>
#include <QLineEdit>
#include <QPixmap>

#include <cstdio>
#include <cstring>

namespace {

struct PictureRequest {
  QString File;
  QSize Size{1100, 700};
};

// Reads --picture FILE and --size WxH from the raw arguments, before the application exists,
// because a picture is made off screen.
bool ReadPictureRequest(int argc, char** argv, PictureRequest& request, bool& wanted) {
  for (int i = 1; i < argc; ++i) {
    const bool last = i + 1 >= argc;
    if (std::strcmp(argv[i], "--picture") == 0 && !last) {
      request.File = QString::fromLocal8Bit(argv[++i]);
      wanted = true;
    } else if (std::strcmp(argv[i], "--size") == 0 && !last) {
      const QStringList parts = QString::fromLocal8Bit(argv[++i]).split(u'x');
      bool w = false, h = false;
      if (parts.size() == 2) request.Size = QSize(parts[0].toInt(&w), parts[1].toInt(&h));
      if (!w || !h || request.Size.width() < 1 || request.Size.height() < 1) {
        std::fprintf(stderr, "quillograph-trigon-bench: --size wants WIDTHxHEIGHT, such as 1100x700\n");
        return false;
      }
    } else {
      std::fprintf(stderr, "quillograph-trigon-bench: unknown argument %s (it takes --picture FILE [--size WxH])\n",
                   argv[i]);
      return false;
    }
  }
  return true;
}

int SavePicture(trigon::TrigonWindow& window, const PictureRequest& request) {
  window.resize(request.Size.expandedTo(window.minimumSize()));
  window.show();
  window.Circle()->SetAngle(60);
  QApplication::processEvents();
  if (!window.grab().save(request.File)) {
    std::fprintf(stderr, "quillograph-trigon-bench: cannot write %s\n", qPrintable(request.File));
    return 1;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  PictureRequest request;
  bool picture = false;
  if (!ReadPictureRequest(argc, argv, request, picture)) return 2;
  if (picture) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Trigon Bench"));
  trigon::TrigonWindow window;
  if (picture) return SavePicture(window, request);
  window.resize(1100, 700);
  window.show();
  return QApplication::exec();
}
