#include "CommandLine.h"

#include "DeriveCommand.h"
#include "EvalCommand.h"
#include "ExplainCommand.h"
#include "PlotCommand.h"
#include "PointsCommand.h"
#include "ProjectCommands.h"
#include "SurfaceCommand.h"
#include "TypesetCommand.h"

namespace cli {

QString HelpText() {
  return QString(
      "Usage: quillograph-cli COMMAND [ARGUMENTS]\n"
      "\n"
      "Quillograph's engines from the shell.\n"
      "\n"
      "Commands:\n"
      "  explain [TEXT...]   Show how a row's text travels through the pipeline. For each TEXT\n"
      "                      (with none, each line of standard input) print four lines and an\n"
      "                      empty one:\n"
      "                        normalised: the text as the script engine evaluates it\n"
      "                        line: the function line that the plot receives\n"
      "                        bare: the right-hand side alone\n"
      "                        row: the restriction compiled into the stored row form\n"
      "                      Put -- before texts that start with a dash.\n"
      "\n"
      "  eval [--script] [--exec STATEMENT]... [--const NAME=VALUE]... [TEXT...]\n"
      "                      Evaluate with the program's own engine, one line for each TEXT\n"
      "                      (with none, each line of standard input):\n"
      "                        the value of the text as typed (normalised, constants put in),\n"
      "                        or MathError when it cannot be computed;\n"
      "                        with --script, the script engine alone: the value, or\n"
      "                        Error <number>: <description>.\n"
      "                      --exec runs an assignment such as x=2 first; --const gives a\n"
      "                      constant a value as a constant row does (a=2.5).\n"
      "\n"
      "  derive [TEXT...]    The derivative of a row's text, as the insert dialog puts it in a row:\n"
      "                      y=... and a bare expression by x, x=... by y, r=... by theta; the\n"
      "                      right-hand side alone. \"Could Not Derivative!\" and exit status 1\n"
      "                      where there is none (implicit equations, point lists, commands).\n"
      "\n") +
      PlotHelp() + u'\n' + PointsHelp() + u'\n' + SurfaceHelp() + u'\n' + TypesetHelp() + u'\n' + ProjectCommandsHelp() +
      QString(
      "\n"
      "Options:\n"
      "  -h, --help          Show this help. COMMAND --help shows the same.\n");
}

void ForEachText(const QStringList& texts, QTextStream& in, const std::function<void(const QString&)>& handle) {
  if (!texts.isEmpty()) {
    for (const QString& text : texts) handle(text);
    return;
  }
  QString line;
  while (in.readLineInto(&line)) {
    if (line.endsWith(u'\r')) line.chop(1);
    handle(line);
  }
}

std::optional<std::vector<double>> NumberList(const QString& text, int count, QChar separator) {
  const QStringList parts = text.split(separator);
  if (parts.size() != count) return std::nullopt;
  std::vector<double> values;
  for (const QString& part : parts) {
    bool ok = false;
    values.push_back(part.trimmed().toDouble(&ok));
    if (!ok) return std::nullopt;
  }
  return values;
}

bool NeedsGui(const QStringList& arguments) {
  return !arguments.isEmpty() && (arguments.first() == u"plot" || arguments.first() == u"points" ||
                                  arguments.first() == u"surface" || arguments.first() == u"typeset" ||
                                  NeedsWidgets(arguments));
}

bool NeedsWidgets(const QStringList& arguments) {
  return !arguments.isEmpty() && (arguments.first() == u"render" || arguments.first() == u"resave");
}

int Run(const QStringList& arguments, Streams streams) {
  if (arguments.isEmpty()) {
    streams.Err << HelpText();
    streams.Err.flush();
    return 2;
  }
  const QString command = arguments.first();
  const QStringList rest = arguments.mid(1);
  if (command == u"--help" || command == u"-h" || command == u"help") {
    streams.Out << HelpText();
    streams.Out.flush();
    return 0;
  }
  if (rest.size() == 1 && (rest.first() == u"--help" || rest.first() == u"-h")) {
    streams.Out << HelpText();
    streams.Out.flush();
    return 0;
  }
  if (command == u"explain") return RunExplain(rest, streams);
  if (command == u"eval") return RunEval(rest, streams);
  if (command == u"plot") return RunPlot(rest, streams);
  if (command == u"points") return RunPoints(rest, streams);
  if (command == u"derive") return RunDerive(rest, streams);
  if (command == u"surface") return RunSurface(rest, streams);
  if (command == u"typeset") return RunTypeset(rest, streams);
  if (command == u"render") return RunRender(rest, streams);
  if (command == u"resave") return RunResave(rest, streams);
  streams.Err << "quillograph-cli: unknown command \"" << command << "\"\n\n" << HelpText();
  streams.Err.flush();
  return 2;
}

}  // namespace cli
