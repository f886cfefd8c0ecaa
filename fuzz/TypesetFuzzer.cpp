#include "FuzzInput.h"

#include "mathx/EditBuffer.h"
#include "mathx/Formula.h"

#include <QGuiApplication>

namespace {

// Typesetting measures text, which needs fonts, which need an application object.
void EnsureApplication() {
  static int argc = 1;
  static char name[] = "typeset_fuzzer";
  static char* argv[] = {name, nullptr};
  if (QGuiApplication::instance()) return;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // Qt's warnings about fonts without shaping for exotic scripts would drown the fuzzer's log.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  static QGuiApplication application(argc, argv);
}

}  // namespace

// Any row text: parsed, typeset, its caret places and selection found; for short texts every
// backspace the editor allows is tried and the result typeset again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  EnsureApplication();
  const QString text = FuzzText(data, size);
  mathx::Formula formula;
  formula.SetText(text);
  if (formula.Text() != text) __builtin_trap();
  formula.PositionAt(QPointF(formula.Size().width() / 2, formula.Size().height() / 2));
  formula.SelectionRects(0, int(text.size()));
  if (size > 64) return 0;
  for (const mathx::CaretPlace& place : formula.Places()) {
    mathx::EditBuffer buffer;
    buffer.SetText(text);
    std::vector<int> stops;
    for (const mathx::CaretPlace& p : formula.Places()) stops.push_back(p.position);
    buffer.SetStops(stops);
    buffer.MoveTo(place.position, false);
    buffer.Backspace();
    mathx::Formula edited;
    edited.SetText(buffer.Text());
  }
  return 0;
}
