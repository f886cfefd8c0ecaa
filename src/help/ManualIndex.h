#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace help {

// The manual as a folder of HTML chapters: their order and titles as the contents page lists
// them, and a search for words across all of them. Reads the files once, on construction.
class ManualIndex {
public:
  struct Chapter {
    QString File;   // "rows.html"
    QString Title;  // "Rows and what you can type"
  };
  struct Hit {
    QString File;
    QString Title;
    QString Snippet;  // the words around the first place found
  };

  explicit ManualIndex(const QString& folder);

  QString Folder() const { return m_folder; }
  // The contents page first, then the chapters in the order it links them.
  const QList<Chapter>& Chapters() const { return m_chapters; }
  QString TitleOf(const QString& file) const;
  // The chapters that hold every word of the query (any case), in the manual's order.
  QList<Hit> Search(const QString& query) const;

private:
  void ReadContents();

  QString m_folder;
  QList<Chapter> m_chapters;
  QStringList m_texts;  // each chapter's plain text, by the chapters' order
};

}  // namespace help
