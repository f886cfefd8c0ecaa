#include "DeriveCommand.h"

#include "mathlang/Derivative.h"

namespace cli {

int RunDerive(const QStringList& arguments, Streams streams) {
  QStringList texts = arguments;
  if (!texts.isEmpty() && texts.first() == u"--") texts.removeFirst();
  int status = 0;
  ForEachText(texts, streams.In, [&](const QString& text) {
    const auto derivative = mathlang::Derivative(text);
    if (derivative) {
      streams.Out << *derivative << '\n';
    } else {
      streams.Out << "Could Not Derivative!\n";
      status = 1;
    }
  });
  streams.Out.flush();
  return status;
}

}  // namespace cli
