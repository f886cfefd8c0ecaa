#pragma once

#include "CommandLine.h"

#include "core/SharedState.h"

#include <QString>

namespace cli {

// The four lines that explain prints for one text, and the empty line after them.
QString Explain(const core::SharedState& state, const QString& text);

// quillograph-cli explain [--] [TEXT...]: the texts from the arguments or, with none, one per line
// of standard input.
int RunExplain(const QStringList& arguments, Streams streams);

}  // namespace cli
