#include "Value.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"

#include <limits>

namespace script {

Value Value::Boolean(bool value) {
  Value v;
  v.m_type = ValueType::Boolean;
  v.m_number.boolean = value;
  return v;
}

Value Value::Integer(std::int16_t value) {
  Value v;
  v.m_type = ValueType::Integer;
  v.m_number.integer = value;
  return v;
}

Value Value::Long(std::int32_t value) {
  Value v;
  v.m_type = ValueType::Long;
  v.m_number.whole = value;
  return v;
}

Value Value::Double(double value) {
  Value v;
  v.m_type = ValueType::Double;
  v.m_number.real = value;
  return v;
}

Value Value::String(const QString& value) {
  Value v;
  v.m_type = ValueType::String;
  v.m_string = value;
  return v;
}

Value Value::Integral(std::int64_t value) {
  if (value >= std::numeric_limits<std::int16_t>::min() && value <= std::numeric_limits<std::int16_t>::max()) {
    return Integer(static_cast<std::int16_t>(value));
  }
  if (value >= std::numeric_limits<std::int32_t>::min() && value <= std::numeric_limits<std::int32_t>::max()) {
    return Long(static_cast<std::int32_t>(value));
  }
  return Double(static_cast<double>(value));
}

Value& Value::operator=(const Value& other) {
  m_type = other.m_type;
  m_number = other.m_number;
  if (other.m_type == ValueType::String || !m_string.isNull()) m_string = other.m_string;
  return *this;
}

double Value::NumberValue() const {
  return m_type == ValueType::Double ? m_number.real : static_cast<double>(IntegralValue());
}

void Value::AssignDouble(double value) {
  if (m_type == ValueType::String) m_string = QString();
  m_type = ValueType::Double;
  m_number.real = value;
}

bool Value::IsIntegral() const {
  return m_type == ValueType::Empty || m_type == ValueType::Boolean || m_type == ValueType::Integer ||
         m_type == ValueType::Long;
}

std::int64_t Value::IntegralValue() const {
  switch (m_type) {
    case ValueType::Boolean: return m_number.boolean ? -1 : 0;
    case ValueType::Integer: return m_number.integer;
    case ValueType::Long: return m_number.whole;
    default: return 0;
  }
}

double Value::ToDouble() const {
  switch (m_type) {
    case ValueType::Double: return m_number.real;
    case ValueType::String: return core::StrictToDouble(m_string);
    default: return static_cast<double>(IntegralValue());
  }
}

QString Value::ToText() const {
  switch (m_type) {
    case ValueType::Empty: return {};
    case ValueType::Boolean: return core::BooleanText(m_number.boolean);
    case ValueType::String: return m_string;
    case ValueType::Double: return core::FormatNumber(m_number.real);
    default: return QString::number(IntegralValue());
  }
}

bool Value::operator==(const Value& other) const {
  if (m_type != other.m_type) return false;
  switch (m_type) {
    case ValueType::Empty: return true;
    case ValueType::String: return m_string == other.m_string;
    case ValueType::Double: return m_number.real == other.m_number.real;
    default: return IntegralValue() == other.IntegralValue();
  }
}

}  // namespace script
