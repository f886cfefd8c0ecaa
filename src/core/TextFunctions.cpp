#include "TextFunctions.h"

#include "RuntimeError.h"

namespace core {

namespace {

[[noreturn]] void InvalidCall() { throw RuntimeError::Of(RuntimeError::InvalidProcedureCall); }

}  // namespace

int InStr(const QString& text, const QString& find) { return InStr(1, text, find); }

int InStr(int start, const QString& text, const QString& find) {
  if (start < 1) InvalidCall();
  if (text.isEmpty() || start > text.size()) return 0;
  if (find.isEmpty()) return start;
  const qsizetype at = text.indexOf(find, start - 1, Qt::CaseSensitive);
  return at < 0 ? 0 : static_cast<int>(at + 1);
}

QString Left(const QString& text, qsizetype n) {
  if (n < 0) InvalidCall();
  return text.left(n);
}

QString Right(const QString& text, qsizetype n) {
  if (n < 0) InvalidCall();
  return text.right(n);
}

QString Mid(const QString& text, qsizetype start) {
  if (start < 1) InvalidCall();
  if (start > text.size()) return {};
  return text.mid(start - 1);
}

QString Mid(const QString& text, qsizetype start, qsizetype length) {
  if (start < 1 || length < 0) InvalidCall();
  if (start > text.size()) return {};
  return text.mid(start - 1, length);
}

QString Replace(const QString& text, const QString& find, const QString& replacement) {
  // Most replacements of the pipeline find nothing; answering those without a copy or a matcher
  // makes the fixed chains of replacements several times faster.
  if (find.isEmpty() || !text.contains(find, Qt::CaseSensitive)) return text;
  QString result = text;
  result.replace(find, replacement, Qt::CaseSensitive);
  return result;
}

QStringList Split(const QString& text, const QString& delimiter) {
  if (text.isEmpty()) return {};
  if (delimiter.isEmpty()) return {text};
  return text.split(delimiter, Qt::KeepEmptyParts, Qt::CaseSensitive);
}

QString At(const QStringList& pieces, qsizetype index) {
  if (index < 0 || index >= pieces.size()) throw RuntimeError::Of(RuntimeError::SubscriptOutOfRange);
  return pieces.at(index);
}

QString Trim(const QString& text) {
  qsizetype first = 0;
  qsizetype last = text.size();
  while (first < last && text.at(first) == u' ') ++first;
  while (last > first && text.at(last - 1) == u' ') --last;
  return text.mid(first, last - first);
}

qsizetype Occurrences(const QString& text, const QString& what) {
  // QString::count counts overlapping matches; the pipeline counts as removal does.
  if (what.isEmpty()) return 0;
  qsizetype count = 0;
  for (qsizetype at = text.indexOf(what); at >= 0; at = text.indexOf(what, at + what.size())) ++count;
  return count;
}

bool Contains(const QString& text, const QString& find) {
  return text.contains(find, Qt::CaseSensitive);
}

}  // namespace core
