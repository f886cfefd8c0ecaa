#include "RuntimeError.h"

namespace core {

RuntimeError::RuntimeError(int number, const QString& description)
    : std::runtime_error(description.toStdString()), m_number(number), m_description(description) {}

RuntimeError RuntimeError::Of(int number) {
  switch (number) {
    case InvalidProcedureCall: return {number, QStringLiteral("Invalid procedure call or argument")};
    case Overflow: return {number, QStringLiteral("Overflow")};
    case SubscriptOutOfRange: return {number, QStringLiteral("Subscript out of range")};
    case DivisionByZero: return {number, QStringLiteral("Division by zero")};
    case TypeMismatch: return {number, QStringLiteral("Type mismatch")};
    case OutOfStackSpace: return {number, QStringLiteral("Out of stack space")};
    case InvalidPropertyValue: return {number, QStringLiteral("Invalid property value")};
    case ObjectRequired: return {number, QStringLiteral("Object required")};
    case UnsupportedMember: return {number, QStringLiteral("Object doesn't support this property or method")};
    case WrongArgumentCount:
      return {number, QStringLiteral("Wrong number of arguments or invalid property assignment")};
    case IllegalAssignment: return {number, QStringLiteral("Illegal assignment")};
    case SyntaxError: return {number, QStringLiteral("Syntax error")};
    case ExpectedCloseParen: return {number, QStringLiteral("Expected ')'")};
    case ExpectedIdentifier: return {number, QStringLiteral("Expected identifier")};
    case ExpectedEquals: return {number, QStringLiteral("Expected '='")};
    case ExpectedEndOfStatement: return {number, QStringLiteral("Expected end of statement")};
    case InvalidCharacter: return {number, QStringLiteral("Invalid character")};
    case UnterminatedString: return {number, QStringLiteral("Unterminated string constant")};
    default: return {number, QStringLiteral("Unknown runtime error")};
  }
}

}  // namespace core
