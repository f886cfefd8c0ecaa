#pragma once

#include "FileDialogs.h"

namespace platform {

// The desktop's file dialogs.
class QtFileDialogs : public FileDialogs {
public:
  std::optional<QString> SaveFileName(const QString& title, const QString& filter, const QString& initial) override;
  std::optional<QString> OpenFileName(const QString& title, const QString& filter, const QString& initial) override;

  // "Text files(*.txt)|*.txt|All files(*.*)| *.*" as Qt writes it: "Text files(*.txt) (*.txt);;...".
  static QString QtFilter(const QString& filter);
};

}  // namespace platform
