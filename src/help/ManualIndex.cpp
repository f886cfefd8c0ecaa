#include "ManualIndex.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextDocument>

namespace help {

namespace {

constexpr int kSnippetReach = 60;  // characters shown on each side of a word found

QString ReadFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QString::fromUtf8(file.readAll());
}

QString PlainText(const QString& html) {
  QTextDocument document;
  document.setHtml(html);
  return document.toPlainText().simplified();
}

}  // namespace

ManualIndex::ManualIndex(const QString& folder) : m_folder(folder) { ReadContents(); }

// The contents page's links, in order, with their texts as the chapters' titles.
void ManualIndex::ReadContents() {
  const QString contents = ReadFile(m_folder + QStringLiteral("/index.html"));
  if (contents.isEmpty()) return;
  m_chapters.push_back({QStringLiteral("index.html"), QStringLiteral("Contents")});
  static const QRegularExpression link(QStringLiteral("<a href=\"([a-z0-9-]+\\.html)\">([^<]+)</a>"));
  for (auto it = link.globalMatch(contents); it.hasNext();) {
    const auto match = it.next();
    const QString file = match.captured(1);
    if (TitleOf(file).isEmpty()) m_chapters.push_back({file, match.captured(2)});
  }
  for (const Chapter& chapter : m_chapters) m_texts << PlainText(ReadFile(m_folder + u'/' + chapter.File));
}

QString ManualIndex::TitleOf(const QString& file) const {
  for (const Chapter& chapter : m_chapters) {
    if (chapter.File == file) return chapter.Title;
  }
  return {};
}

QList<ManualIndex::Hit> ManualIndex::Search(const QString& query) const {
  const QStringList words = query.simplified().split(u' ', Qt::SkipEmptyParts);
  QList<Hit> hits;
  if (words.isEmpty()) return hits;
  for (qsizetype i = 0; i < m_chapters.size(); ++i) {
    const QString& text = m_texts.value(i);
    const bool all = std::all_of(words.begin(), words.end(),
                                 [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
    if (!all) continue;
    const qsizetype at = text.indexOf(words.first(), 0, Qt::CaseInsensitive);
    const qsizetype from = std::max<qsizetype>(0, at - kSnippetReach);
    QString snippet = text.mid(from, words.first().size() + 2 * kSnippetReach);
    if (from > 0) snippet.prepend(QStringLiteral("…"));
    if (from + snippet.size() < text.size()) snippet.append(QStringLiteral("…"));
    hits.push_back({m_chapters[i].File, m_chapters[i].Title, snippet});
  }
  return hits;
}

}  // namespace help
