#include "ProjectText.h"

#include "project/ProjectFile.h"

#include <QHash>
#include <QRegularExpression>

namespace history {

namespace {

const QString kRowsSection = QStringLiteral("[Tabs][Function]");

// "[Function](3)=value" gives Function, 3 and "value"; "[Note](3)" gives Note and 3.
struct RowKey {
  QString Name;
  int Index = -1;
  QString Value;
};

bool ReadRowKey(const QString& line, RowKey& key) {
  static const QRegularExpression pattern(QStringLiteral(R"(^\[([A-Za-z]+)\]\((\d{1,6})\)(?:=(.*))?$)"));
  const QRegularExpressionMatch match = pattern.match(line);
  if (!match.hasMatch()) return false;
  key = {match.captured(1), match.captured(2).toInt(), match.captured(3)};
  return true;
}

ProjectText::Row& RowAt(ProjectText& text, int index) {
  if (static_cast<std::size_t>(index) >= text.Rows.size()) text.Rows.resize(static_cast<std::size_t>(index) + 1);
  return text.Rows[static_cast<std::size_t>(index)];
}

}  // namespace

QStringList ProjectText::Row::Fields() const {
  const QString inner = Function.mid(1, Function.size() - 2);  // without the square brackets
  return inner.split(u':');
}

ProjectText ProjectText::Parse(const QString& text) {
  ProjectText parsed;
  const QStringList lines = project::ProjectFile::Lines(text);
  bool inRows = false;
  for (qsizetype at = 0; at < lines.size(); ++at) {
    const QString& line = lines[at];
    RowKey key;
    if (inRows && ReadRowKey(line, key)) {
      Row& row = RowAt(parsed, key.Index);
      if (key.Name == u"Note") {
        // A note's lines run to its end marker, whatever they hold.
        for (++at; at < lines.size() && !lines[at].startsWith(QStringLiteral("[EndNote]")); ++at) row.Note << lines[at];
      } else if (key.Name == u"Function") {
        row.Function = key.Value;
      } else {
        row.Extra.emplace_back(key.Name, key.Value);
      }
      continue;
    }
    if (line.startsWith(u'[') && !line.contains(u'=')) inRows = line == kRowsSection;
    const qsizetype equals = line.indexOf(u'=');
    if (equals > 0) parsed.Keys.emplace_back(line.left(equals), line.mid(equals + 1));
  }
  return parsed;
}

QStringList ProjectText::ChangedKeys(const ProjectText& before, const ProjectText& after) {
  QHash<QString, QString> old;
  for (const auto& [key, value] : before.Keys) old.insert(key, value);
  QStringList changed;
  for (const auto& [key, value] : after.Keys) {
    const auto found = old.constFind(key);
    if (found == old.constEnd() || *found != value) changed << key;
    old.remove(key);
  }
  for (auto left = old.constBegin(); left != old.constEnd(); ++left) changed << left.key();
  changed.sort();
  return changed;
}

}  // namespace history
