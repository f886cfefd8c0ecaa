#include "Compiler.h"

#include "core/RuntimeError.h"

#include <algorithm>

namespace script {

namespace {

using core::RuntimeError;

[[noreturn]] void Raise(int number) { throw RuntimeError::Of(number); }

// Binding strength: higher binds tighter. Unary minus binds tighter than "^"; Not is weaker
// than the comparisons.
int PrecedenceOf(BinaryOperator op) {
  switch (op) {
    case BinaryOperator::Imp: return 1;
    case BinaryOperator::Eqv: return 2;
    case BinaryOperator::Xor: return 3;
    case BinaryOperator::Or: return 4;
    case BinaryOperator::And: return 5;
    case BinaryOperator::Concatenate: return 8;
    case BinaryOperator::Add:
    case BinaryOperator::Subtract: return 9;
    case BinaryOperator::Modulo: return 10;
    case BinaryOperator::IntegerDivide: return 11;
    case BinaryOperator::Multiply:
    case BinaryOperator::Divide: return 12;
    case BinaryOperator::Power: return 13;
    default: return 7;  // comparisons, all of one rank
  }
}

constexpr int kNotPrecedence = 6;
constexpr int kSignPrecedence = 14;

// An entry of the operator stack: an operator waiting for its right operand, or an open bracket
// (a call's, when it carries a callee).
struct Pending {
  enum class Kind { Binary, Unary, Paren } What = Kind::Paren;
  std::uint8_t Operator = 0;
  int Precedence = 0;
  std::optional<Callee> Call;
  int Commas = 0;
};

// Shunting-yard over the tokens: operators wait on a stack until an operator of lower binding
// arrives, so the output is in postfix order. Nothing recurses, so any depth of brackets fits.
class ExpressionCompiler {
public:
  ExpressionCompiler(const std::vector<Token>& tokens, size_t at, NameResolver& names)
      : m_tokens(tokens), m_at(at), m_names(names) {}

  // Compiles up to the end or a statement separator; returns the position of that token.
  size_t Run(Program& program) {
    m_program = &program;
    bool expectOperand = true;
    bool justOpenedCall = false;
    for (;; ++m_at) {
      const Token& t = m_tokens[m_at];
      if (t.Kind == TokenKind::End || t.Kind == TokenKind::Separator) break;
      const bool opened = expectOperand ? Operand(t, expectOperand, justOpenedCall) : Operator(t, expectOperand);
      justOpenedCall = opened;
    }
    if (expectOperand) Raise(RuntimeError::SyntaxError);
    while (!m_stack.empty()) {
      if (m_stack.back().What == Pending::Kind::Paren) Raise(RuntimeError::ExpectedCloseParen);
      PopToOutput();
    }
    return m_at;
  }

private:
  // A token where an operand must stand. Returns whether it opened a call's bracket.
  bool Operand(const Token& t, bool& expectOperand, bool justOpenedCall) {
    switch (t.Kind) {
      case TokenKind::Literal:
        EmitConstant(t.Literal);
        expectOperand = false;
        return false;
      case TokenKind::Identifier: return Name(t.Name, expectOperand);
      case TokenKind::Minus: PushUnary(UnaryOperator::Negate, kSignPrecedence); return false;
      case TokenKind::Plus: PushUnary(UnaryOperator::Plus, kSignPrecedence); return false;
      case TokenKind::Not: PushUnary(UnaryOperator::Not, kNotPrecedence); return false;
      case TokenKind::OpenParen: m_stack.push_back({}); return false;
      case TokenKind::CloseParen:
        // "f()": a call without arguments.
        if (justOpenedCall) {
          const Pending paren = m_stack.back();
          m_stack.pop_back();
          EmitCall(*paren.Call, 0);
          expectOperand = false;
          return false;
        }
        Raise(RuntimeError::SyntaxError);
      default: Raise(RuntimeError::SyntaxError);
    }
  }

  // A token where an operator must stand.
  bool Operator(const Token& t, bool& expectOperand) {
    switch (t.Kind) {
      case TokenKind::Binary: PushBinary(t.Operator); break;
      case TokenKind::Minus: PushBinary(BinaryOperator::Subtract); break;
      case TokenKind::Plus: PushBinary(BinaryOperator::Add); break;
      case TokenKind::Equals: PushBinary(BinaryOperator::Equal); break;
      case TokenKind::CloseParen: {
        const Pending paren = PopToParen(RuntimeError::ExpectedEndOfStatement);
        if (paren.Call) EmitCall(*paren.Call, paren.Commas + 1);
        return false;
      }
      case TokenKind::Comma: {
        PopToParen(RuntimeError::ExpectedEndOfStatement, false);
        if (!m_stack.back().Call) Raise(RuntimeError::ExpectedCloseParen);
        ++m_stack.back().Commas;
        break;
      }
      default: Raise(RuntimeError::ExpectedEndOfStatement);
    }
    expectOperand = true;
    return false;
  }

  // A name: a call when "(" follows, an object's member after ".", a function called without
  // brackets, or a variable.
  bool Name(const QString& name, bool& expectOperand) {
    std::optional<Callee> callee;
    if (Next().Kind == TokenKind::Dot) {
      callee = MemberOf(name);
    } else {
      callee = m_names.FindFunction(name);
    }
    if (Next().Kind == TokenKind::OpenParen) {
      ++m_at;
      Pending paren;
      paren.Call = callee.value_or(Callee{});
      m_stack.push_back(paren);
      return true;
    }
    expectOperand = false;
    if (callee) {
      EmitCall(*callee, 0);
    } else {
      Emit({OpCode::Load, 0, 0, m_names.VariableSlot(name), 0}, 1);
    }
    return false;
  }

  // "Object.member": consumes the dot and the member's name.
  Callee MemberOf(const QString& objectName) {
    m_at += 2;
    const Token& member = m_tokens[m_at];
    if (member.Kind != TokenKind::Identifier) Raise(RuntimeError::ExpectedIdentifier);
    const auto object = m_names.FindObject(objectName);
    if (!object) Raise(RuntimeError::ObjectRequired);
    const auto index = m_names.FindMember(*object, member.Name);
    if (!index) Raise(RuntimeError::UnsupportedMember);
    return {OpCode::CallMember, *object, *index};
  }

  const Token& Next() const { return m_tokens[std::min(m_at + 1, m_tokens.size() - 1)]; }

  void PushUnary(UnaryOperator op, int precedence) {
    Pending p;
    p.What = Pending::Kind::Unary;
    p.Operator = static_cast<std::uint8_t>(op);
    p.Precedence = precedence;
    m_stack.push_back(p);
  }

  void PushBinary(BinaryOperator op) {
    const int precedence = PrecedenceOf(op);
    while (!m_stack.empty() && m_stack.back().What != Pending::Kind::Paren &&
           m_stack.back().Precedence >= precedence) {
      PopToOutput();
    }
    Pending p;
    p.What = Pending::Kind::Binary;
    p.Operator = static_cast<std::uint8_t>(op);
    p.Precedence = precedence;
    m_stack.push_back(p);
  }

  // Outputs the operators down to the nearest bracket; takes the bracket off unless told not to.
  Pending PopToParen(int errorWithoutParen, bool remove = true) {
    while (!m_stack.empty() && m_stack.back().What != Pending::Kind::Paren) PopToOutput();
    if (m_stack.empty()) Raise(errorWithoutParen);
    const Pending paren = m_stack.back();
    if (remove) m_stack.pop_back();
    return paren;
  }

  void PopToOutput() {
    const Pending p = m_stack.back();
    m_stack.pop_back();
    if (p.What == Pending::Kind::Unary) {
      Emit({OpCode::Unary, p.Operator, 0, 0, 0}, 0);
    } else {
      Emit({OpCode::Binary, p.Operator, 0, 0, 0}, -1);
    }
  }

  void EmitConstant(const Value& value) {
    m_program->Constants.push_back(value);
    Emit({OpCode::Push, 0, 0, static_cast<std::int32_t>(m_program->Constants.size() - 1), 0}, 1);
  }

  void EmitCall(const Callee& callee, int arguments) {
    if (arguments > 0xFFFF) Raise(RuntimeError::WrongArgumentCount);
    Emit({callee.Code, 0, static_cast<std::uint16_t>(arguments), callee.Index, callee.Member}, 1 - arguments);
  }

  void Emit(const Instruction& instruction, int stackChange) {
    m_program->Code.push_back(instruction);
    m_depth += stackChange;
    m_program->MaxDepth = std::max(m_program->MaxDepth, m_depth);
  }

  const std::vector<Token>& m_tokens;
  size_t m_at;
  NameResolver& m_names;
  Program* m_program = nullptr;
  std::vector<Pending> m_stack;
  int m_depth = 0;
};

}  // namespace

Program CompileExpression(const QString& text, NameResolver& names) {
  const std::vector<Token> tokens = Tokenize(text);
  Program program;
  const size_t end = ExpressionCompiler(tokens, 0, names).Run(program);
  if (tokens[end].Kind != TokenKind::End) Raise(RuntimeError::ExpectedEndOfStatement);
  return program;
}

std::vector<Assignment> CompileStatements(const QString& text, NameResolver& names) {
  const std::vector<Token> tokens = Tokenize(text);
  std::vector<Assignment> statements;
  for (size_t at = 0; tokens[at].Kind != TokenKind::End;) {
    if (tokens[at].Kind == TokenKind::Separator) {
      ++at;
      continue;
    }
    if (tokens[at].Kind != TokenKind::Identifier) Raise(RuntimeError::ExpectedIdentifier);
    const QString& name = tokens[at].Name;
    if (names.FindFunction(name) || names.FindObject(name)) Raise(RuntimeError::IllegalAssignment);
    if (tokens[at + 1].Kind != TokenKind::Equals) Raise(RuntimeError::ExpectedEquals);
    Assignment assignment;
    assignment.Slot = names.VariableSlot(name);
    at = ExpressionCompiler(tokens, at + 2, names).Run(assignment.Expression);
    statements.push_back(std::move(assignment));
  }
  return statements;
}

}  // namespace script
