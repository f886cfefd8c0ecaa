#pragma once

#include <QString>

#include <optional>

namespace platform {

// The file dialogs. Filters come in the program's own form, "Description|pattern|Description|
// pattern", as the forms write them; nothing comes back when the user cancels.
class FileDialogs {
public:
  virtual ~FileDialogs() = default;
  virtual std::optional<QString> SaveFileName(const QString& title, const QString& filter, const QString& initial) = 0;
  virtual std::optional<QString> OpenFileName(const QString& title, const QString& filter, const QString& initial) = 0;
};

}  // namespace platform
