#include "ChainPicture.h"

#include "ChainWindow.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QPixmap>

namespace chain {

std::optional<ChainPicture::Request> ChainPicture::Read(const QStringList& arguments, QString& problem) {
  problem.clear();
  Request request;
  bool wanted = false;
  for (qsizetype i = 1; i < arguments.size(); ++i) {
    const QString& a = arguments[i];
    if ((a == u"--picture" || a == u"--size") && i + 1 >= arguments.size()) {
      problem = QStringLiteral("%1 needs a value").arg(a);
      return std::nullopt;
    }
    if (a == u"--picture") {
      request.File = arguments[++i];
      wanted = true;
    } else if (a == u"--size") {
      const QStringList parts = arguments[++i].split(u'x');
      bool okW = false, okH = false;
      const int w = parts.value(0).toInt(&okW), h = parts.value(1).toInt(&okH);
      if (parts.size() != 2 || !okW || !okH || w < 200 || h < 200 || w > 8000 || h > 8000) {
        problem = QStringLiteral("--size wants WxH, such as 1280x820");
        return std::nullopt;
      }
      request.Size = QSize(w, h);
    } else {
      problem = QStringLiteral("unknown argument \"%1\"; the bench takes --picture FILE [--size WxH]").arg(a);
      return std::nullopt;
    }
  }
  if (!wanted) return std::nullopt;
  return request;
}

QString ChainPicture::Write(const Request& request) {
  ChainWindow window;
  window.setAttribute(Qt::WA_DontShowOnScreen);
  window.resize(request.Size.expandedTo(window.minimumSize()));
  window.show();
  // sin(x^2) and its derivative, with the outer derivative at g(x) between them.
  if (auto* box = window.findChild<QCheckBox*>(QStringLiteral("chkOuterAtInner"))) box->setChecked(true);
  QCoreApplication::processEvents();
  if (!window.grab().save(request.File)) return QStringLiteral("cannot write the picture \"%1\"").arg(request.File);
  return {};
}

}  // namespace chain
