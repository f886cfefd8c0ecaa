#pragma once

#include <QString>

#include <stdexcept>

namespace core {

// A run-time error as the script language reports it: a number and a description. The text
// helpers, the conversions and (later) the script engine raise it; procedures that run with
// "ignore the error and go on" catch it step by step through TryStep.
class RuntimeError : public std::runtime_error {
public:
  static constexpr int InvalidProcedureCall = 5;
  static constexpr int Overflow = 6;
  static constexpr int SubscriptOutOfRange = 9;
  static constexpr int DivisionByZero = 11;
  static constexpr int TypeMismatch = 13;
  static constexpr int OutOfStackSpace = 28;
  static constexpr int InvalidPropertyValue = 380;
  static constexpr int ObjectRequired = 424;
  static constexpr int UnsupportedMember = 438;
  static constexpr int WrongArgumentCount = 450;
  static constexpr int IllegalAssignment = 501;
  static constexpr int SyntaxError = 1002;
  static constexpr int ExpectedCloseParen = 1006;
  static constexpr int ExpectedIdentifier = 1010;
  static constexpr int ExpectedEquals = 1011;
  static constexpr int ExpectedEndOfStatement = 1025;
  static constexpr int InvalidCharacter = 1032;
  static constexpr int UnterminatedString = 1033;

  RuntimeError(int number, const QString& description);

  int Number() const { return m_number; }
  QString Description() const { return m_description; }

  // The language's own words for the numbers above.
  static RuntimeError Of(int number);

private:
  int m_number;
  QString m_description;
};

// Runs one step of a procedure whose errors are ignored: a RuntimeError ends the step, and the
// caller goes on with the next one. Whatever the step assigned before it failed stays assigned.
template <typename Step>
void TryStep(Step&& step) {
  try {
    step();
  } catch (const RuntimeError&) {
  }
}

}  // namespace core
