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
    default: return {number, QStringLiteral("Unknown runtime error")};
  }
}

}  // namespace core
