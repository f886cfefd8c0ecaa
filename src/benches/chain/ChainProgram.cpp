#include "ChainProgram.h"

#include "ChainWindow.h"

#include <QCheckBox>

namespace chain {

benches::BenchProgram ChainProgram() {
  const auto stage = [](QWidget& widget) {
    // sin(x^2) and its derivative, with the outer derivative at g(x) between them.
    if (auto* box = widget.findChild<QCheckBox*>(QStringLiteral("chkOuterAtInner"))) box->setChecked(true);
  };
  return {QStringLiteral("quillograph-chain-bench"), QSize(1280, 820), [] { return std::make_unique<ChainWindow>(); }, stage};
}

}  // namespace chain
