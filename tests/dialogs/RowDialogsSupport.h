// What the row dialogs' tests share: typing as the keyboard does, and the main form's rows as
// plain texts with a record of what a dialog asked of them.
#pragma once

#include "dialogs/RowTarget.h"

#include <QStringList>
#include <QTest>
#include <QWidget>

#include <utility>
#include <vector>

// Each test file has its own copy.
namespace {

// Types a text key by key; characters beyond ASCII come as the keyboard sends them, text alone.
[[maybe_unused]] void TypeKeys(QWidget* widget, const QString& text) {
  for (const QChar c : text) {
    if (c == u'\n') QTest::keyClick(widget, Qt::Key_Return);
    else if (c.unicode() >= 32 && c.unicode() < 127) QTest::keyClick(widget, c.toLatin1());
    else if (c == u'\t') QTest::keyClick(widget, Qt::Key_Tab);
    else QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(c), Qt::NoModifier);
  }
}

class FakeRows : public dialogs::RowTarget {
public:
  explicit FakeRows(QStringList rows = {QString()}) : texts(std::move(rows)) {}
  // Rows "y=1x", "y=2x", ...
  explicit FakeRows(int count) {
    for (int i = 0; i < count; ++i) texts << QStringLiteral("y=%1x").arg(i + 1);
  }
  int HighestIndex() const override { return static_cast<int>(texts.size()) - 1; }
  QString RowText(int index) const override { return texts.value(index); }
  void SetRowText(int index, const QString& text) override {
    texts[index] = text;
    writes << text;
  }
  void MoveFunctionTo(int index, int target) override {
    moves.push_back({index, target});
    if (target < 0 || target > HighestIndex()) return;
    texts.swapItemsAt(index, target);
  }
  void MarkProjectChanged() override { ++changed; }
  int AddRow() override {
    if (texts.size() >= maxRows) return -1;
    texts << QString();
    return HighestIndex();
  }
  void FocusAfter(int index) override { focus.push_back(index); }

  QStringList texts;
  qsizetype maxRows = 110;
  QStringList writes;
  std::vector<std::pair<int, int>> moves;
  int changed = 0;
  std::vector<int> focus;
};

}  // namespace
