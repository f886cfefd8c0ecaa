#include "Change.h"

#include <algorithm>

namespace history {

namespace {

using Rows = std::vector<ProjectText::Row>;

std::size_t At(int index) { return static_cast<std::size_t>(index); }

QString Numbered(const char* what, int row) { return QString::fromLatin1(what).arg(row + 1); }

Rows Without(const Rows& rows, std::size_t index) {
  Rows less = rows;
  less.erase(less.begin() + static_cast<std::ptrdiff_t>(index));
  return less;
}

// The index at which the longer list has the one row that the shorter lacks; -1 when it is no
// single row.
int ExtraRow(const Rows& longer, const Rows& shorter) {
  for (std::size_t i = 0; i < longer.size(); ++i) {
    if (i >= shorter.size() || !(longer[i] == shorter[i])) return Without(longer, i) == shorter ? static_cast<int>(i) : -1;
  }
  return -1;
}

// The old index of a row that moved elsewhere with the others kept in order; -1 when none did.
int MovedRow(const Rows& before, const Rows& after) {
  for (std::size_t from = 0; from < before.size(); ++from) {
    if (before[from] == after[from]) continue;
    for (std::size_t to = 0; to < after.size(); ++to) {
      if (to != from && before[from] == after[to] && Without(before, from) == Without(after, to))
        return static_cast<int>(from);
    }
    return -1;
  }
  return -1;
}

QString RowEditName(const ProjectText::Row& before, const ProjectText::Row& after, int row) {
  const QStringList old = before.Fields();
  const QStringList now = after.Fields();
  if (old.value(1) != now.value(1)) return Numbered("edit row %1", row);
  if (old.value(0) != now.value(0)) return Numbered("recolour row %1", row);
  if (old.size() == now.size() && old.last() != now.last()) {
    return Numbered(now.last() == u"True" ? "make row %1 a note" : "make row %1 an equation", row);
  }
  if (before.Function != after.Function) return Numbered("change row %1", row);
  if (before.Note != after.Note) return Numbered("edit the note of row %1", row);
  return Numbered("change the slider of row %1", row);
}

Change RowsChange(const ProjectText& before, const ProjectText& after) {
  const Rows& b = before.Rows;
  const Rows& a = after.Rows;
  Change change;
  change.What = Change::Kind::RowList;
  if (a.size() == b.size()) {
    std::vector<int> differing;
    for (std::size_t i = 0; i < a.size(); ++i) {
      if (!(a[i] == b[i])) differing.push_back(static_cast<int>(i));
    }
    if (differing.size() == 1) {
      change.What = Change::Kind::RowEdit;
      change.Row = differing.front();
      change.Name = RowEditName(b[static_cast<std::size_t>(change.Row)], a[static_cast<std::size_t>(change.Row)], change.Row);
      return change;
    }
    if (differing.size() == 2 && a[At(differing[0])] == b[At(differing[1])] && a[At(differing[1])] == b[At(differing[0])]) {
      // Two rows that changed places: which of them the user moved, the texts cannot tell.
      change.Row = differing[0];
      change.Name = QStringLiteral("exchange rows %1 and %2").arg(differing[0] + 1).arg(differing[1] + 1);
      return change;
    }
    change.Row = MovedRow(b, a);
    change.Name = change.Row >= 0 ? Numbered("move row %1", change.Row) : QStringLiteral("change the rows");
  } else if (a.size() == b.size() + 1 && (change.Row = ExtraRow(a, b)) >= 0) {
    change.Name = Numbered("add row %1", change.Row);
  } else if (b.size() == a.size() + 1 && (change.Row = ExtraRow(b, a)) >= 0) {
    change.Name = Numbered("remove row %1", change.Row);
  } else if (a.size() == 1 && b.size() > 1) {
    change.Name = QStringLiteral("clear all");
  } else {
    change.Name = QStringLiteral("change the rows");
  }
  return change;
}

bool AllStartWith(const QStringList& keys, const char* prefix) {
  return std::all_of(keys.begin(), keys.end(), [prefix](const QString& key) { return key.startsWith(QLatin1String(prefix)); });
}

bool AllOf(const QStringList& keys, std::initializer_list<const char*> names) {
  return std::all_of(keys.begin(), keys.end(), [names](const QString& key) {
    return std::any_of(names.begin(), names.end(), [&key](const char* name) { return key == QLatin1String(name); });
  });
}

QString PageName(const QStringList& keys) {
  if (AllStartWith(keys, "[Inq]")) return QStringLiteral("change the inequality");
  if (AllStartWith(keys, "[Para]")) return QStringLiteral("change the parametric curve");
  if (AllStartWith(keys, "[3D]")) return QStringLiteral("change the 3D surface");
  return QStringLiteral("change the pages");
}

QString ViewName(const QStringList& keys) {
  if (AllOf(keys, {"[Plot][xMin]", "[Plot][xMax]", "[Plot][yMin]", "[Plot][yMax]"})) return QStringLiteral("change the range");
  if (AllOf(keys, {"[Plot][Lock]"})) return QStringLiteral("lock or unlock the range");
  if (AllOf(keys, {"[Quality]"})) return QStringLiteral("change the quality");
  if (AllOf(keys, {"[Thickness]"})) return QStringLiteral("change the thickness");
  if (AllOf(keys, {"[IntMin]", "[IntMax]"})) return QStringLiteral("change the area's bounds");
  if (AllOf(keys, {"[Plot][AxisColor]", "[Plot][BackColor]"})) return QStringLiteral("change the plot's colours");
  if (AllOf(keys, {"[Tab]"})) return QStringLiteral("change the tab");
  return QStringLiteral("change the display");
}

bool IsPageKey(const QString& key) {
  return key.startsWith(QLatin1String("[Inq]")) || key.startsWith(QLatin1String("[Para]")) ||
         key.startsWith(QLatin1String("[3D]"));
}

}  // namespace

Change Change::Between(const ProjectText& before, const ProjectText& after) {
  const QStringList keys = ProjectText::ChangedKeys(before, after);
  if (before.Rows != after.Rows) {
    Change change = RowsChange(before, after);
    // A row and something else at once is put back whole.
    if (!keys.isEmpty()) change.What = Kind::RowList;
    change.Keys = keys;
    return change;
  }
  if (keys.isEmpty()) return {};
  const bool pages = std::all_of(keys.begin(), keys.end(), IsPageKey);
  return {pages ? Kind::Page : Kind::View, -1, pages ? PageName(keys) : ViewName(keys), keys};
}

bool Change::Continues(const Change& next) const {
  return What != Kind::RowList && What == next.What && Row == next.Row && Name == next.Name && Keys == next.Keys;
}

}  // namespace history
