#include "CommandBars.h"

#include "DesignFile.h"

#include <QFile>

namespace ribbon {

CommandBars::CommandBars() : m_root(std::make_unique<CommandControl>(ControlKind::Popup, 0)) {}

bool CommandBars::LoadDesignFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    m_root = std::make_unique<CommandControl>(ControlKind::Popup, 0);
    emit Reloaded();
    return false;
  }
  return LoadDesign(file.read(kMaxDesignFileSize + 1));
}

bool CommandBars::LoadDesign(const QByteArray& text) {
  auto root = ReadDesign(text);
  const bool loaded = root != nullptr;
  m_root = loaded ? std::move(root) : std::make_unique<CommandControl>(ControlKind::Popup, 0);
  emit Reloaded();
  return loaded;
}

}  // namespace ribbon
