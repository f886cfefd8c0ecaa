// The equation editor's typesetting: every row text of the test table parsed and laid out, and
// painted, against Qt's own rich-text engine laying out and painting the same texts as plain
// text (what a row would cost if it showed its text unset).
#include "RatioReporter.h"

#include "mathx/Formula.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTextDocument>

#include <benchmark/benchmark.h>

namespace {

QStringList RowTexts() {
  QFile file(QStringLiteral(QUILLOGRAPH_MATHX_DATA "/row-texts.txt"));
  if (!file.open(QIODevice::ReadOnly)) return {};
  QStringList texts = QString::fromUtf8(file.readAll()).split(u'\n');
  texts.removeAll(QString());
  return texts;
}

// As an editor does on every change: the same formula, a new text.
void BM_Typeset_Layout(benchmark::State& state) {
  const QStringList texts = RowTexts();
  mathx::Formula formula;
  formula.SetPixelSize(18.67);
  for (auto _ : state)
    for (const QString& text : texts) {
      formula.SetText(text);
      benchmark::DoNotOptimize(formula.Size());
    }
  state.SetItemsProcessed(state.iterations() * texts.size());
}
BENCHMARK(BM_Typeset_Layout)->Unit(benchmark::kMicrosecond);

void BM_QTextDocument_Layout(benchmark::State& state) {
  const QStringList texts = RowTexts();
  QTextDocument document;
  QFont font(QStringLiteral("C059"));
  font.setPixelSize(19);
  document.setDefaultFont(font);
  for (auto _ : state)
    for (const QString& text : texts) {
      document.setPlainText(text);
      benchmark::DoNotOptimize(document.documentLayout()->documentSize());
    }
  state.SetItemsProcessed(state.iterations() * texts.size());
}
BENCHMARK(BM_QTextDocument_Layout)->Unit(benchmark::kMicrosecond);

void BM_Typeset_Paint(benchmark::State& state) {
  const QStringList texts = RowTexts();
  std::vector<std::unique_ptr<mathx::Formula>> formulas;
  for (const QString& text : texts) {
    formulas.push_back(std::make_unique<mathx::Formula>());
    formulas.back()->SetPixelSize(18.67);
    formulas.back()->SetText(text);
  }
  QImage image(600, 200, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    QPainter painter(&image);
    for (const auto& formula : formulas) formula->Paint(painter, QPointF(0, 0), Qt::black);
  }
  state.SetItemsProcessed(state.iterations() * texts.size());
}
BENCHMARK(BM_Typeset_Paint)->Unit(benchmark::kMicrosecond);

void BM_QTextDocument_Paint(benchmark::State& state) {
  const QStringList texts = RowTexts();
  std::vector<std::unique_ptr<QTextDocument>> documents;
  QFont font(QStringLiteral("C059"));
  font.setPixelSize(19);
  for (const QString& text : texts) {
    documents.push_back(std::make_unique<QTextDocument>());
    documents.back()->setDefaultFont(font);
    documents.back()->setPlainText(text);
    documents.back()->documentLayout()->documentSize();
  }
  QImage image(600, 200, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const auto& document : documents) document->drawContents(&painter);
  }
  state.SetItemsProcessed(state.iterations() * texts.size());
}
BENCHMARK(BM_QTextDocument_Paint)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter({{"BM_Typeset_Layout", "BM_QTextDocument_Layout"}, {"BM_Typeset_Paint", "BM_QTextDocument_Paint"}});
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
