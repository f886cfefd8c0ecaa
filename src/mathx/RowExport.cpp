#include "RowExport.h"

#include "NodeShape.h"
#include "RowParser.h"

#include <QHash>

#include <utility>

namespace mathx {

namespace {

using Kind = MathNode::Kind;

// The typesetter's sizes: exponents, the parts of a fraction, a root's index. Below kScriptLimit
// a quotient stays on the line, as in print.
constexpr double kScript = 0.70;
constexpr double kFractionPart = 0.90;
constexpr double kRootIndex = 0.60;
constexpr double kScriptLimit = kScript + 0.05;

bool IsAsciiLetter(QChar c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

// Whether the LaTeX ends in a command word ("\pi"), which a letter behind it would lengthen.
bool EndsInCommandWord(const QString& latex) {
  qsizetype i = latex.size();
  while (i > 0 && IsAsciiLetter(latex[i - 1])) --i;
  return i < latex.size() && i > 0 && latex[i - 1] == u'\\';
}

// Pieces of LaTeX joined: a blank where a command word would run into the letters behind it.
void Append(QString& out, const QString& piece) {
  if (!piece.isEmpty() && IsAsciiLetter(piece.front()) && EndsInCommandWord(out)) out += u' ';
  out += piece;
}

QString Joined(std::initializer_list<QString> pieces) {
  QString out;
  for (const QString& piece : pieces) Append(out, piece);
  return out;
}

// The Greek letters of a row (spelled out or the editor's symbols) by their LaTeX names.
const QHash<QString, QString>& GreekCommands() {
  static const QHash<QString, QString> commands = [] {
    QHash<QString, QString> table;
    const std::pair<const char*, const char*> pairs[] = {
        {"α", "alpha"},  {"β", "beta"},    {"χ", "chi"},   {"δ", "delta"}, {"ε", "epsilon"}, {"ϕ", "phi"},
        {"φ", "varphi"}, {"γ", "gamma"},   {"η", "eta"},   {"ι", "iota"},  {"κ", "kappa"},   {"λ", "lambda"},
        {"μ", "mu"},     {"ν", "nu"},      {"π", "pi"},    {"θ", "theta"}, {"ρ", "rho"},     {"σ", "sigma"},
        {"τ", "tau"},    {"υ", "upsilon"}, {"ϖ", "varpi"}, {"ω", "omega"}, {"ξ", "xi"},      {"ψ", "psi"},
        {"ζ", "zeta"}};
    for (const auto& [letter, name] : pairs) table.insert(QString::fromUtf8(letter), u'\\' + QString::fromLatin1(name));
    // Omicron looks like the Latin letter and has no command.
    table.insert(QString::fromUtf8("ο"), QStringLiteral("o"));
    return table;
  }();
  return commands;
}

// The function names that LaTeX sets upright by a command of their own.
const QHash<QString, QString>& LatexFunctions() {
  static const QHash<QString, QString> functions = [] {
    QHash<QString, QString> table;
    for (const char* same : {"sin", "cos", "tan", "sec", "csc", "cot", "sinh", "cosh", "tanh", "ln", "log", "exp"})
      table.insert(QString::fromLatin1(same), u'\\' + QString::fromLatin1(same));
    table.insert(QStringLiteral("asin"), QStringLiteral("\\arcsin"));
    table.insert(QStringLiteral("acos"), QStringLiteral("\\arccos"));
    table.insert(QStringLiteral("atan"), QStringLiteral("\\arctan"));
    table.insert(QStringLiteral("log10"), QStringLiteral("\\log_{10}"));
    return table;
  }();
  return functions;
}

// A radicand that the root sign takes without brackets in plain text: √2, √x, √|x|, √sin(x).
bool StandsUnderRootSign(const MathNode& node) {
  switch (node.kind) {
    case Kind::Number: case Kind::Variable: case Kind::Greek: case Kind::Abs: case Kind::Radical: return true;
    case Kind::Call: return node.marks.size() > 1 && node.marks[1].Valid();
    default: return false;
  }
}

// The superscript digits that keyboards and word processors know.
QString Superscript(const MathNode& exponent) {
  if (exponent.kind != Kind::Number) return {};
  if (exponent.text == u"2") return QString::fromUtf8("²");
  if (exponent.text == u"3") return QString::fromUtf8("³");
  return {};
}

}  // namespace

QString RowExport::ToLatex(const QString& row) { return RowExport(Form::Latex).Write(ParseRow(row), 1.0); }

QString RowExport::ToPlainText(const QString& row) { return RowExport(Form::Plain).Write(ParseRow(row), 1.0); }

QString RowExport::Write(const MathNode& node, double scale) const {
  switch (node.kind) {
    case Kind::Number: case Kind::Variable: case Kind::Greek: case Kind::Word: return Leaf(node);
    case Kind::Call: return Call(node, scale);
    case Kind::Group: return Group(node, scale);
    case Kind::Binary: return NodeShape::IsQuotient(node) ? Fraction(node, scale) : Binary(node, scale);
    case Kind::Unary: return Unary(node, scale);
    case Kind::Power: return Power(node, scale);
    case Kind::Chain: return Chain(node, scale);
    case Kind::Radical: return Radical(node, scale);
    case Kind::Abs: return Abs(node, scale);
    case Kind::Declare: return Declare(node, scale);
    case Kind::Domain: return Domain(node, scale);
    case Kind::PointTable: return Table(node, scale);
    case Kind::Command: return Latex() ? QStringLiteral("\\text{") + node.text + u'}' : node.text;
    case Kind::Placeholder: case Kind::TableRow: return {};
    case Kind::PlainText: return node.text;
  }
  return node.text;
}

QString RowExport::Leaf(const MathNode& node) const {
  if (!Latex()) return node.text;
  if (node.kind == Kind::Greek) return GreekCommands().value(node.text, node.text);
  if (node.kind == Kind::Word) return FunctionName(node.text);
  return node.text;
}

QString RowExport::FunctionName(const QString& name) const {
  if (!Latex()) return name;
  return LatexFunctions().value(name, QStringLiteral("\\operatorname{") + name + u'}');
}

QString RowExport::Call(const MathNode& node, double scale) const {
  const bool bracketed = node.marks.size() > 1 && node.marks[1].Valid();
  if (!bracketed) {
    // "sin x": LaTeX's braces keep the argument together as the row does.
    const QString argument = Write(node.children.front(), scale);
    return Latex() ? Joined({FunctionName(node.text), u'{' + argument + u'}'})
                   : node.text + u' ' + argument;
  }
  QStringList arguments;
  for (const MathNode& child : node.children) arguments << Write(child, scale);
  const QString inside = arguments.join(Latex() ? QStringLiteral(",") : QStringLiteral(", "));
  if (!Latex()) return node.text + u'(' + inside + u')';
  return Joined({FunctionName(node.text), QStringLiteral("\\left(") + inside + QStringLiteral("\\right)")});
}

QString RowExport::Group(const MathNode& node, double scale) const {
  const QString inside = Write(node.children.front(), scale);
  if (!Latex()) return node.text[0] + inside + node.text[1];
  // An exponent's brackets are LaTeX's braces, which the caller writes.
  if (node.hideBrackets) return inside;
  if (node.text == u"{}") return QStringLiteral("\\left\\{") + inside + QStringLiteral("\\right\\}");
  return QStringLiteral("\\left") + node.text[0] + inside + QStringLiteral("\\right") + node.text[1];
}

QString RowExport::Binary(const MathNode& node, double scale) const {
  // Inside an exponent the plain text stays close, as the row's small type does.
  const bool compact = scale < kScriptLimit;
  QString out = Write(node.children[0], scale);
  for (size_t i = 1; i < node.children.size(); ++i) {
    const QString& op = node.ops[i - 1];
    QString glyph;
    if (op == u"+" || op == u"-") glyph = compact || Latex() ? op : u' ' + op + u' ';
    else if (op == u"mod") glyph = Latex() ? QStringLiteral("\\bmod ") : QStringLiteral(" mod ");
    else if (op == u"\\") glyph = Latex() ? QStringLiteral("\\backslash ") : QStringLiteral("\\");
    else if (op == u"/") glyph = QStringLiteral("/");
    else glyph = Product(NodeShape::Rightmost(node.children[i - 1]), op, NodeShape::Leftmost(node.children[i]));
    Append(out, glyph);
    Append(out, Write(node.children[i], scale));
  }
  return out;
}

// The gap of a product: a dot where the row shows one (before a number, or between a number and
// a signed factor), and where two numbers would run together; a blank before a function's name
// in plain text; else nothing.
QString RowExport::Product(const MathNode& left, const QString& op, const MathNode& right) const {
  const bool numbers = left.kind == Kind::Number && right.kind == Kind::Number;
  const bool dot = op == u"*" && (right.kind == Kind::Number || (left.kind == Kind::Number && right.kind == Kind::Unary));
  if (dot || numbers) return Latex() ? QStringLiteral("\\cdot ") : QString::fromUtf8("·");
  const bool function = (right.kind == Kind::Call || right.kind == Kind::Word) && right.text != u"declare";
  if (Latex()) return op == u"*" && !function ? QStringLiteral("\\,") : QString();
  return function ? QStringLiteral(" ") : QString();
}

QString RowExport::Fraction(const MathNode& node, double scale) const {
  const bool builtUp = scale >= kScriptLimit && NodeShape::IsCompact(node.children[0]) && NodeShape::IsCompact(node.children[1]);
  if (!Latex() || !builtUp) return Binary(node, scale);
  // The parts' own round brackets are the bar's to show.
  const auto part = [&](const MathNode& child) {
    const double partScale = scale * kFractionPart;
    if (child.kind == Kind::Group && child.text == u"()") return Write(child.children.front(), partScale);
    return Write(child, partScale);
  };
  return QStringLiteral("\\frac{") + part(node.children[0]) + QStringLiteral("}{") + part(node.children[1]) + u'}';
}

QString RowExport::Unary(const MathNode& node, double scale) const {
  const QString operand = Write(node.children.front(), scale);
  if (node.text == u"!") return operand + u'!';
  return node.text + operand;
}

QString RowExport::Power(const MathNode& node, double scale) const {
  const QString base = Write(node.children[0], scale);
  const MathNode& exponent = node.children[1];
  if (Latex()) return base + QStringLiteral("^{") + Write(exponent, scale * kScript) + u'}';
  const QString raised = Superscript(exponent);
  if (!raised.isEmpty()) return base + raised;
  return base + u'^' + Write(exponent, scale * kScript);
}

QString RowExport::Chain(const MathNode& node, double scale) const {
  const bool compact = scale < kScriptLimit;
  QString out = Write(node.children[0], scale);
  for (size_t i = 1; i < node.children.size(); ++i) {
    const QString& op = node.ops[i - 1];
    QString glyph;
    if (op == u",") glyph = Latex() ? QStringLiteral(",") : QStringLiteral(", ");
    // A ";" keeps its meaning (what follows is a condition), so LaTeX writes it as it is.
    else if (op == u";") glyph = Latex() ? QStringLiteral(";\\quad ") : QStringLiteral("; ");
    else if (op == u"and" || op == u"or") glyph = Latex() ? "\\text{ " + op + " }" : u' ' + op + u' ';
    else glyph = Relation(op, compact);
    Append(out, glyph);
    Append(out, Write(node.children[i], scale));
  }
  return out;
}

QString RowExport::Relation(const QString& op, bool compact) const {
  QString glyph = op;
  if (op == u"<=" || op == u"=<") glyph = Latex() ? QStringLiteral("\\le ") : QString::fromUtf8("≤");
  else if (op == u">=" || op == u"=>") glyph = Latex() ? QStringLiteral("\\ge ") : QString::fromUtf8("≥");
  else if (op == u"<>") glyph = Latex() ? QStringLiteral("\\ne ") : QString::fromUtf8("≠");
  return Latex() || compact ? glyph : u' ' + glyph + u' ';
}

QString RowExport::Radical(const MathNode& node, double scale) const {
  const MathNode& radicand = node.children[0];
  const QString inside = Write(radicand, scale);
  const bool indexed = node.children.size() > 1;
  if (Latex()) {
    const QString index = indexed ? u'[' + Write(node.children[1], scale * kRootIndex) + u']' : QString();
    return QStringLiteral("\\sqrt") + index + u'{' + inside + u'}';
  }
  const QString under = StandsUnderRootSign(radicand) ? inside : u'(' + inside + u')';
  if (!indexed) return QString::fromUtf8("√") + under;
  const MathNode& index = node.children[1];
  if (index.kind == Kind::Number && index.text == u"3") return QString::fromUtf8("∛") + under;
  if (index.kind == Kind::Number && index.text == u"4") return QString::fromUtf8("∜") + under;
  return QStringLiteral("xroot(") + inside + QStringLiteral(", ") + Write(index, scale) + u')';
}

QString RowExport::Abs(const MathNode& node, double scale) const {
  const QString inside = Write(node.children.front(), scale);
  return Latex() ? QStringLiteral("\\left|") + inside + QStringLiteral("\\right|") : u'|' + inside + u'|';
}

// The equation and its condition. LaTeX sets the condition in braces behind a quad, which the
// insert dialog reads back as the condition it is.
QString RowExport::Declare(const MathNode& node, double scale) const {
  const QString equation = Write(node.children[0], scale);
  const QString condition = Write(node.children[1], scale);
  if (!Latex()) return equation + QStringLiteral(", ") + condition;
  return equation + QStringLiteral("\\quad\\left\\{") + condition + QStringLiteral("\\right\\}");
}

QString RowExport::Domain(const MathNode& node, double scale) const {
  // The bounds digit: which ends belong to the range, as the typesetter shows them.
  static const char16_t* const lower[] = {u"<", u"<=", u"<", u"<="};
  static const char16_t* const upper[] = {u"<", u"<=", u"<=", u"<"};
  const int bounds = node.text.toInt();
  const bool compact = scale < kScriptLimit;
  QString out = Write(node.children[1], scale);
  Append(out, Relation(QString::fromUtf16(lower[bounds]), compact));
  Append(out, Write(node.children[0], scale));
  Append(out, Relation(QString::fromUtf16(upper[bounds]), compact));
  Append(out, Write(node.children[2], scale));
  return out;
}

// A point list as the list of its points: "(1,2),(3,4)". A header other than x and y goes in
// front in square brackets, as the insert dialog reads it.
QString RowExport::Table(const MathNode& node, double scale) const {
  const QString separator = Latex() ? QStringLiteral(",") : QStringLiteral(", ");
  QStringList pieces;
  const MathNode& header = node.children.front();
  const bool plainHeader = header.children[0].kind == Kind::Variable && header.children[0].text == u"x" &&
                           header.children[1].kind == Kind::Variable && header.children[1].text == u"y";
  if (!plainHeader) pieces << Pair(header, scale, u"[", u"]");
  for (size_t r = 1; r < node.children.size(); ++r) pieces << Pair(node.children[r], scale, u"(", u")");
  return pieces.join(separator);
}

QString RowExport::Pair(const MathNode& row, double scale, const char16_t* open, const char16_t* close) const {
  const QString first = Write(row.children[0], scale);
  const QString second = Write(row.children[1], scale);
  if (!Latex()) return QString::fromUtf16(open) + first + QStringLiteral(", ") + second + QString::fromUtf16(close);
  return QStringLiteral("\\left") + QString::fromUtf16(open) + first + u',' + second + QStringLiteral("\\right") +
         QString::fromUtf16(close);
}

}  // namespace mathx
