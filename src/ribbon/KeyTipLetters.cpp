#include "KeyTipLetters.h"

#include "RibbonText.h"

#include <QSet>

namespace ribbon {

namespace {

constexpr int kLetters = 26;

QChar Letter(int index) { return QChar::fromLatin1(static_cast<char>('A' + index)); }

// The letters a key can type, in the caption's order: accents go with the compatibility
// decomposition, everything that is not A to Z goes.
QString LettersOf(const QString& caption) {
  QString letters;
  for (const QChar c : PlainCaption(caption).normalized(QString::NormalizationForm_KD).toUpper()) {
    if (c >= u'A' && c <= u'Z') letters += c;
  }
  return letters;
}

QString OneLetter(const QString& letters, const QSet<QString>& used) {
  for (const QChar c : letters) {
    if (!used.contains(QString(c))) return QString(c);
  }
  for (int i = 0; i < kLetters; ++i) {
    if (!used.contains(QString(Letter(i)))) return QString(Letter(i));
  }
  return {};
}

// The pairs in the order of preference: the caption's first usable letter with each later letter
// of the caption, then with any letter; then any usable first letter with any letter.
QString TwoLetters(const QString& letters, const QSet<QString>& used, const QSet<QString>& taken) {
  const auto free = [&](QChar first, QChar second) {
    const QString pair = QString(first) + second;
    return !taken.contains(QString(first)) && !used.contains(pair);
  };
  qsizetype start = 0;
  while (start < letters.size() && taken.contains(QString(letters[start]))) ++start;
  if (start < letters.size()) {
    const QChar first = letters[start];
    for (qsizetype i = start + 1; i < letters.size(); ++i) {
      if (free(first, letters[i])) return QString(first) + letters[i];
    }
    for (int i = 0; i < kLetters; ++i) {
      if (free(first, Letter(i))) return QString(first) + Letter(i);
    }
  }
  for (int i = 0; i < kLetters; ++i) {
    for (int j = 0; j < kLetters; ++j) {
      if (free(Letter(i), Letter(j))) return QString(Letter(i)) + Letter(j);
    }
  }
  return {};
}

}  // namespace

QStringList KeyTipLetters(const QStringList& captions, const QStringList& taken) {
  const QSet<QString> takenSet(taken.begin(), taken.end());
  int freeLetters = kLetters;
  for (int i = 0; i < kLetters; ++i) {
    if (takenSet.contains(QString(Letter(i)))) --freeLetters;
  }
  const bool pairs = captions.size() > freeLetters;
  QSet<QString> used = takenSet;
  QStringList tips;
  tips.reserve(captions.size());
  for (const QString& caption : captions) {
    const QString letters = LettersOf(caption);
    QString tip = pairs ? TwoLetters(letters, used, takenSet) : OneLetter(letters, used);
    if (!tip.isEmpty()) used.insert(tip);
    tips << tip;
  }
  return tips;
}

}  // namespace ribbon
