#include "Windows1252.h"

#include <array>

namespace core {

namespace {

constexpr std::array<char16_t, 32> kHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98
};

}  // namespace

char16_t FromWindows1252(unsigned char byte) {
  if (byte >= 0x80 && byte < 0xA0) return kHigh[byte - 0x80u];
  return byte;
}

std::optional<unsigned char> ToWindows1252(char16_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<unsigned char>(c);
  for (unsigned i = 0; i < kHigh.size(); ++i) {
    if (kHigh[i] == c) return static_cast<unsigned char>(0x80 + i);
  }
  return std::nullopt;
}

QString DecodeWindows1252(QByteArrayView bytes) {
  QString text;
  text.reserve(bytes.size());
  for (const char byte : bytes) text.append(QChar(FromWindows1252(static_cast<unsigned char>(byte))));
  return text;
}

std::optional<QByteArray> EncodeWindows1252(QStringView text) {
  QByteArray bytes;
  bytes.reserve(text.size());
  for (const QChar c : text) {
    const auto byte = ToWindows1252(c.unicode());
    if (!byte) return std::nullopt;
    bytes.append(static_cast<char>(*byte));
  }
  return bytes;
}

}  // namespace core
