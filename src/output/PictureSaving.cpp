#include "PictureSaving.h"

#include "core/RuntimeError.h"

#include <QFileInfo>

#include <exception>

namespace output {

namespace {

using Box = platform::MessageBoxes;

const QString kCancelled = QStringLiteral("Cancel was selected.");

}  // namespace

QString WithEnding(const QString& name, const QString& ending) {
  const QFileInfo file(name);
  if (file.fileName().isEmpty() || !file.suffix().isEmpty()) return name;
  return name.endsWith(u'.') ? name + ending : name + u'.' + ending;
}

QString SaveThroughDialog(platform::FileDialogs& files, platform::MessageBoxes& boxes, const SaveKind& kind,
                          const std::function<void(const QString& name)>& write) {
  QString name;
  QString description;
  try {
    for (;;) {
      const std::optional<QString> chosen =
          files.SaveFileName(QString::fromLatin1(kind.Title), QString::fromLatin1(kind.Filter), QString());
      if (!chosen || chosen->isEmpty()) return {};  // cancelled: nothing written, nothing to say
      name = WithEnding(*chosen, QString::fromLatin1(kind.Ending));
      if (QFileInfo(name).isFile() &&
          boxes.Show(QStringLiteral("The file is already exist, overwrite?"), Box::Buttons::YesNo, Box::Icon::Question,
                     QString::fromLatin1(kind.OverwriteTitle)) == Box::Answer::No) {
        continue;  // the dialog again
      }
      break;
    }
    write(name);
  } catch (const core::RuntimeError& error) {
    description = error.Description();
  } catch (const std::exception& error) {
    description = QString::fromLocal8Bit(error.what());
  }
  if (!description.isEmpty() && description != kCancelled) {
    boxes.Show(description, Box::Buttons::Ok, Box::Icon::Exclamation, QString::fromLatin1(kind.ErrorTitle));
  }
  if (!QFileInfo(name).isFile()) {
    boxes.Show(QStringLiteral("Could not save the file.\nPlease contact us to fix it."), Box::Buttons::Ok,
               Box::Icon::Critical, QString::fromLatin1(kind.UnknownTitle));
    return {};
  }
  return description.isEmpty() ? name : QString();
}

}  // namespace output
