#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// The single-byte code page in which project files and rich text files of the older program are
// written. The five bytes that it leaves free stand for the control characters of the same
// number, as on Windows.
namespace core {

char16_t FromWindows1252(unsigned char byte);
// The byte of a character, if the code page has one.
std::optional<unsigned char> ToWindows1252(char16_t c);

QString DecodeWindows1252(QByteArrayView bytes);
// Nothing when a character of the text has no byte in the code page.
std::optional<QByteArray> EncodeWindows1252(QStringView text);

}  // namespace core
