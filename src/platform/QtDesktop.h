#pragma once

#include "Desktop.h"

#include <QPalette>

namespace platform {

// The desktop through Qt: QProcess, QDesktopServices, the clipboard, QFontDialog, and the
// program's looks (see Theme).
class QtDesktop : public Desktop {
public:
  // Made before the program sets a look of its own, to keep the desktop's palette.
  QtDesktop();
  std::optional<QString> StartProgram(const QString& path, Window window) override;
  bool OpenAddress(const QString& address) override;
  QString ClipboardText() override;
  void SetClipboardText(const QString& text) override;
  void ClearClipboard() override;
  void SetClipboardImage(const QImage& image) override;
  void SetClipboardData(std::unique_ptr<QMimeData> data) override;
  std::optional<QFont> ChooseFont(const QFont& current) override;
  bool PrefersDark() override;
  void ApplyLook(bool dark) override;

private:
  QPalette m_desktopPalette;
  std::optional<bool> m_prefersDark;
};

}  // namespace platform
