#pragma once

#include <QTextBrowser>
#include <QWidget>

namespace output {

// A backstage page that shows a rich text file written beside the program ("What is new.rtf",
// "Support Us.rtf") with a margin of 120 twips all round.
class RichTextPage : public QWidget {
  Q_OBJECT

public:
  RichTextPage(const QString& pageName, const QString& boxName, const QString& file, QWidget* parent = nullptr);

  QTextBrowser* Box() const { return m_box; }

private:
  QTextBrowser* m_box;
};

}  // namespace output
