#include "RowParser.h"

#include "RowLexer.h"
#include "RowNames.h"

#include <QRegularExpression>

#include <array>
#include <utility>

namespace mathx {

namespace {

using Kind = MathNode::Kind;
using TokenKind = RowToken::Kind;

// Deeper nesting than this is shown as plain text; it keeps the recursion of the parser and of
// the layout short.
constexpr int kMaxDepth = 120;

struct ParseFailure {};

// Letters side by side are a product of variables ("xy"), but a longer run with no name in it is
// a word the user typed, and a row of words is no formula.
bool IsWordOfLetters(const QString& run) {
  if (run.size() <= 3) return false;
  // The names that begin at each letter, as the names are split below: cheaper than searching
  // the whole run once for every name.
  for (qsizetype i = 0; i < run.size(); ++i)
    for (const QStringList* list : {&FunctionNames(), &GreekNames()})
      for (const QString& name : *list)
        if (name[0] == run[i] && QStringView(run).mid(i).startsWith(name)) return false;
  return true;
}

// Splits runs of letters into names: "xsin" is x and sin, "2pi" already split by the lexer.
// The longest function or Greek name at each place wins; other letters stand alone.
std::vector<RowToken> SplitNames(const std::vector<RowToken>& tokens) {
  std::vector<RowToken> result;
  for (const RowToken& token : tokens) {
    if (token.kind != TokenKind::Name || token.text == u"and" || token.text == u"or" ||
        token.text == u"mod") {
      result.push_back(token);
      continue;
    }
    if (IsWordOfLetters(token.text)) throw ParseFailure{};
    int i = 0;
    while (i < token.text.size()) {
      int best = 1;
      for (const QStringList* list : {&FunctionNames(), &GreekNames()})
        for (const QString& name : *list)
          if (name[0] == token.text[i] && name.size() > best && QStringView(token.text).mid(i).startsWith(name))
            best = int(name.size());
      result.push_back({TokenKind::Name, token.text.mid(i, best), token.begin + i, token.begin + i + best});
      i += best;
    }
  }
  return result;
}

class Parser {
public:
  explicit Parser(std::vector<RowToken> tokens) : m_tokens(std::move(tokens)) {}

  MathNode Row() {
    MathNode node = Sequence();
    if (Peek().kind != TokenKind::End) throw ParseFailure{};
    return node;
  }

  MathNode PointTable() {
    MathNode table;
    table.kind = Kind::PointTable;
    table.begin = Peek().begin;
    table.marks.push_back(Range(Take()));
    while (true) {
      table.children.push_back(TableRow());
      if (Peek().kind == TokenKind::Semicolon) {
        table.marks.push_back(Range(Take()));
        continue;
      }
      break;
    }
    if (Peek().kind == TokenKind::Close && Peek().text == u"]") table.marks.push_back(Range(Take()));
    else if (Peek().kind == TokenKind::End) table.marks.push_back({});
    else throw ParseFailure{};
    if (Peek().kind != TokenKind::End) throw ParseFailure{};
    table.end = Peek().begin;
    if (table.marks.back().Valid()) table.end = table.marks.back().end;
    return table;
  }

private:
  const RowToken& Peek(int ahead = 0) const {
    const size_t at = std::min(m_at + size_t(ahead), m_tokens.size() - 1);
    return m_tokens[at];
  }
  const RowToken& Take() {
    const RowToken& token = m_tokens[m_at];
    if (m_at + 1 < m_tokens.size()) ++m_at;
    return token;
  }
  static SourceRange Range(const RowToken& token) { return {token.begin, token.end}; }
  bool IsOperator(const char16_t* text) const {
    return Peek().kind == TokenKind::Operator && Peek().text == QStringView(text);
  }
  bool IsWord(const char16_t* text) const {
    return Peek().kind == TokenKind::Name && Peek().text == QStringView(text);
  }
  // Where an operand may be missing: the end of the text or of a bracket, list or cell.
  bool AtGap() const {
    const TokenKind kind = Peek().kind;
    return kind == TokenKind::End || kind == TokenKind::Close || kind == TokenKind::Comma ||
           kind == TokenKind::Semicolon;
  }
  bool StartsOperand() const {
    const RowToken& token = Peek();
    if (token.kind == TokenKind::Name) return token.text != u"and" && token.text != u"or" && token.text != u"mod";
    return token.kind == TokenKind::Number || token.kind == TokenKind::Symbol ||
           token.kind == TokenKind::Open;
  }

  class DepthGuard {
  public:
    explicit DepthGuard(int& depth) : m_depth(depth) {
      if (++m_depth > kMaxDepth) throw ParseFailure{};
    }
    ~DepthGuard() { --m_depth; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

  private:
    int& m_depth;
  };

  MathNode TableRow() {
    MathNode row;
    row.kind = Kind::TableRow;
    row.begin = Peek().begin;
    row.children.push_back(Cell());
    if (Peek().kind == TokenKind::End) {
      // "[x,y;1": the second number is still to be typed.
      row.marks.push_back({});
      row.children.push_back(Placeholder());
      row.end = row.children.back().end;
      return row;
    }
    if (Peek().kind != TokenKind::Comma) throw ParseFailure{};
    row.marks.push_back(Range(Take()));
    row.children.push_back(Cell());
    row.end = row.children.back().end;
    return row;
  }

  MathNode Cell() {
    if (Peek().kind == TokenKind::Comma || Peek().kind == TokenKind::Semicolon || Peek().kind == TokenKind::End ||
        (Peek().kind == TokenKind::Close && Peek().text == u"]"))
      return Placeholder();
    return Logic();
  }

  MathNode Placeholder() const {
    MathNode node;
    node.kind = Kind::Placeholder;
    node.begin = node.end = Peek().begin;
    return node;
  }

  MathNode Chain(MathNode first, Kind kind) {
    MathNode chain;
    chain.kind = kind;
    chain.begin = first.begin;
    chain.children.push_back(std::move(first));
    return chain;
  }

  // Conditions and lists: "a; b", "a, b".
  MathNode Sequence() {
    DepthGuard guard(m_depth);
    MathNode first = Logic();
    if (Peek().kind != TokenKind::Semicolon && Peek().kind != TokenKind::Comma) return first;
    MathNode chain = Chain(std::move(first), Kind::Chain);
    while (Peek().kind == TokenKind::Semicolon || Peek().kind == TokenKind::Comma) {
      chain.ops.push_back(Peek().text);
      chain.marks.push_back(Range(Take()));
      chain.children.push_back(AtGap() ? Placeholder() : Logic());
    }
    chain.end = chain.children.back().end;
    return chain;
  }

  MathNode Logic() {
    MathNode first = Relation();
    if (!IsWord(u"and") && !IsWord(u"or")) return first;
    MathNode chain = Chain(std::move(first), Kind::Chain);
    while (IsWord(u"and") || IsWord(u"or")) {
      chain.ops.push_back(Peek().text);
      chain.marks.push_back(Range(Take()));
      chain.children.push_back(Operand([this] { return Relation(); }));
    }
    chain.end = chain.children.back().end;
    return chain;
  }

  bool AtRelation() const {
    if (Peek().kind != TokenKind::Operator) return false;
    static const std::array<const char16_t*, 8> relations = {u"=", u"<", u">", u"<=", u">=", u"=<", u"=>", u"<>"};
    for (const char16_t* relation : relations)
      if (Peek().text == QStringView(relation)) return true;
    return false;
  }

  MathNode Relation() {
    MathNode first = Sum();
    if (!AtRelation()) return first;
    MathNode chain = Chain(std::move(first), Kind::Chain);
    while (AtRelation()) {
      chain.ops.push_back(Peek().text);
      chain.marks.push_back(Range(Take()));
      chain.children.push_back(Operand([this] { return Sum(); }));
    }
    chain.end = chain.children.back().end;
    return chain;
  }

  template <typename Next>
  MathNode Operand(Next next) {
    if (AtGap()) return Placeholder();
    return next();
  }

  // Sums and products are one node with an operator per gap, so that long texts stay shallow;
  // a quotient is a node of its own, as it may become a built-up fraction.
  static void Append(MathNode& chain, const QString& op, SourceRange mark, MathNode operand) {
    chain.ops.push_back(op);
    chain.marks.push_back(mark);
    chain.end = operand.end;
    chain.children.push_back(std::move(operand));
  }

  static MathNode Start(MathNode first) {
    MathNode node;
    node.kind = Kind::Binary;
    node.begin = first.begin;
    node.end = first.end;
    node.children.push_back(std::move(first));
    return node;
  }

  static MathNode Single(MathNode node) {
    if (node.kind == Kind::Binary && node.children.size() == 1) return std::move(node.children.front());
    return node;
  }

  MathNode Sum() {
    MathNode node = Start(Term());
    while (IsOperator(u"+") || IsOperator(u"-")) {
      const RowToken op = Take();
      Append(node, op.text, Range(op), Operand([this] { return Term(); }));
    }
    return Single(std::move(node));
  }

  MathNode Term() {
    MathNode node = Start(Unary());
    int quotients = 0;
    while (true) {
      if (IsOperator(u"/")) {
        if (++quotients > kMaxDepth) throw ParseFailure{};
        const RowToken op = Take();
        MathNode quotient = Start(Single(std::move(node)));
        Append(quotient, op.text, Range(op), Operand([this] { return Unary(); }));
        node = Start(std::move(quotient));
      } else if (IsOperator(u"*") || IsOperator(u"\\") || IsWord(u"mod")) {
        const RowToken op = Take();
        Append(node, op.text, Range(op), Operand([this] { return Unary(); }));
      } else if (StartsOperand()) {
        Append(node, QString(), {}, Power());
      } else {
        return Single(std::move(node));
      }
    }
  }

  MathNode Unary() {
    DepthGuard guard(m_depth);
    if (IsOperator(u"-") || IsOperator(u"+")) {
      MathNode node;
      node.kind = Kind::Unary;
      const RowToken& op = Take();
      node.text = op.text;
      node.begin = op.begin;
      node.marks.push_back(Range(op));
      node.children.push_back(Operand([this] { return Unary(); }));
      node.end = node.children.back().end;
      return node;
    }
    return Power();
  }

  MathNode Power() {
    MathNode base = Postfix();
    if (!IsOperator(u"^")) return base;
    MathNode node;
    node.kind = Kind::Power;
    node.begin = base.begin;
    node.marks.push_back(Range(Take()));
    node.children.push_back(std::move(base));
    MathNode exponent = Operand([this] { return Unary(); });
    if (exponent.kind == Kind::Group && exponent.text.startsWith(u'(')) exponent.hideBrackets = true;
    node.children.push_back(std::move(exponent));
    node.end = node.children.back().end;
    return node;
  }

  MathNode Postfix() {
    MathNode node = Primary();
    int factorials = 0;
    while (IsOperator(u"!")) {
      if (++factorials > kMaxDepth) throw ParseFailure{};
      MathNode fact;
      fact.kind = Kind::Unary;
      fact.text = "!";
      fact.begin = node.begin;
      fact.marks.push_back(Range(Peek()));
      fact.end = Take().end;
      fact.children.push_back(std::move(node));
      node = std::move(fact);
    }
    return node;
  }

  MathNode Leaf(Kind kind, const QString& text, const RowToken& token) {
    MathNode node;
    node.kind = kind;
    node.text = text;
    node.begin = token.begin;
    node.end = token.end;
    return node;
  }

  MathNode Primary() {
    const RowToken token = Peek();
    switch (token.kind) {
      case TokenKind::Number: Take(); return Leaf(Kind::Number, token.text, token);
      case TokenKind::Symbol: {
        Take();
        const QString letter = GreekLetter(token.text);
        if (letter.isEmpty()) throw ParseFailure{};
        return Leaf(Kind::Greek, letter, token);
      }
      case TokenKind::Name: return NamePrimary();
      case TokenKind::Open: return Group();
      default: throw ParseFailure{};
    }
  }

  MathNode NamePrimary() {
    const RowToken token = Take();
    if (FunctionNames().contains(token.text)) {
      if (Peek().kind == TokenKind::Open && Peek().text == u"(") return Call(token);
      if (StartsOperand()) {
        // "sin x": the function applied without brackets.
        MathNode call = Leaf(Kind::Call, token.text, token);
        call.marks = {Range(token), {}, {}};
        call.children.push_back(Power());
        call.end = call.children.back().end;
        return call;
      }
      return Leaf(Kind::Word, token.text, token);
    }
    const QString letter = GreekLetter(token.text);
    if (!letter.isEmpty()) return Leaf(Kind::Greek, letter, token);
    if (token.text.size() == 1) return Leaf(Kind::Variable, token.text, token);
    throw ParseFailure{};
  }

  // The closing bracket of a group or call: the one that matches, or none at the end of the text.
  SourceRange Closing(QChar open) {
    static const QString opens = "([{";
    static const QString closes = ")]}";
    const QChar close = closes[opens.indexOf(open)];
    if (Peek().kind == TokenKind::Close) {
      if (Peek().text[0] != close) throw ParseFailure{};
      return Range(Take());
    }
    if (Peek().kind == TokenKind::End) return {};
    throw ParseFailure{};
  }

  MathNode Group() {
    DepthGuard guard(m_depth);
    MathNode node;
    node.kind = Kind::Group;
    const RowToken open = Take();
    node.begin = open.begin;
    node.marks.push_back(Range(open));
    node.children.push_back(AtGap() ? Placeholder() : Sequence());
    node.marks.push_back(Closing(open.text[0]));
    static const QString opens = "([{";
    static const QString closes = ")]}";
    node.text = open.text + closes[opens.indexOf(open.text[0])];
    node.end = node.marks.back().Valid() ? node.marks.back().end : node.children.back().end;
    return node;
  }

  MathNode Call(const RowToken& name) {
    DepthGuard guard(m_depth);
    MathNode node;
    node.kind = Kind::Call;
    node.text = name.text;
    node.begin = name.begin;
    node.marks.push_back(Range(name));
    node.marks.push_back(Range(Take()));
    node.children.push_back(AtGap() ? Placeholder() : Logic());
    while (Peek().kind == TokenKind::Comma) {
      node.marks.push_back(Range(Take()));
      node.children.push_back(AtGap() ? Placeholder() : Logic());
    }
    node.marks.push_back(Closing(u'('));
    node.end = node.marks.back().Valid() ? node.marks.back().end : node.children.back().end;
    return Special(std::move(node));
  }

  // Calls that mathematics writes in a form of their own.
  static MathNode Special(MathNode call) {
    const QString& name = call.text;
    const size_t count = call.children.size();
    if ((name == u"sqrt" || name == u"sqr") && count == 1) call.kind = Kind::Radical;
    else if (name == u"xroot" && count == 2) call.kind = Kind::Radical;
    else if (name == u"abs" && count == 1) call.kind = Kind::Abs;
    else if (name == u"declare" && count == 2) call.kind = Kind::Declare;
    else if (name == u"domain" && count == 4 && IsBounds(call.children[3])) {
      call.kind = Kind::Domain;
      call.text = call.children[3].text;
      call.marks.insert(call.marks.end() - 1, SourceRange{call.children[3].begin, call.children[3].end});
      call.children.pop_back();
    }
    if (call.kind == Kind::Declare) {
      MathNode& condition = call.children[1];
      if (condition.kind == Kind::Group && condition.text.startsWith(u'(')) condition.hideBrackets = true;
    }
    return call;
  }

  static bool IsBounds(const MathNode& node) {
    return node.kind == Kind::Number && node.text.size() == 1 && node.text[0] >= u'0' && node.text[0] <= u'3';
  }

  std::vector<RowToken> m_tokens;
  size_t m_at = 0;
  int m_depth = 0;
};

MathNode Plain(const QString& text) {
  MathNode node;
  node.kind = Kind::PlainText;
  node.text = text;
  node.begin = 0;
  node.end = int(text.size());
  return node;
}

std::optional<MathNode> CommandRow(const QString& text) {
  static const QRegularExpression form(QStringLiteral("^command==>\\[(.*)\\]$"));
  const QRegularExpressionMatch match = form.match(text);
  if (!match.hasMatch()) return std::nullopt;
  MathNode node;
  node.kind = Kind::Command;
  node.text = CommandPhrase(match.captured(1).trimmed());
  // A keyword that is no command does nothing; the row shows it as it stands.
  if (node.text == match.captured(1).trimmed()) return std::nullopt;
  node.begin = 0;
  node.end = int(text.size());
  return node;
}

// A point list: "[" first, and a ";" between its brackets.
bool LooksLikePointList(const std::vector<RowToken>& tokens) {
  if (tokens.empty() || tokens.front().kind != TokenKind::Open || tokens.front().text != u"[") return false;
  int depth = 0;
  for (const RowToken& token : tokens) {
    if (token.kind == TokenKind::Open) ++depth;
    if (token.kind == TokenKind::Close && --depth == 0) return false;
    if (token.kind == TokenKind::Semicolon && depth == 1) return true;
  }
  return false;
}

}  // namespace

MathNode ParseRow(const QString& text) {
  if (text.startsWith(u"command")) return CommandRow(text).value_or(Plain(text));
  try {
    const std::vector<RowToken> tokens = SplitNames(LexRow(text));
    if (tokens.size() == 1) return Plain(text);
    for (const RowToken& token : tokens)
      if (token.kind == TokenKind::Unknown) return Plain(text);
    Parser parser(tokens);
    return LooksLikePointList(tokens) ? parser.PointTable() : parser.Row();
  } catch (const ParseFailure&) {
    return Plain(text);
  }
}

}  // namespace mathx
