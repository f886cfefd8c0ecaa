#include "project/RtfReader.h"
#include "project/RtfWriter.h"

#include <QGuiApplication>
#include <QTextDocument>

#include <cstddef>
#include <cstdint>

namespace {

// Text documents take their default font from the application.
void EnsureApplication() {
  static int argc = 1;
  static char name[] = "rtf_fuzzer";
  static char* argv[] = {name, nullptr};
  if (QGuiApplication::instance()) return;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  static QGuiApplication application(argc, argv);
}

}  // namespace

// Any bytes read as an RTF file, written back and read again. What the writer writes is plain
// ASCII, and reading and writing it once more gives the same text: nothing it says is lost or
// read differently.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  EnsureApplication();
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  QTextDocument first;
  project::RtfReader::Read(bytes, first);
  const QString rtf = project::RtfWriter::Write(first);
  for (const QChar c : rtf) {
    if (c.unicode() > 0x7E || (c.unicode() < 0x20 && c != u'\r' && c != u'\n')) __builtin_trap();
  }
  QTextDocument second;
  project::RtfReader::Read(rtf, second);
  if (second.toPlainText() != first.toPlainText() && project::RtfReader::IsRtf(bytes)) __builtin_trap();
  if (project::RtfWriter::Write(second) != rtf) __builtin_trap();
  project::RtfWriter::HasFormatting(second);
  return 0;
}
