#include "ProjectFile.h"

#include "core/Windows1252.h"

#include <QStringDecoder>

namespace project {

QByteArray ProjectFile::Encode(const QString& text) {
  if (auto bytes = core::EncodeWindows1252(text)) return *bytes;
  return text.toUtf8();
}

QString ProjectFile::Decode(const QByteArray& bytes) {
  bool ascii = true;
  for (const char byte : bytes) {
    if (static_cast<unsigned char>(byte) >= 0x80) {
      ascii = false;
      break;
    }
  }
  if (!ascii) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8(bytes);
    if (!utf8.hasError()) return text;
  }
  return core::DecodeWindows1252(bytes);
}

QStringList ProjectFile::Lines(const QString& text) {
  QStringList lines;
  qsizetype start = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] != u'\r' && text[i] != u'\n') continue;
    lines << text.mid(start, i - start);
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    start = i + 1;
  }
  if (start < text.size()) lines << text.mid(start);
  return lines;
}

}  // namespace project
