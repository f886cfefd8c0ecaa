#include "RowNames.h"

#include <QHash>

#include <utility>

namespace mathx {

namespace {

// The editor writes Greek letters with the letters of the classic symbol font: q is theta.
QString SymbolFontLetter(QChar latin, bool variant) {
  static const QString latins = "abcdefghijklmnopqrstuvwxyz";
  static const QString greeks = QString::fromUtf8("αβχδεϕγηιφκλμνοπθρστυϖωξψζ");
  const qsizetype at = latins.indexOf(latin);
  if (at < 0) return {};
  if (latin == u'f') return variant ? QString::fromUtf8("φ") : QString::fromUtf8("ϕ");
  return greeks.mid(at, 1);
}

}  // namespace

const QStringList& FunctionNames() {
  static const QStringList names = {
      "asinh", "acosh", "atanh", "acsch", "asech", "acoth", "asin", "acos", "atan", "acsc", "asec",
      "acot",  "sinh",  "cosh",  "tanh",  "csch",  "sech",  "coth", "sin",  "cos",  "tan",  "csc",
      "sec",   "cot",   "rnd",   "abs",   "xlog",  "sqrt",  "sqr",  "log10", "ln",  "deg",  "log",
      "exp",   "int",   "fact",  "fix",   "sgn",   "xroot", "const", "declare", "domain"};
  return names;
}

const QStringList& GreekNames() {
  static const QStringList names = {"theta", "phi",   "alpha", "beta",  "tau",   "meu",     "lambda",
                                    "lamda", "rho",   "pi",    "gamma", "delta", "sigma",   "omega",
                                    "epsilon", "ldmbda"};
  return names;
}

QString GreekLetter(const QString& name) {
  static const QHash<QString, QString> named = [] {
    QHash<QString, QString> table;
    const std::pair<const char*, const char*> pairs[] = {
        {"theta", "θ"}, {"phi", "φ"},   {"alpha", "α"}, {"beta", "β"},   {"tau", "τ"},
        {"meu", "μ"},   {"lambda", "λ"}, {"lamda", "λ"}, {"ldmbda", "λ"}, {"rho", "ρ"},
        {"pi", "π"},    {"gamma", "γ"}, {"delta", "δ"}, {"sigma", "σ"},  {"omega", "ω"},
        {"epsilon", "ε"}};
    for (const auto& [spelled, letter] : pairs) table.insert(QString::fromLatin1(spelled), QString::fromUtf8(letter));
    return table;
  }();
  if (name.size() == 7 && name.endsWith(u"..symb")) return SymbolFontLetter(name[0], false);
  if (name.size() == 12 && name.endsWith(u"..var..symb")) return SymbolFontLetter(name[0], true);
  return named.value(name);
}

namespace {

const std::pair<const char*, const char*> kPhrases[] = {
      {"showaxis", "show axis"},
      {"hideaxis", "hide axis"},
      {"showgrid", "show grid"},
      {"hidegrid", "hide grid"},
      {"shownumbers", "show numbers"},
      {"hidenumbers", "hide numbers"},
      {"showouterframe", "show outer frame"},
      {"hideouterframe", "hide outer frame"},
      {"showtips", "show tips"},
      {"hidetips", "hide tips"},
      {"transparentbackground", "transparent background"},
      {"opaquebackground", "opaque background"},
      {"enterfullscreen", "enter full screen"}};

}  // namespace

QString CommandPhrase(const QString& keyword) {
  for (const auto& [word, phrase] : kPhrases)
    if (keyword == QLatin1StringView(word)) return QString::fromLatin1(phrase);
  return keyword;
}

QString CommandKeyword(const QString& phrase) {
  for (const auto& [word, spelled] : kPhrases)
    if (phrase == QLatin1StringView(spelled)) return QString::fromLatin1(word);
  return {};
}

}  // namespace mathx
