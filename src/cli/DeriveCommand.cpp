#include "DeriveCommand.h"

#include "plot2d/Derivative.h"

namespace cli {

int RunDerive(const QStringList& arguments, Streams streams) {
  QStringList texts = arguments;
  if (!texts.isEmpty() && texts.first() == u"--") texts.removeFirst();
  if (texts.isEmpty()) {
    QString line;
    while (streams.In.readLineInto(&line)) {
      if (line.endsWith(u'\r')) line.chop(1);
      texts << line;
    }
  }
  int status = 0;
  for (const QString& text : texts) {
    const auto derivative = plot2d::Derivative(text);
    if (derivative) {
      streams.Out << *derivative << '\n';
    } else {
      streams.Out << "Could Not Derivative!\n";
      status = 1;
    }
  }
  streams.Out.flush();
  return status;
}

}  // namespace cli
