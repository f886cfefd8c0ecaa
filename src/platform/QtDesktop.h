#pragma once

#include "Desktop.h"

namespace platform {

// The desktop through Qt: QProcess, QDesktopServices, the clipboard, QFontDialog.
class QtDesktop : public Desktop {
public:
  std::optional<QString> StartProgram(const QString& path, Window window) override;
  bool OpenAddress(const QString& address) override;
  QString ClipboardText() override;
  void SetClipboardText(const QString& text) override;
  void ClearClipboard() override;
  void SetClipboardImage(const QImage& image) override;
  void SetClipboardData(std::unique_ptr<QMimeData> data) override;
  std::optional<QFont> ChooseFont(const QFont& current) override;
};

}  // namespace platform
