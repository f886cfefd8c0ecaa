#pragma once

#include <QString>

#include <cstdint>

namespace script {

enum class ValueType : std::uint8_t { Empty, Boolean, Integer, Long, Double, String };

// A value of the script language: Empty (a variable never assigned), Boolean (True is -1 as a
// number), Integer (16-bit), Long (32-bit), Double or String.
class Value {
public:
  Value() = default;
  static Value Boolean(bool value);
  static Value Integer(std::int16_t value);
  static Value Long(std::int32_t value);
  static Value Double(double value);
  static Value String(const QString& value);
  // The narrowest of Integer, Long and Double that holds an integral value exactly.
  static Value Integral(std::int64_t value);

  Value(const Value&) = default;
  Value(Value&&) noexcept = default;
  Value& operator=(Value&&) noexcept = default;
  // Numbers are copied without touching the string: the evaluation stack copies values all the
  // time, and almost none of them are strings.
  Value& operator=(const Value& other);

  ValueType Type() const { return m_type; }
  bool IsEmpty() const { return m_type == ValueType::Empty; }
  bool IsString() const { return m_type == ValueType::String; }
  // Empty, Boolean, Integer and Long: the types whose arithmetic stays integral.
  bool IsIntegral() const;

  // The value as a number: Empty is 0, True -1; a string must read as a number (error 13).
  double ToDouble() const;
  // Only for IsIntegral values.
  std::int64_t IntegralValue() const;
  bool BooleanValue() const { return m_number.boolean; }
  // The number of a value that is no String, as a double (no conversion can fail).
  double NumberValue() const;
  // Makes this value the Double value.
  void AssignDouble(double value);
  // The value as text: numbers as "%.15G", "True"/"False", Empty as "".
  QString ToText() const;
  const QString& StringValue() const { return m_string; }

  // Same type and same contents.
  bool operator==(const Value& other) const;

private:
  ValueType m_type = ValueType::Empty;
  union {
    bool boolean;
    std::int16_t integer;
    std::int32_t whole;
    double real;
  } m_number{.real = 0};
  QString m_string;
};

}  // namespace script
