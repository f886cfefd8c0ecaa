#include "LineParser.h"

#include "numeric/NumericKernel.h"

#include <QHash>

#include <optional>

namespace mathlang {

namespace {

enum class TokenKind : std::uint8_t { Number, Constant, Load, Function, Keyword, Symbol, End };

struct Token {
  TokenKind Kind = TokenKind::End;
  double Number = 0;
  Variable Var = Variable::X;
  Function Fn = Function::Identity;
  QString Text;           // a symbol or keyword: "+", "<=", "and", ...
  bool Adjacent = false;  // no blank before it
};

struct Name {
  TokenKind Kind;
  double Number = 0;
  Variable Var = Variable::X;
  Function Fn = Function::Identity;
};

const QHash<QString, Name>& Names() {
  static const QHash<QString, Name> names = [] {
    QHash<QString, Name> n;
    const auto fn = [&n](const char* name, Function f) { n.insert(name, {TokenKind::Function, 0, Variable::X, f}); };
    const auto var = [&n](const char* name, Variable v) { n.insert(name, {TokenKind::Load, 0, v}); };
    fn("sin", Function::Sin); fn("cos", Function::Cos); fn("tan", Function::Tan); fn("exp", Function::Exp);
    fn("ln", Function::Ln); fn("log", Function::Ln); fn("log10", Function::Log10); fn("sqrt", Function::Sqrt);
    fn("sqr", Function::Sqr); fn("abs", Function::Abs); fn("sgn", Function::Sgn); fn("int", Function::Int);
    fn("fix", Function::Fix); fn("atan", Function::Atan); fn("atn", Function::Atan); fn("asin", Function::Asin);
    fn("acos", Function::Acos); fn("deg", Function::Deg); fn("fact", Function::Fact); fn("csc", Function::Csc);
    fn("cosec", Function::Csc); fn("sec", Function::Sec); fn("cot", Function::Cot); fn("sinh", Function::Sinh);
    fn("cosh", Function::Cosh); fn("tanh", Function::Tanh); fn("coth", Function::Coth); fn("csch", Function::Csch);
    fn("cosech", Function::Csch); fn("sech", Function::Sech); fn("acsc", Function::Acsc);
    fn("acosec", Function::Acsc); fn("asec", Function::Asec); fn("acot", Function::Acot);
    fn("asinh", Function::Asinh); fn("acosh", Function::Acosh); fn("atanh", Function::Atanh);
    fn("acsch", Function::Acsch); fn("acosech", Function::Acsch); fn("asech", Function::Asech);
    fn("acoth", Function::Acoth); fn("const", Function::Identity); fn("rnd", Function::Random);
    fn("randomnumber", Function::Random); fn("xroot", Function::XRoot); fn("xlog", Function::XLog);
    var("x", Variable::X); var("y", Variable::Y); var("t", Variable::T); var("theta", Variable::Theta);
    var("r", Variable::R); var("rho", Variable::R);
    for (const char* greek : {"alpha", "beta", "phi", "tau", "meu", "lambda"}) var(greek, Variable::Zero);
    n.insert("pi", {TokenKind::Constant, numeric::kPi});
    n.insert("e", {TokenKind::Constant, numeric::kE});
    for (const char* keyword : {"and", "or", "mod"}) n.insert(keyword, {TokenKind::Keyword});
    return n;
  }();
  return names;
}

const QHash<QString, Name>& SpaceNames() {
  static const QHash<QString, Name> names = [] {
    QHash<QString, Name> n = Names();
    for (const auto& [name, v] : {std::pair{"z", Variable::Z}, std::pair{"phi", Variable::Phi}, std::pair{"u", Variable::U},
                                  std::pair{"v", Variable::V}}) {
      n.insert(name, {TokenKind::Load, 0, v});
    }
    return n;
  }();
  return names;
}

const QHash<QString, Name>& NamesOf(Language language) { return language == Language::Space ? SpaceNames() : Names(); }

// The editor's spelling of Greek letters: "q..symb", "f..var..symb".
QString EditorSymbol(QChar letter) {
  switch (letter.unicode()) {
    case u'q': return QStringLiteral("theta");
    case u'r': return QStringLiteral("rho");
    case u'a': return QStringLiteral("alpha");
    case u'b': return QStringLiteral("beta");
    case u'f': return QStringLiteral("phi");
    case u't': return QStringLiteral("tau");
    case u'm': return QStringLiteral("meu");
    case u'l': return QStringLiteral("lambda");
    default: return {};
  }
}

bool IsLetter(QChar c) { return (c >= u'a' && c <= u'z'); }
bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

class Lexer {
public:
  Lexer(const QString& text, const QHash<QString, Name>& names) : m_text(text.toLower()), m_names(names) {}

  std::optional<std::vector<Token>> Run(QString& error) {
    std::vector<Token> tokens;
    while (true) {
      bool blank = false;
      while (m_at < m_text.size() && m_text[m_at].isSpace()) ++m_at, blank = true;
      if (m_at >= m_text.size()) break;
      const qsizetype before = tokens.size();
      if (!Next(tokens, error)) return std::nullopt;
      if (tokens.size() > static_cast<size_t>(before)) tokens[static_cast<size_t>(before)].Adjacent = !blank && before > 0;
    }
    tokens.push_back(Token{});
    return tokens;
  }

private:
  QChar Peek(qsizetype ahead = 0) const { return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : QChar(); }

  bool Next(std::vector<Token>& tokens, QString& error) {
    const QChar c = m_text[m_at];
    if (IsDigit(c) || (c == u'.' && IsDigit(Peek(1)))) return Number(tokens);
    if (IsLetter(c)) return Word(tokens, error);
    if (c == QChar(0x03C0)) return ++m_at, PushName(tokens, QStringLiteral("pi")), true;     // π
    if (c == QChar(0x03B8)) return ++m_at, PushName(tokens, QStringLiteral("theta")), true;  // θ
    static const char* const kSymbols[] = {"<=", ">=", "<>", "==", "=<", "=>", "+", "-", "*", "/", "\\", "^",
                                           "(", ")", "[", "]", ",", ";", "=", "<", ">"};
    for (const char* symbol : kSymbols) {
      const QString s = QString::fromLatin1(symbol);
      if (m_text.mid(m_at, s.size()) == s) {
        m_at += s.size();
        Token t;
        t.Kind = TokenKind::Symbol;
        t.Text = s == u"==" ? QStringLiteral("=") : s == u"=<" ? QStringLiteral("<=") : s == u"=>" ? QStringLiteral(">=") : s;
        tokens.push_back(t);
        return true;
      }
    }
    error = QStringLiteral("unexpected character \"%1\"").arg(c);
    return false;
  }

  bool Number(std::vector<Token>& tokens) {
    const qsizetype start = m_at;
    while (IsDigit(Peek())) ++m_at;
    if (Peek() == u'.') {
      ++m_at;
      while (IsDigit(Peek())) ++m_at;
    }
    if (Peek() == u'e' && (IsDigit(Peek(1)) || ((Peek(1) == u'+' || Peek(1) == u'-') && IsDigit(Peek(2))))) {
      m_at += 2;
      while (IsDigit(Peek())) ++m_at;
    }
    Token t;
    t.Kind = TokenKind::Number;
    t.Number = m_text.mid(start, m_at - start).toDouble();
    if (!std::isfinite(t.Number)) t.Number = numeric::kFail;
    tokens.push_back(t);
    return true;
  }

  void PushName(std::vector<Token>& tokens, const QString& word) {
    const Name& name = m_names[word];
    Token t;
    t.Kind = name.Kind;
    t.Number = name.Number;
    t.Var = name.Var;
    t.Fn = name.Fn;
    t.Text = word;
    tokens.push_back(t);
  }

  // A run of letters (and the digits of "log10"), split into the longest known names: "xy" is
  // x times y, "xsin" is x and sin, "2pix" is 2, pi and x.
  bool Word(std::vector<Token>& tokens, QString& error) {
    if (Peek(1) == u'.' && Peek(2) == u'.') return Symbol(tokens, error);
    const qsizetype start = m_at;
    for (;;) {
      if (IsLetter(Peek())) {
        ++m_at;
      } else if (Peek() == u'1' && Peek(1) == u'0' && !IsDigit(Peek(2)) &&
                 m_text.mid(start, m_at - start).endsWith(QStringLiteral("log"))) {
        m_at += 2;  // the digits of "log10"
      } else {
        break;
      }
    }
    const QString word = m_text.mid(start, m_at - start);
    for (qsizetype at = 0; at < word.size();) {
      qsizetype length = word.size() - at;
      while (length > 0 && !m_names.contains(word.mid(at, length))) --length;
      if (length == 0) {
        error = QStringLiteral("unknown name \"%1\"").arg(word.mid(at));
        return false;
      }
      const qsizetype first = tokens.size();
      PushName(tokens, word.mid(at, length));
      if (at > 0) tokens[static_cast<size_t>(first)].Adjacent = true;
      at += length;
    }
    return true;
  }

  // "q..symb", "f..var..symb".
  bool Symbol(std::vector<Token>& tokens, QString& error) {
    const QString name = EditorSymbol(Peek());
    for (const char* form : {"..var..symb", "..symb"}) {
      const QString f = QString::fromLatin1(form);
      if (!name.isEmpty() && m_text.mid(m_at + 1, f.size()) == f) {
        m_at += 1 + f.size();
        PushName(tokens, name);
        return true;
      }
    }
    error = QStringLiteral("unknown symbol \"%1\"").arg(m_text.mid(m_at, 8));
    return false;
  }

  QString m_text;
  const QHash<QString, Name>& m_names;
  qsizetype m_at = 0;
};

// Each bracket level costs two steps of depth; 1000 keeps the stack small under any build.
constexpr int kMaxDepth = 1000;

class Parser {
public:
  Parser(std::vector<Token> tokens, ParsedLine& line) : m_tokens(std::move(tokens)), m_line(line) {}

  void Line(bool equation) {
    const int first = Expression();
    if (equation && Is(u"=")) {
      ++m_at;
      const int second = Expression();
      Classify(first, second);
    } else {
      m_line.Form = LineForm::Bare;
      m_line.Right = first;
    }
    while (equation && Is(u";")) {
      ++m_at;
      if (Peek().Kind == TokenKind::End) break;
      const int condition = Or();
      m_line.Condition = m_line.Condition < 0 ? condition : Tree().AddBinary(NodeKind::And, m_line.Condition, condition);
    }
    if (Peek().Kind != TokenKind::End) Fail(QStringLiteral("unexpected \"%1\"").arg(Describe(Peek())));
  }

private:
  struct Failure {};

  ExpressionTree& Tree() { return m_line.Tree; }
  const Token& Peek(size_t ahead = 0) const { return m_tokens[std::min(m_at + ahead, m_tokens.size() - 1)]; }
  bool Is(const char16_t* symbol) const {
    return Peek().Kind == TokenKind::Symbol && Peek().Text == QStringView(symbol);
  }
  bool IsKeyword(const char16_t* word) const {
    return Peek().Kind == TokenKind::Keyword && Peek().Text == QStringView(word);
  }
  static QString Describe(const Token& t) { return t.Kind == TokenKind::End ? QStringLiteral("end") : t.Text.isEmpty() ? QString::number(t.Number) : t.Text; }

  [[noreturn]] void Fail(const QString& reason) {
    if (m_line.Error.isEmpty()) m_line.Error = reason;
    throw Failure{};
  }

  void Expect(const char16_t* symbol) {
    if (!Is(symbol)) Fail(QStringLiteral("expected \"%1\" before %2").arg(QString::fromUtf16(symbol), Describe(Peek())));
    ++m_at;
  }

  void Classify(int left, int right) {
    const Node& l = Tree().At(left);
    m_line.Right = right;
    if (l.Kind == NodeKind::Load && l.Var == Variable::Y) m_line.Form = LineForm::Y;
    else if (l.Kind == NodeKind::Load && l.Var == Variable::X) m_line.Form = LineForm::X;
    else if (l.Kind == NodeKind::Load && l.Var == Variable::R) m_line.Form = LineForm::R;
    else m_line.Form = LineForm::Implicit, m_line.Left = left;
  }

  int Or() {
    int a = And();
    while (IsKeyword(u"or")) ++m_at, a = Tree().AddBinary(NodeKind::Or, a, And());
    return a;
  }

  int And() {
    int a = Chain();
    while (IsKeyword(u"and")) ++m_at, a = Tree().AddBinary(NodeKind::And, a, Chain());
    return a;
  }

  std::optional<std::pair<NodeKind, bool>> ComparisonAhead() const {
    if (Peek().Kind != TokenKind::Symbol) return std::nullopt;
    const QString& s = Peek().Text;
    if (s == u"<") return std::pair{NodeKind::Less, false};
    if (s == u"<=") return std::pair{NodeKind::LessEqual, true};
    if (s == u">") return std::pair{NodeKind::Greater, false};
    if (s == u">=") return std::pair{NodeKind::GreaterEqual, true};
    if (s == u"=") return std::pair{NodeKind::Equal, true};
    if (s == u"<>") return std::pair{NodeKind::NotEqual, false};
    return std::nullopt;
  }

  // "0<=x<3" is (0<=x) and (x<3); each comparison is remembered for the curve's end points.
  int Chain() {
    int left = Expression();
    int result = -1;
    while (const auto comparison = ComparisonAhead()) {
      ++m_at;
      const int right = Expression();
      const int node = Tree().AddBinary(comparison->first, left, right);
      m_line.Comparisons.push_back({node, comparison->second});
      result = result < 0 ? node : Tree().AddBinary(NodeKind::And, result, node);
      left = right;
    }
    return result < 0 ? left : result;
  }

  int Expression() {
    int a = Term();
    for (;;) {
      if (Is(u"+")) ++m_at, a = Tree().AddBinary(NodeKind::Add, a, Term());
      else if (Is(u"-")) ++m_at, a = Tree().AddBinary(NodeKind::Subtract, a, Term());
      else return a;
    }
  }

  bool StartsFactor() const {
    const Token& t = Peek();
    return t.Kind == TokenKind::Number || t.Kind == TokenKind::Constant || t.Kind == TokenKind::Load ||
           t.Kind == TokenKind::Function || (t.Kind == TokenKind::Symbol && (t.Text == u"(" || t.Text == u"["));
  }

  int Term() {
    int a = Unary();
    for (;;) {
      if (Is(u"*")) ++m_at, a = Tree().AddBinary(NodeKind::Multiply, a, Unary());
      else if (Is(u"/")) ++m_at, a = Tree().AddBinary(NodeKind::Divide, a, Unary());
      else if (Is(u"\\")) ++m_at, a = Tree().AddBinary(NodeKind::IntegerDivide, a, Unary());
      else if (IsKeyword(u"mod")) ++m_at, a = Tree().AddBinary(NodeKind::Modulo, a, Unary());
      else if (StartsFactor()) a = Tree().AddBinary(NodeKind::Multiply, a, Power());  // "2x", "x sin(x)"
      else return a;
    }
  }

  int Unary() {
    Deeper depth(*this);
    if (Is(u"-")) return ++m_at, Tree().AddUnary(NodeKind::Negate, Unary());
    if (Is(u"+")) return ++m_at, Unary();
    return Power();
  }

  // "^" to the right, and a number directly behind an atom as its exponent: "x2" is x^2.
  int Power() {
    bool atom = false;
    const int base = Primary(atom);
    if (Is(u"^")) {
      ++m_at;
      return Tree().AddBinary(NodeKind::Power, base, Unary());
    }
    if (atom && Peek().Kind == TokenKind::Number && Peek().Adjacent) {
      const int exponent = Tree().AddNumber(Peek().Number);
      ++m_at;
      return Tree().AddBinary(NodeKind::Power, base, exponent);
    }
    return base;
  }

  int Primary(bool& atom) {
    Deeper depth(*this);
    const Token t = Peek();
    atom = false;
    switch (t.Kind) {
      case TokenKind::Number: ++m_at; return Tree().AddNumber(t.Number);
      case TokenKind::Constant: ++m_at; atom = t.Text == u"pi"; return Tree().AddNumber(t.Number);
      case TokenKind::Load: {
        ++m_at;
        atom = t.Var != Variable::Zero;
        Node n;
        n.Kind = NodeKind::Load;
        n.Var = t.Var;
        return Tree().Add(n);
      }
      case TokenKind::Function: ++m_at; return Call(t.Fn, t.Text, atom);
      case TokenKind::Symbol:
        if (t.Text == u"(") {
          ++m_at;
          const int inner = Expression();
          Expect(u")");
          atom = true;
          return inner;
        }
        if (t.Text == u"[") {
          ++m_at;
          const int inner = Expression();
          Expect(u"]");
          return Tree().AddCall(Function::Fix, inner);
        }
        break;
      default: break;
    }
    Fail(t.Kind == TokenKind::End ? QStringLiteral("the expression ends too early")
                                  : QStringLiteral("unexpected \"%1\"").arg(Describe(t)));
  }

  // "sin(x)", "xroot(x,3)", "rnd", and "sin x" with the next factor as the argument.
  int Call(Function fn, const QString& name, bool& atom) {
    const int arity = ArityOf(fn);
    std::vector<int> arguments;
    // "2sin*(x)": the star that the expression normaliser leaves behind a function's name, in the
    // rows that the insert dialog writes. A name cannot be multiplied, so it marks the call.
    if (Is(u"*") && Peek(1).Kind == TokenKind::Symbol && Peek(1).Text == u"(") ++m_at;
    if (Is(u"(")) {
      ++m_at;
      atom = true;  // a closing bracket is an atom: "sin(x)2" is sin(x)^2
      if (!Is(u")")) {
        arguments.push_back(Expression());
        while (Is(u",")) ++m_at, arguments.push_back(Expression());
      }
      Expect(u")");
    } else if (arity > 0) {
      arguments.push_back(Power());
    }
    // rnd takes an argument it does not use, as the script language's Rnd.
    if (fn == Function::Random && arguments.size() <= 1) return Tree().AddCall(fn, -1);
    if (static_cast<int>(arguments.size()) != arity) {
      Fail(QStringLiteral("%1 takes %2 argument(s)").arg(name).arg(arity));
    }
    return Tree().AddCall(fn, arguments[0], arity > 1 ? arguments[1] : -1);
  }

  struct Deeper {
    Parser& P;
    explicit Deeper(Parser& p) : P(p) {
      if (++P.m_depth > kMaxDepth) P.Fail(QStringLiteral("the expression is nested too deeply"));
    }
    ~Deeper() { --P.m_depth; }
  };

  std::vector<Token> m_tokens;
  ParsedLine& m_line;
  size_t m_at = 0;
  int m_depth = 0;

public:
  // A whole text that is one condition; returns its root.
  static int ParseCondition(std::vector<Token> tokens, ParsedLine& line) {
    Parser parser(std::move(tokens), line);
    try {
      const int root = parser.Or();
      if (parser.Peek().Kind != TokenKind::End) parser.Fail(QStringLiteral("unexpected \"%1\"").arg(Describe(parser.Peek())));
      return root;
    } catch (const Failure&) {
      return -1;
    }
  }

  static bool Parse(std::vector<Token> tokens, ParsedLine& line, bool equation) {
    Parser parser(std::move(tokens), line);
    try {
      parser.Line(equation);
      return true;
    } catch (const Failure&) {
      return false;
    }
  }
};

ParsedLine Parse(const QString& text, bool equation, bool fold, Language language) {
  ParsedLine line;
  Lexer lexer(text, NamesOf(language));
  auto tokens = lexer.Run(line.Error);
  if (!tokens) return line;
  if (tokens->size() == 1) {
    line.Error = QStringLiteral("the line is empty");
    return line;
  }
  if (!Parser::Parse(std::move(*tokens), line, equation)) return line;
  if (fold) line.Tree.FoldConstants();
  return line;
}

}  // namespace

ParsedLine ParseLine(const QString& text, bool fold, Language language) { return Parse(text, true, fold, language); }

ParsedInequality ParseInequality(const QString& text) {
  ParsedLine line;
  ParsedInequality result;
  auto tokens = Lexer(text, Names()).Run(line.Error);
  const int root = tokens ? Parser::ParseCondition(std::move(*tokens), line) : -1;
  if (root < 0) {
    result.Error = line.Error.isEmpty() ? QStringLiteral("the line is empty") : line.Error;
    return result;
  }
  line.Tree.FoldConstants();
  const Node& n = line.Tree.At(root);
  const bool comparison = n.Kind == NodeKind::Less || n.Kind == NodeKind::LessEqual ||
                          n.Kind == NodeKind::Greater || n.Kind == NodeKind::GreaterEqual;
  const auto isY = [&](int index) {
    const Node& side = line.Tree.At(index);
    return side.Kind == NodeKind::Load && side.Var == Variable::Y;
  };
  if (!comparison || line.Comparisons.size() != 1) {
    result.Error = QStringLiteral("not a single inequality");
    return result;
  }
  const bool greater = n.Kind == NodeKind::Greater || n.Kind == NodeKind::GreaterEqual;
  if (isY(n.A) && !line.Tree.Uses(n.B, Variable::Y)) {
    result.Boundary = n.B;
    result.Above = greater;
  } else if (isY(n.B) && !line.Tree.Uses(n.A, Variable::Y)) {
    result.Boundary = n.A;
    result.Above = !greater;
  } else {
    result.Error = QStringLiteral("the inequality needs y alone on one side");
    return result;
  }
  result.Inclusive = n.Kind == NodeKind::LessEqual || n.Kind == NodeKind::GreaterEqual;
  result.Tree = std::move(line.Tree);
  return result;
}

ParsedLine ParseExpression(const QString& text, Language language) { return Parse(text, false, true, language); }

}  // namespace mathlang
