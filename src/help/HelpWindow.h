#pragma once

#include "ManualIndex.h"

#include "platform/Desktop.h"
#include "platform/MessageBoxes.h"

#include <QUrl>
#include <QWidget>

class QLineEdit;
class QListWidget;
class QPushButton;
class QTextBrowser;
class QToolButton;

namespace help {

// The manual inside the program: the contents beside the page, back and forward, a search that
// finds words across all chapters, links between chapters, and the same manual as a PDF with the
// desktop's viewer. The program's offline pages open here too. Whatever the desktop cannot open
// is said in a message box, never dropped.
class HelpWindow : public QWidget {
  Q_OBJECT

public:
  // manualFolder holds index.html and the chapters; pdf is the same manual as one file.
  HelpWindow(const QString& manualFolder, const QString& pdf, platform::Desktop& desktop, platform::MessageBoxes& boxes,
             QWidget* parent = nullptr);

  // A chapter of the manual by its file name ("rows.html", with an optional "#anchor").
  void ShowChapter(const QString& file);
  // Any page by its path: an offline page of the program, or a chapter.
  void ShowPage(const QString& path);
  // Shows the chapters that hold every word, and the first of them.
  void Search(const QString& query);
  void OpenPdf();

  QTextBrowser* Browser() const { return m_browser; }
  QListWidget* Contents() const { return m_contents; }
  QListWidget* Results() const { return m_results; }
  QLineEdit* SearchField() const { return m_search; }
  QToolButton* BackButton() const { return m_back; }
  QToolButton* ForwardButton() const { return m_forward; }
  QPushButton* PdfButton() const { return m_pdf; }
  const ManualIndex& Index() const { return m_index; }

private:
  QWidget* BuildBar();
  void SourceChanged(const QUrl& source);
  void LinkClicked(const QUrl& link);
  void OpenResult(int row);

  ManualIndex m_index;
  QString m_pdfPath;
  platform::Desktop& m_desktop;
  platform::MessageBoxes& m_boxes;
  QTextBrowser* m_browser = nullptr;
  QListWidget* m_contents = nullptr;
  QListWidget* m_results = nullptr;
  QLineEdit* m_search = nullptr;
  QToolButton* m_back = nullptr;
  QToolButton* m_forward = nullptr;
  QPushButton* m_pdf = nullptr;
  QString m_query;
};

}  // namespace help
