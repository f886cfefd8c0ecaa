#pragma once

#include "platform/Desktop.h"

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include <functional>

namespace output {

// The backstage's "Info" page: the program's picture, name, makers and version, and buttons to
// its own pages, the tutorial and the contact form.
class pageInfo : public QWidget {
  Q_OBJECT

public:
  explicit pageInfo(platform::Desktop& desktop, QWidget* parent = nullptr);

  QLabel* lblVersion() const { return m_version; }
  QPushButton* Button(const QString& name) const;

  // The contact form, which the main window opens.
  std::function<void()> ShowContact;
  // The manual's window on a chapter ("index.html") or on a page by its path.
  std::function<void(const QString&)> ShowHelp;

  // "Version: major.minor.0.revision" from the program's version record.
  static QString VersionText();

private:
  void Show(const QString& page);
  QPushButton* AddButton(const char* name, const QString& caption, const QString& description, const QString& icon);

  platform::Desktop& m_desktop;
  QLabel* m_version;
  QWidget* m_buttons;
};

}  // namespace output
