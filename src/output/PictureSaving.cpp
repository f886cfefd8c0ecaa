#include "PictureSaving.h"

#include "core/RuntimeError.h"

#include <QDir>
#include <QFileInfo>

#include <exception>

namespace output {

namespace {

using Box = platform::MessageBoxes;

const QString kCancelled = QStringLiteral("Cancel was selected.");
constexpr int kCancelError = 32755;

// Whether a saved file is there, as the check after saving looks: a name is found when it is a
// file; an empty name (a cancelled dialog) finds the first file of the current folder, if any.
bool Found(const QString& name) {
  if (name.isEmpty()) return !QDir::current().entryList(QDir::Files).isEmpty();
  return QFileInfo(name).isFile();
}

}  // namespace

QString SaveThroughDialog(platform::FileDialogs& files, platform::MessageBoxes& boxes, const SaveKind& kind,
                          const std::function<void(const QString& name)>& write) {
  QString name;
  QString description;
  try {
    for (;;) {
      const std::optional<QString> chosen =
          files.SaveFileName(QString::fromLatin1(kind.Title), QString::fromLatin1(kind.Filter), QString());
      if (!chosen) throw core::RuntimeError(kCancelError, kCancelled);
      name = *chosen;
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
  if (!Found(name)) {
    boxes.Show(QStringLiteral("Could not save the file.\nPlease contact us to fix it."), Box::Buttons::Ok,
               Box::Icon::Critical, QString::fromLatin1(kind.UnknownTitle));
    return {};
  }
  return description.isEmpty() ? name : QString();
}

}  // namespace output
