#include "QtDesktop.h"

#include "Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QFontDialog>
#include <QProcess>
#include <QUrl>

namespace platform {

QtDesktop::QtDesktop() : m_desktopPalette(QGuiApplication::palette()) {}

// Asked once: the answer may come from another program.
bool QtDesktop::PrefersDark() {
  if (!m_prefersDark) m_prefersDark = Theme::DesktopPrefersDark(m_desktopPalette);
  return *m_prefersDark;
}

void QtDesktop::ApplyLook(bool dark) {
  if (auto* application = qobject_cast<QApplication*>(QCoreApplication::instance())) Theme::Apply(*application, dark);
}

std::optional<QString> QtDesktop::StartProgram(const QString& path, Window window) {
  // A window state is the started program's own matter on this desktop; the program is started
  // as it is, with no arguments.
  (void)window;
  if (!QFileInfo(path).isExecutable()) {
    return QFileInfo::exists(path) ? QStringLiteral("Permission denied") : QStringLiteral("File not found");
  }
  QProcess process;
  process.setProgram(path);
  qint64 pid = 0;
  if (!process.startDetached(&pid)) return process.errorString();
  return std::nullopt;
}

bool QtDesktop::OpenAddress(const QString& address) {
  const QUrl url = QFileInfo::exists(address) ? QUrl::fromLocalFile(address) : QUrl(address);
  return QDesktopServices::openUrl(url);
}

QString QtDesktop::ClipboardText() { return QApplication::clipboard()->text(); }
void QtDesktop::SetClipboardText(const QString& text) { QApplication::clipboard()->setText(text); }
void QtDesktop::ClearClipboard() { QApplication::clipboard()->clear(); }
void QtDesktop::SetClipboardImage(const QImage& image) { QApplication::clipboard()->setImage(image); }
void QtDesktop::SetClipboardData(std::unique_ptr<QMimeData> data) {
  QApplication::clipboard()->setMimeData(data.release());  // the clipboard owns it from here
}

std::optional<QFont> QtDesktop::ChooseFont(const QFont& current) {
  bool ok = false;
  const QFont font = QFontDialog::getFont(&ok, current, QApplication::activeWindow());
  if (!ok) return std::nullopt;
  return font;
}

}  // namespace platform
