#include "QtFileDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QStringList>

namespace platform {


QString QtFileDialogs::QtFilter(const QString& filter) {
  const QStringList parts = filter.split(u'|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString patterns = parts[i + 1].trimmed();
    patterns.replace(u';', u' ');
    filters << parts[i].trimmed() + QStringLiteral(" (") + patterns + u')';
  }
  return filters.join(QStringLiteral(";;"));
}

// The dialog of the desktop, but without asking about an existing file: the program asks itself.
std::optional<QString> QtFileDialogs::SaveFileName(const QString& title, const QString& filter, const QString& initial) {
  const QString name = QFileDialog::getSaveFileName(QApplication::activeWindow(), title, initial, QtFilter(filter),
                                                    nullptr, QFileDialog::DontConfirmOverwrite);
  if (name.isEmpty()) return std::nullopt;
  return name;
}

std::optional<QString> QtFileDialogs::OpenFileName(const QString& title, const QString& filter, const QString& initial) {
  const QString name = QFileDialog::getOpenFileName(QApplication::activeWindow(), title, initial, QtFilter(filter));
  if (name.isEmpty()) return std::nullopt;
  return name;
}

}  // namespace platform
