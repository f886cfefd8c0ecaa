#pragma once

#include <QFont>
#include <QImage>
#include <QMimeData>
#include <QString>

#include <memory>
#include <optional>

namespace platform {

// The rest of the desktop that the commands reach: other programs, documents and pages opened
// with their own program, the clipboard, and the font dialog.
class Desktop {
public:
  // How a started program's window shows: normal, minimised, maximised.
  enum class Window { Normal, Minimised, Maximised };

  virtual ~Desktop() = default;
  // Starts a program without waiting for it; the system's reason when it cannot be started.
  virtual std::optional<QString> StartProgram(const QString& path, Window window) = 0;
  // Opens a file or an address with the desktop's program for it.
  virtual bool OpenAddress(const QString& address) = 0;

  virtual QString ClipboardText() = 0;
  virtual void SetClipboardText(const QString& text) = 0;
  virtual void ClearClipboard() = 0;
  // Puts a picture on the clipboard; a desktop without a clipboard for pictures ignores it.
  virtual void SetClipboardImage(const QImage& image) { (void)image; }
  // Puts one text in several forms on the clipboard at once (plain text, LaTeX, HTML), so that
  // each program that is pasted into takes the form it reads; a desktop that holds text alone
  // keeps the plain one.
  virtual void SetClipboardData(std::unique_ptr<QMimeData> data) { SetClipboardText(data->text()); }

  virtual std::optional<QFont> ChooseFont(const QFont& current) = 0;

  // Whether the desktop asks programs for dark windows.
  virtual bool PrefersDark() { return false; }
  // Puts the program's windows in the light or the dark look; a desktop without looks (tests,
  // the command line) leaves them as they are.
  virtual void ApplyLook(bool dark) { (void)dark; }
};

}  // namespace platform
