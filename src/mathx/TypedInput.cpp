#include "TypedInput.h"

#include "RowNames.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>

#include <optional>
#include <utility>
#include <vector>

namespace mathx {

namespace {

bool IsAsciiLetter(QChar c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }
bool IsWordChar(QChar c) { return IsAsciiLetter(c) || IsDigit(c) || c == u'.'; }

// Whether s stands as one factor without brackets of its own: a number, a name, a name with
// one bracket behind it ("sqrt(x)"), or a text that one bracket holds whole.
bool IsAtom(const QString& s) {
  if (s.isEmpty()) return true;
  qsizetype i = 0;
  while (i < s.size() && IsWordChar(s[i])) ++i;
  if (i == s.size()) return true;
  if (s[i] != u'(' || !s.endsWith(u')')) return false;
  int depth = 0;
  for (qsizetype j = i; j < s.size(); ++j) {
    if (s[j] == u'(') ++depth;
    if (s[j] == u')' && --depth == 0) return j == s.size() - 1;
  }
  return false;
}

QString Grouped(const QString& s) { return IsAtom(s) ? s : u'(' + s + u')'; }

// One pair of outer marks taken off, or the text as it is.
QString OuterMarksOff(const QString& text) {
  const QString t = text.trimmed();
  const std::pair<const char16_t*, const char16_t*> marks[] = {
      {u"$$", u"$$"}, {u"$", u"$"}, {u"\\(", u"\\)"}, {u"\\[", u"\\]"}};
  for (const auto& [open16, close16] : marks) {
    const QString open = QString::fromUtf16(open16);
    const QString close = QString::fromUtf16(close16);
    if (t.size() >= open.size() + close.size() && t.startsWith(open) && t.endsWith(close)) {
      return t.mid(open.size(), t.size() - open.size() - close.size()).trimmed();
    }
  }
  return text;
}

// The outer marks of mathematics in a text: $...$, $$...$$, \(...\) and \[...\], as many
// as there are.
QString WithoutMathMarks(const QString& text) {
  QString stripped = text;
  for (QString inner = OuterMarksOff(text); inner != stripped; inner = OuterMarksOff(inner)) stripped = inner;
  return stripped;
}

// LaTeX commands that are a name or an operator of the row language.
const QHash<QString, QString>& CommandWords() {
  static const QHash<QString, QString> words = [] {
    QHash<QString, QString> w;
    for (const char* same : {"pi", "theta", "alpha", "beta", "phi", "tau", "rho", "lambda", "gamma", "delta", "sigma",
                             "omega", "epsilon"}) {
      w.insert(same, same);
    }
    w.insert("vartheta", "theta");
    w.insert("varphi", "phi");
    w.insert("mu", "meu");
    // Letters that the row language has only as the editor's symbols.
    const std::pair<const char*, const char*> symbols[] = {
        {"chi", "c..symb"}, {"eta", "h..symb"},  {"iota", "i..symb"}, {"kappa", "k..symb"}, {"nu", "n..symb"},
        {"xi", "x..symb"},  {"psi", "y..symb"},  {"zeta", "z..symb"}, {"upsilon", "u..symb"}, {"varpi", "v..symb"}};
    for (const auto& [word, symbol] : symbols) w.insert(word, symbol);
    const std::pair<const char*, const char*> operators[] = {
        {"cdot", "*"}, {"times", "*"}, {"ast", "*"}, {"div", "/"},      {"le", "<="}, {"leq", "<="},
        {"leqslant", "<="}, {"ge", ">="}, {"geq", ">="}, {"geqslant", ">="}, {"ne", "<>"}, {"neq", "<>"},
        {"lt", "<"},   {"gt", ">"},     {"quad", ""},  {"qquad", ""},      {"displaystyle", ""},
        {"bmod", " mod "}, {"backslash", "\\"}};
    for (const auto& [word, by] : operators) w.insert(word, by);
    return w;
  }();
  return words;
}

// LaTeX's function names, as the row language spells them.
const QHash<QString, QString>& FunctionWords() {
  static const QHash<QString, QString> words = [] {
    QHash<QString, QString> w;
    for (const char* same : {"sin", "cos", "tan", "sec", "csc", "cot", "sinh", "cosh", "tanh", "ln", "log", "exp"}) {
      w.insert(same, same);
    }
    w.insert("arcsin", "asin");
    w.insert("arccos", "acos");
    w.insert("arctan", "atan");
    return w;
  }();
  return words;
}

// Reads LaTeX into the row language. Braces that group become brackets where they are needed;
// commands with arguments become calls. Unfinished LaTeX (a brace not closed, a command without
// its argument) is no reading at all.
class LatexReader {
public:
  explicit LatexReader(const QString& text, int depth = 0) : m_text(text), m_depth(depth) {}

  std::optional<QString> Read() {
    const auto result = Sequence(false);
    if (!result || m_at < m_text.size()) return std::nullopt;
    return result;
  }

private:
  static constexpr int kMaxDepth = 60;  // deeper LaTeX is left as it was typed

  QChar Peek() const { return m_at < m_text.size() ? m_text[m_at] : QChar(); }
  bool AtEnd() const { return m_at >= m_text.size(); }
  void SkipBlanks() {
    while (!AtEnd() && Peek().isSpace()) ++m_at;
  }

  std::optional<QString> Sequence(bool inGroup) {
    if (++m_depth > kMaxDepth) return std::nullopt;
    QString out;
    while (!AtEnd()) {
      const QChar c = Peek();
      if (c == u'}') {
        if (!inGroup) return std::nullopt;
        break;
      }
      std::optional<QString> piece;
      if (c == u'{') {
        piece = Group();
        if (piece) piece = Grouped(*piece);
      } else if (c == u'\\') {
        piece = Command();
        // A name behind a letter ("a\exp", "x\pi") would run into it as one word.
        if (piece && !piece->isEmpty() && IsAsciiLetter(piece->front()) && !out.isEmpty() && IsAsciiLetter(out.back()))
          piece->prepend(u'*');
      } else if (c == u'^') {
        piece = Power();
      } else {
        piece = QString(c);
        ++m_at;
      }
      if (!piece) return std::nullopt;
      out += *piece;
    }
    --m_depth;
    return out;
  }

  // "{...}", the braces taken off.
  std::optional<QString> Group() {
    ++m_at;
    auto inner = Sequence(true);
    if (!inner || Peek() != u'}') return std::nullopt;
    ++m_at;
    return inner;
  }

  // A command's argument: a group, a command, or one character.
  std::optional<QString> Argument() {
    SkipBlanks();
    if (AtEnd() || Peek() == u'}') return std::nullopt;
    if (Peek() == u'{') return Group();
    if (Peek() == u'\\') {
      // An argument is one factor by itself: no star joins it to what follows ("\frac\pi2").
      auto command = Command();
      if (command && command->size() > 1 && command->endsWith(u'*')) command->chop(1);
      return command;
    }
    return QString(m_text[m_at++]);
  }

  std::optional<QString> Power() {
    ++m_at;
    SkipBlanks();
    if (Peek() != u'{' && Peek() != u'\\') return QStringLiteral("^");
    const auto exponent = Argument();
    if (!exponent || exponent->isEmpty()) return std::nullopt;
    return u'^' + Grouped(*exponent);
  }

  std::optional<QString> Command() {
    ++m_at;
    if (AtEnd()) return std::nullopt;
    if (!IsAsciiLetter(Peek())) return Symbol(m_text[m_at++]);
    const qsizetype start = m_at;
    while (IsAsciiLetter(Peek())) ++m_at;
    const QString word = m_text.mid(start, m_at - start);
    if (word == u"frac" || word == u"dfrac" || word == u"tfrac") return Fraction();
    if (word == u"sqrt") return Root();
    if (word == u"left" || word == u"right" || word.startsWith(u"big") || word.startsWith(u"Big")) {
      SkipBlanks();
      if (Peek() == u'.') ++m_at;  // the invisible delimiter
      // Bars that say which of them opens: an absolute value without the guessing that bare
      // bars need, which nested ones ("|a|x|-1|") defeat.
      if (Peek() == u'|' && (word == u"left" || word == u"right")) {
        ++m_at;
        return word == u"left" ? QStringLiteral("abs(") : QStringLiteral(")");
      }
      return QString();
    }
    if (word == u"text" || word == u"mathrm" || word == u"operatorname" || word == u"mathit") return Argument();
    if (const auto function = FunctionWords().constFind(word); function != FunctionWords().cend()) {
      return Function(*function);
    }
    if (const auto known = CommandWords().constFind(word); known != CommandWords().cend()) {
      if (!known->isEmpty() && IsAsciiLetter(known->front())) return Name(*known);
      SkipBlanks();  // as TeX does behind a command word
      return *known;
    }
    return std::nullopt;  // a command the row language has no word for: nothing is read
  }

  // A name such as pi is one factor: a letter or digit right behind it needs a star.
  QString Name(const QString& name) {
    if (name.isEmpty() || !IsAsciiLetter(name[0])) return name;
    SkipBlanks();
    if (IsWordChar(Peek()) || NextCommandIsFactor()) return name + u'*';
    return name;
  }

  // Whether the command that comes next is a factor of its own (\pi, \sin, \frac), rather than
  // an operator or a bracket (\cdot, \le, \right) that needs no star in front.
  bool NextCommandIsFactor() const {
    if (Peek() != u'\\') return false;
    qsizetype end = m_at + 1;
    while (end < m_text.size() && IsAsciiLetter(m_text[end])) ++end;
    const QString word = m_text.mid(m_at + 1, end - m_at - 1);
    if (word.isEmpty() || word == u"left" || word == u"right") return false;
    const auto known = CommandWords().constFind(word);
    return known == CommandWords().cend() || (!known->isEmpty() && IsAsciiLetter(known->front()));
  }

  // "\{" and "\}" are brackets, "\," and its kind are spaces. Any other backslash is the
  // row language's integer division ("3\2") and stays.
  static QString Symbol(QChar c) {
    switch (c.unicode()) {
      case u'{': return QStringLiteral("(");
      case u'}': return QStringLiteral(")");
      case u'|': return QStringLiteral("|");
      case u',': case u';': case u':': case u'!': case u'\\': return QString();
      // A blank keeps a character that becomes letters ("\θ") from being read as a command.
      default: return c.unicode() < 0x80 ? u'\\' + QString(c) : QStringLiteral("\\ ") + c;
    }
  }

  std::optional<QString> Fraction() {
    const auto numerator = Argument();
    if (!numerator) return std::nullopt;
    const auto denominator = Argument();
    if (!denominator) return std::nullopt;
    return u'(' + *numerator + QStringLiteral(")/(") + *denominator + u')';
  }

  // \sqrt{x}, and \sqrt[n]{x} as the n-th root of the row language.
  std::optional<QString> Root() {
    SkipBlanks();
    QString index;
    if (Peek() == u'[') {
      const qsizetype close = m_text.indexOf(u']', m_at);
      if (close < 0) return std::nullopt;
      const auto read = LatexReader(m_text.mid(m_at + 1, close - m_at - 1), m_depth).Read();
      if (!read || read->trimmed().isEmpty()) return std::nullopt;
      index = read->trimmed();
      m_at = close + 1;
    }
    const auto radicand = Argument();
    if (!radicand) return std::nullopt;
    if (index.isEmpty() || index == u"2") return QStringLiteral("sqrt(") + *radicand + u')';
    return QStringLiteral("xroot(") + *radicand + u',' + index + u')';
  }

  // "\sin x", "\sin(x)", "\sin{x}", "\sin 2x" and "\sin^2 x" as calls of the row language.
  std::optional<QString> Function(const QString& spelled) {
    SkipBlanks();
    QString name = spelled;
    if (name == u"log" && QStringView(m_text).mid(m_at).startsWith(u"_{10}")) {
      m_at += 5;  // the common logarithm, \log_{10}
      name = QStringLiteral("log10");
      SkipBlanks();
    }
    QString power;
    if (Peek() == u'^') {
      ++m_at;
      const auto exponent = Argument();
      if (!exponent || exponent->isEmpty()) return std::nullopt;
      power = u'^' + Grouped(*exponent);
      SkipBlanks();
    }
    if ((Peek() == u'(' || AtLeftBracket()) && power.isEmpty()) return name;
    QString argument;
    if (Peek() == u'{' || Peek() == u'(') {
      const auto group = Peek() == u'{' ? Group() : Bracket();
      if (!group) return std::nullopt;
      argument = *group;
    } else {
      argument = BareArgument();
    }
    if (argument.isEmpty()) return std::nullopt;
    return name + u'(' + argument + u')' + power;
  }

  // "\left(": the call's bracket, read as the bracket it is.
  bool AtLeftBracket() const { return QStringView(m_text).mid(m_at).startsWith(u"\\left("); }

  // "\sin 2x": the letters, digits and names (\pi) up to the next operator, blank or bracket.
  QString BareArgument() {
    QString argument;
    while (!AtEnd()) {
      if (IsWordChar(Peek())) {
        argument += m_text[m_at++];
        continue;
      }
      if (Peek() != u'\\' || m_at + 1 >= m_text.size() || !IsAsciiLetter(m_text[m_at + 1])) break;
      qsizetype end = m_at + 1;
      while (end < m_text.size() && IsAsciiLetter(m_text[end])) ++end;
      const QString spelled = CommandWords().value(m_text.mid(m_at + 1, end - m_at - 1));
      if (spelled.isEmpty() || !IsAsciiLetter(spelled.front())) break;
      m_at = end;
      argument += spelled;
    }
    return argument;
  }

  // "(...)" read whole, the brackets taken off.
  std::optional<QString> Bracket() {
    int depth = 0;
    const qsizetype start = m_at;
    for (qsizetype j = m_at; j < m_text.size(); ++j) {
      if (m_text[j] == u'(') ++depth;
      if (m_text[j] == u')' && --depth == 0) {
        const auto inner = LatexReader(m_text.mid(start + 1, j - start - 1), m_depth).Read();
        if (!inner) return std::nullopt;
        m_at = j + 1;
        return inner;
      }
    }
    return std::nullopt;
  }

  const QString& m_text;
  qsizetype m_at = 0;
  int m_depth = 0;
};

// The characters that keyboards and word processors offer, as the row language writes them.
QString WithPlainCharacters(const QString& text) {
  static const std::pair<char16_t, const char16_t*> kCharacters[] = {
      {u'θ', u"theta"}, {u'ϑ', u"theta"}, {u'π', u"pi"}, {u'²', u"^2"}, {u'³', u"^3"}, {u'·', u"*"},
      {u'×', u"*"},     {u'⋅', u"*"},     {u'∗', u"*"},  {u'÷', u"/"},  {u'∕', u"/"},  {u'−', u"-"},
      {u'–', u"-"},     {u'≤', u"<="},    {u'⩽', u"<="}, {u'≥', u">="}, {u'⩾', u">="}, {u'≠', u"<>"}};
  QString out;
  out.reserve(text.size());
  for (const QChar c : text) {
    bool replaced = false;
    for (const auto& [from, to] : kCharacters) {
      if (c == QChar(from)) {
        out += QString::fromUtf16(to);
        replaced = true;
        break;
      }
    }
    if (!replaced) out += c;
  }
  return out;
}

// Where the factor that starts with a letter at from ends: a call such as "abs(x)" whole, the
// name theta or pi, or else the one letter. A call whose bracket is still open has no end yet:
// from itself.
qsizetype FactorOfLetters(const QString& s, qsizetype from) {
  const QStringView rest = QStringView(s).mid(from);
  for (const QString& name : FunctionNames()) {
    if (!rest.startsWith(name) || !rest.mid(name.size()).startsWith(u'(')) continue;
    int depth = 0;
    for (qsizetype j = from + name.size(); j < s.size(); ++j) {
      if (s[j] == u'(') ++depth;
      if (s[j] == u')' && --depth == 0) return j + 1;
    }
    return from;
  }
  for (const char16_t* name : {u"theta", u"pi"}) {
    if (rest.startsWith(QStringView(name))) return from + QStringView(name).size();
  }
  return from + 1;
}

// "√x", "√2", "√(x+1)", "√pi", "√abs(x)": the sign takes the bracket or the one factor behind
// it. A sign with nothing whole behind it yet stays.
QString WithSquareRoots(const QString& text) {
  QString s = text;
  for (qsizetype at = s.lastIndexOf(u'√'); at >= 0; at = at > 0 ? s.lastIndexOf(u'√', at - 1) : -1) {
    qsizetype from = at + 1;
    while (from < s.size() && s[from] == u' ') ++from;
    if (from >= s.size()) continue;
    if (s[from] == u'(') {
      s.replace(at, from - at, QStringLiteral("sqrt"));
      continue;
    }
    qsizetype end = from;
    if (IsDigit(s[from]) || s[from] == u'.') {
      while (end < s.size() && (IsDigit(s[end]) || s[end] == u'.')) ++end;
    } else if (IsAsciiLetter(s[from])) {
      end = FactorOfLetters(s, from);
      if (end == from) continue;
    } else {
      continue;
    }
    s.replace(at, end - at, QStringLiteral("sqrt(") + s.mid(from, end - from) + u')');
  }
  return s;
}

// Bars as absolute values, where they pair up. A bar opens where no operand stands before it or
// where none is open; otherwise it closes the last one opened. Bars left alone stay as typed.
QString WithAbsoluteValues(const QString& text) {
  if (!text.contains(u'|')) return text;
  std::vector<int> role(size_t(text.size()), 0);  // 1 opens, 2 closes
  std::vector<qsizetype> open;
  QChar before;
  bool beforeClosed = false;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text[i];
    if (c == u' ') continue;
    if (c == u'|') {
      const bool operand = IsWordChar(before) || before == u')' || before == u']' || beforeClosed;
      if (!open.empty() && operand) {
        role[size_t(open.back())] = 1;
        role[size_t(i)] = 2;
        open.pop_back();
        beforeClosed = true;
      } else {
        open.push_back(i);
        beforeClosed = false;
      }
    } else {
      beforeClosed = false;
    }
    before = c;
  }
  QString out;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (role[size_t(i)] == 1) out += QStringLiteral("abs(");
    else if (role[size_t(i)] == 2) out += u')';
    else out += text[i];
  }
  return out;
}

// "f(x)=..." is the graph of f: "y=...". "r(theta)=..." is a polar one: "r=...".
QString WithNamedFunction(const QString& text) {
  static const QRegularExpression head(QStringLiteral("^\\s*[A-Za-z]\\s*\\(\\s*(x|theta)\\s*\\)\\s*=\\s*"));
  const auto match = head.match(text);
  if (!match.hasMatch()) return text;
  const QString variable = match.captured(1) == u"x" ? QStringLiteral("y=") : QStringLiteral("r=");
  return variable + text.mid(match.capturedEnd());
}

// The pieces of text between the commas that no bracket holds, without their spaces.
QStringList TopLevelPieces(const QString& text) {
  QStringList pieces = TopLevelCommaPieces(text);
  for (QString& piece : pieces) piece = piece.trimmed();
  return pieces;
}

// "(a,b)" as the row of a point list "a,b", or nothing when the piece is no point.
std::optional<QString> PointOf(const QString& piece) {
  if (!piece.startsWith(u'(') || !piece.endsWith(u')') || !IsAtom(piece)) return std::nullopt;
  const QStringList coordinates = TopLevelPieces(piece.mid(1, piece.size() - 2));
  if (coordinates.size() != 2) return std::nullopt;
  for (const QString& coordinate : coordinates) {
    if (coordinate.isEmpty()) return std::nullopt;
    for (const QChar c : coordinate) {
      if (c == u'=' || c == u'<' || c == u'>' || c == u';' || c == u'[') return std::nullopt;
    }
  }
  return coordinates.join(u',');
}

// "(1,2)" and "(1,2),(3,4)" as the point list "[x,y;1,2;3,4]"; points written behind a point
// list join it.
QString WithPointList(const QString& text) {
  const QString t = text.trimmed();
  if (!t.contains(u',') || !t.endsWith(u')')) return text;
  QStringList pieces = TopLevelPieces(t);
  QString head = QStringLiteral("[x,y");
  if (pieces.first().startsWith(u'[') && pieces.first().endsWith(u']') && pieces.size() > 1) {
    head = pieces.takeFirst();
    head.chop(1);
  }
  QString rows;
  for (const QString& piece : pieces) {
    const auto point = PointOf(piece);
    if (!point) return text;
    rows += u';' + *point;
  }
  return head + rows + u']';
}

// "y=x^{2}\quad\left\{0<x<3\right\}": a condition set in braces behind the equation, as a
// row is copied as LaTeX, is the condition that the row language writes behind ";".
QString WithConditionInBraces(const QString& text) {
  static const QRegularExpression form(QStringLiteral(R"(^(.*\S)\s*\\q?quad\s*\\left\\\{(.*)\\right\\\}\s*$)"));
  const auto match = form.match(text);
  if (!match.hasMatch()) return text;
  // Conditions joined by "and" are the conditions that the row language writes one by one.
  QString conditions = match.captured(2);
  conditions.replace(QStringLiteral("\\text{ and }"), QStringLiteral(";"));
  return match.captured(1) + u';' + conditions;
}

// "show grid", as a display command is copied, is that command's row.
QString WithDisplayCommand(const QString& text) {
  const QString keyword = CommandKeyword(text.trimmed());
  return keyword.isEmpty() ? text : QStringLiteral("command==>[") + keyword + u']';
}

// The conversions in their order: marks, LaTeX, characters, bars, roots, a function's name,
// points. Unfinished LaTeX leaves the whole text as it was typed.
QString OneRound(const QString& text) {
  QString s = WithConditionInBraces(WithoutMathMarks(text));
  if (s.contains(u'\\') || s.contains(u'{') || s.contains(u'}')) {
    const auto read = LatexReader(s).Read();
    if (!read) return text;
    s = *read;
  }
  s = WithPlainCharacters(s);
  s = WithAbsoluteValues(s);  // first, so that a root can take "|x|" whole
  s = WithSquareRoots(s);
  s = WithNamedFunction(s);
  return WithDisplayCommand(WithPointList(s));
}

}  // namespace

QString FromTypedInput(const QString& text) {
  // Once more over its own result, until nothing changes: the field's text is converted again
  // with every key, and a row must stay as it is. Odd input can take a second round
  // ("\(x\)\right" has its marks only once the command is gone).
  QString row = OneRound(text);
  for (int round = 0; round < 4; ++round) {
    QString again = OneRound(row);
    if (again == row) break;
    row = std::move(again);
  }
  return row;
}

QStringList TopLevelCommaPieces(const QString& text) {
  QStringList pieces;
  int depth = 0;
  qsizetype start = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text[i];
    if (c == u'(' || c == u'[') ++depth;
    else if ((c == u')' || c == u']') && depth > 0) --depth;
    else if (c == u',' && depth == 0) {
      pieces << text.mid(start, i - start);
      start = i + 1;
    }
  }
  pieces << text.mid(start);
  return pieces;
}

}  // namespace mathx
