#include "SpokenForm.h"

#include "NodeShape.h"
#include "RowParser.h"

#include <QHash>
#include <QStringList>

#include <utility>

namespace mathx {

namespace {

using Kind = MathNode::Kind;

// The Greek letters of a parsed row by the names a listener knows them by.
const QHash<QString, QString>& GreekWords() {
  static const QHash<QString, QString> words = [] {
    QHash<QString, QString> table;
    const std::pair<const char*, const char*> pairs[] = {
        {"α", "alpha"}, {"β", "beta"},    {"χ", "chi"},     {"δ", "delta"}, {"ε", "epsilon"}, {"ϕ", "phi"},
        {"φ", "phi"},   {"γ", "gamma"},   {"η", "eta"},     {"ι", "iota"},  {"κ", "kappa"},   {"λ", "lambda"},
        {"μ", "mu"},    {"ν", "nu"},      {"ο", "omicron"}, {"π", "pi"},    {"θ", "theta"},   {"ρ", "rho"},
        {"σ", "sigma"}, {"τ", "tau"},     {"υ", "upsilon"}, {"ϖ", "pi"},    {"ω", "omega"},   {"ξ", "xi"},
        {"ψ", "psi"},   {"ζ", "zeta"}};
    for (const auto& [letter, name] : pairs) table.insert(QString::fromUtf8(letter), QString::fromLatin1(name));
    return table;
  }();
  return words;
}

// Function names as they are said; a name missing here is said as it is written.
const QHash<QString, QString>& FunctionWords() {
  static const QHash<QString, QString> words = [] {
    QHash<QString, QString> table;
    const std::pair<const char*, const char*> trig[] = {{"sin", "sine"},    {"cos", "cosine"}, {"tan", "tangent"},
                                                        {"csc", "cosecant"}, {"sec", "secant"}, {"cot", "cotangent"}};
    for (const auto& [name, word] : trig) {
      const QString n = QString::fromLatin1(name);
      const QString w = QString::fromLatin1(word);
      table.insert(n, w);
      table.insert(n + u'h', QStringLiteral("hyperbolic ") + w);
      table.insert(u'a' + n, QStringLiteral("inverse ") + w);
      table.insert(u'a' + n + u'h', QStringLiteral("inverse hyperbolic ") + w);
    }
    const std::pair<const char*, const char*> others[] = {
        {"ln", "natural log"}, {"log", "log"},        {"log10", "log base 10"}, {"sgn", "sign"},
        {"fix", "whole part"}, {"int", "floor"},      {"fact", "factorial"},    {"deg", "degrees"},
        {"rnd", "random"},     {"abs", "absolute value"}, {"sqrt", "square root"}, {"sqr", "square root"}};
    for (const auto& [name, word] : others) table.insert(QString::fromLatin1(name), QString::fromLatin1(word));
    return table;
  }();
  return words;
}

QString FunctionWord(const QString& name) { return FunctionWords().value(name, name); }

// A piece a listener hears as one word.
bool IsSimple(const MathNode& node) {
  switch (node.kind) {
    case Kind::Number: case Kind::Variable: case Kind::Greek: case Kind::Word: case Kind::Placeholder: return true;
    default: return false;
  }
}

// A piece heard as one: a word, a signed word, or words side by side with nothing between
// ("3 theta", "2 pi x"), which a listener takes together.
bool IsTight(const MathNode& node) {
  if (IsSimple(node)) return true;
  if (node.kind == Kind::Unary && node.text == u"-") return IsSimple(node.children.front());
  if (node.kind != Kind::Binary) return false;
  for (const QString& op : node.ops)
    if (!op.isEmpty()) return false;
  for (const MathNode& child : node.children)
    if (!IsSimple(child)) return false;
  return true;
}

// The content of round brackets that the picture or the words make unnecessary.
const MathNode& Unwrapped(const MathNode& node) {
  const MathNode* at = &node;
  while (at->kind == Kind::Group && (at->text == u"()" || at->hideBrackets) && !at->children.empty())
    at = &at->children.front();
  return *at;
}

// "5th", "2nd", "11th": the index of a root.
QString Ordinal(const QString& digits) {
  const int n = digits.toInt();
  const char* suffix = "th";
  if (n % 100 < 11 || n % 100 > 13) {
    if (n % 10 == 1) suffix = "st";
    else if (n % 10 == 2) suffix = "nd";
    else if (n % 10 == 3) suffix = "rd";
  }
  return digits + QString::fromLatin1(suffix);
}

QString OperatorWord(const QString& op) {
  if (op.isEmpty()) return QStringLiteral(" ");
  if (op == u"+") return QStringLiteral(" plus ");
  if (op == u"-") return QStringLiteral(" minus ");
  if (op == u"*") return QStringLiteral(" times ");
  if (op == u"/") return QStringLiteral(" divided by ");
  if (op == u"\\") return QStringLiteral(" integer divided by ");
  return u' ' + op + u' ';
}

QString RelationWord(const QString& op) {
  if (op == u"=") return QStringLiteral(" equals ");
  if (op == u"<") return QStringLiteral(" is less than ");
  if (op == u">") return QStringLiteral(" is greater than ");
  if (op == u"<=" || op == u"=<") return QStringLiteral(" is less than or equal to ");
  if (op == u">=" || op == u"=>") return QStringLiteral(" is greater than or equal to ");
  if (op == u"<>") return QStringLiteral(" is not equal to ");
  if (op == u",") return QStringLiteral(", ");
  // What follows a ";" is a condition on what stands before it.
  if (op == u";") return QStringLiteral(", where ");
  return u' ' + op + u' ';
}

}  // namespace

QString SpokenForm::OfRow(const QString& rowText) {
  if (rowText.trimmed().isEmpty()) return QStringLiteral("empty row");
  const MathNode node = ParseRow(rowText);
  if (node.kind == Kind::PlainText) return rowText;
  return Say(node, true);
}

QString SpokenForm::Say(const MathNode& node, bool last) {
  switch (node.kind) {
    case Kind::Number: case Kind::Variable: case Kind::Greek: case Kind::Word: case Kind::Placeholder:
      return Leaf(node);
    case Kind::Call: return Call(node, last);
    case Kind::Group: return Group(node, last);
    case Kind::Binary: return NodeShape::IsQuotient(node) ? Fraction(node, last) : Binary(node, last);
    case Kind::Unary: return Unary(node, last);
    case Kind::Power: return Power(node, last);
    case Kind::Chain: return Chain(node);
    case Kind::Radical: return Radical(node, last);
    case Kind::Abs:
      return Closed(QStringLiteral("the absolute value of"), Say(node.children.front(), true),
                    QStringLiteral("end absolute value"), last);
    case Kind::Declare: return Declare(node);
    case Kind::Domain: return Domain(node);
    case Kind::PointTable: return Table(node);
    case Kind::Command: case Kind::PlainText: return node.text;
    case Kind::TableRow: return Pair(node);
  }
  return node.text;
}

QString SpokenForm::Leaf(const MathNode& node) {
  switch (node.kind) {
    case Kind::Greek: return GreekWords().value(node.text, node.text);
    case Kind::Word: return FunctionWord(node.text);
    case Kind::Placeholder: return QStringLiteral("blank");
    default: return node.text;
  }
}

QString SpokenForm::Closed(const QString& opening, const QString& content, const QString& close, bool last) {
  QString out = opening + u' ' + content;
  if (!last) out += u' ' + close;
  return out;
}

QString SpokenForm::Call(const MathNode& node, bool last) {
  if (node.text == u"exp") return QStringLiteral("e ") + Exponent(node.children.front(), last);
  // xlog(b, x): the base comes first.
  if (node.text == u"xlog" && node.children.size() == 2)
    return QStringLiteral("log base ") + Say(node.children[0], true) + QStringLiteral(" of ") +
           Argument(node.children[1], last);
  const QString word = FunctionWord(node.text);
  if (node.children.size() == 1) return word + QStringLiteral(" of ") + Argument(node.children.front(), last);
  QStringList arguments;
  for (const MathNode& child : node.children) arguments << Say(child, true);
  return Closed(word + QStringLiteral(" of"), arguments.join(QStringLiteral(" and ")), QStringLiteral("end ") + word,
                last);
}

QString SpokenForm::Argument(const MathNode& node, bool last) {
  const MathNode& inside = Unwrapped(node);
  if (IsTight(inside)) return Say(inside, true);
  // A function, root or bar opens with words of its own ("sine of sine of x").
  if (inside.kind == Kind::Call || inside.kind == Kind::Radical || inside.kind == Kind::Abs) return Say(inside, last);
  return Closed(QStringLiteral("the quantity"), Say(inside, true), QStringLiteral("end quantity"), last);
}

QString SpokenForm::Group(const MathNode& node, bool last) {
  const MathNode& inside = node.children.front();
  if (node.text == u"[]")
    return Closed(QStringLiteral("the whole part of"), Say(inside, true), QStringLiteral("end whole part"), last);
  // A bracketed condition is a condition; its brackets only group it.
  if (inside.kind == Kind::Domain || inside.kind == Kind::Chain) return Say(inside, true);
  return Argument(node, last);
}

QString SpokenForm::Binary(const MathNode& node, bool last) {
  const size_t count = node.children.size();
  QString out = Say(node.children[0], count == 1 && last);
  for (size_t i = 1; i < count; ++i)
    out += OperatorWord(node.ops[i - 1]) + Say(node.children[i], i + 1 == count && last);
  return out;
}

// A quotient the typesetter leaves on the line is "divided by"; a built-up one of two plain parts
// is "x over 2"; any other built-up one is "the fraction ... over ...".
QString SpokenForm::Fraction(const MathNode& node, bool last) {
  if (!NodeShape::IsCompact(node.children[0]) || !NodeShape::IsCompact(node.children[1])) return Binary(node, last);
  const MathNode& numerator = Unwrapped(node.children[0]);
  const MathNode& denominator = Unwrapped(node.children[1]);
  if (IsTight(numerator) && IsTight(denominator))
    return Say(numerator, true) + QStringLiteral(" over ") + Say(denominator, true);
  const QString parts = Say(numerator, false) + QStringLiteral(" over ") + Say(denominator, true);
  return Closed(QStringLiteral("the fraction"), parts, QStringLiteral("end fraction"), last);
}

QString SpokenForm::Unary(const MathNode& node, bool last) {
  const MathNode& operand = node.children.front();
  if (node.text == u"!") return Say(operand, false) + QStringLiteral(" factorial");
  if (node.text == u"-") return QStringLiteral("minus ") + Say(operand, last);
  return QStringLiteral("plus ") + Say(operand, last);
}

QString SpokenForm::Power(const MathNode& node, bool last) {
  return Say(node.children[0], false) + u' ' + Exponent(node.children[1], last);
}

QString SpokenForm::Exponent(const MathNode& exponent, bool last) {
  const MathNode& inside = Unwrapped(exponent);
  if (inside.kind == Kind::Number && inside.text == u"2") return QStringLiteral("squared");
  if (inside.kind == Kind::Number && inside.text == u"3") return QStringLiteral("cubed");
  if (IsTight(inside)) return QStringLiteral("to the power ") + Say(inside, true);
  return Closed(QStringLiteral("to the power"), Say(inside, true), QStringLiteral("end power"), last);
}

QString SpokenForm::Chain(const MathNode& node) {
  QString out = Say(node.children[0], true);
  for (size_t i = 1; i < node.children.size(); ++i) {
    const QString& op = node.ops[i - 1];
    const QString glyph = op == u"and" || op == u"or" ? u' ' + op + u' ' : RelationWord(op);
    out += glyph + Say(node.children[i], true);
  }
  return out;
}

QString SpokenForm::Radical(const MathNode& node, bool last) {
  QString opening = QStringLiteral("the square root of");
  if (node.children.size() > 1) {
    const MathNode& index = Unwrapped(node.children[1]);
    if (index.kind == Kind::Number && index.text == u"3") opening = QStringLiteral("the cube root of");
    else if (index.kind == Kind::Number && !index.text.contains(u'.'))
      opening = QStringLiteral("the ") + Ordinal(index.text) + QStringLiteral(" root of");
    else opening = QStringLiteral("the root of index ") + Say(index, true) + QStringLiteral(" of");
  }
  return Closed(opening, Say(node.children.front(), true), QStringLiteral("end root"), last);
}

QString SpokenForm::Declare(const MathNode& node) {
  return Say(node.children[0], true) + QStringLiteral(", ") + Condition(node.children[1]);
}

// A range of a variable reads "for x from 0 to 3"; any other condition "where x is greater than 0".
QString SpokenForm::Condition(const MathNode& node) {
  const MathNode& inside = Unwrapped(node);
  const bool range = inside.kind == Kind::Domain ||
                     (inside.kind == Kind::Chain && Unwrapped(inside.children.front()).kind == Kind::Domain);
  return range ? Say(inside, true) : QStringLiteral("where ") + Say(inside, true);
}

// The bounds digit says which ends belong to the range: 0 neither, 1 both, 2 the upper, 3 the
// lower. Only the ends left out are named, so that "from 0 to 3" alone means both are in.
QString SpokenForm::Domain(const MathNode& node) {
  static const char* const ends[] = {" excluding both ends", "", " excluding ", " excluding "};
  const int bounds = node.text.toInt();
  const QString lower = Say(node.children[1], true);
  const QString upper = Say(node.children[2], true);
  QString out = QStringLiteral("for ") + Say(node.children[0], true) + QStringLiteral(" from ") + lower +
                QStringLiteral(" to ") + upper;
  if (bounds >= 0 && bounds <= 3) out += QString::fromLatin1(ends[bounds]);
  if (bounds == 2) out += lower;
  if (bounds == 3) out += upper;
  return out;
}

// "points: 1 comma 2; 3 comma 4". Columns other than x and y are named first.
QString SpokenForm::Table(const MathNode& node) {
  const MathNode& header = node.children.front();
  const bool plainHeader = header.children[0].kind == Kind::Variable && header.children[0].text == u"x" &&
                           header.children[1].kind == Kind::Variable && header.children[1].text == u"y";
  QString out = QStringLiteral("points");
  if (!plainHeader)
    out += QStringLiteral(" in ") + Say(header.children[0], true) + QStringLiteral(" and ") +
           Say(header.children[1], true);
  QStringList points;
  for (size_t r = 1; r < node.children.size(); ++r) points << Pair(node.children[r]);
  if (!points.isEmpty()) out += QStringLiteral(": ") + points.join(QStringLiteral("; "));
  return out;
}

QString SpokenForm::Pair(const MathNode& row) {
  return Say(row.children[0], true) + QStringLiteral(" comma ") + Say(row.children[1], true);
}

}  // namespace mathx
