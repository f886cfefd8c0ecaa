#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>

// The fuzzers' bytes as the text a user could have typed: UTF-8, invalid sequences and all.
inline QString FuzzText(const std::uint8_t* data, std::size_t size) {
  return QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}
