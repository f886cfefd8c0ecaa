#pragma once

#include "platform/FileDialogs.h"
#include "platform/MessageBoxes.h"

#include <QString>

#include <cstdint>
#include <functional>

namespace output {

// What tells the export page's saving buttons apart: the dialog's title and filter, the titles of
// the overwrite question and of the two failure boxes, SavePicture's picture kind (1 PNG, 2 JPEG,
// 3 BMP; 0 for the vector files, which are written otherwise) and the file ending of the kind.
struct SaveKind {
  const char* Title;
  const char* Filter;
  const char* OverwriteTitle;
  std::int32_t Kind;
  const char* ErrorTitle;
  const char* UnknownTitle;
  const char* Ending;
};

// The name with "." and the ending behind it when its file name has no ending of its own ("graph"
// and "graph." become "graph.png"); any other name as it is, and so is one that names no file
// (empty, or ending in a folder separator).
QString WithEnding(const QString& name, const QString& ending);

// The saving routine of the buttons: the file dialog, the kind's ending put onto a name without
// one, the dialog opened again as long as the user answers No to "overwrite?"; then write, which
// raises core::RuntimeError (or any std::exception) with a description when it fails. A cancelled
// dialog ends it without a word. A failure is told under the error title; then a file that isn't
// there is told under the unknown error title. Returns the name when the file was written without
// an error, else "".
QString SaveThroughDialog(platform::FileDialogs& files, platform::MessageBoxes& boxes, const SaveKind& kind,
                          const std::function<void(const QString& name)>& write);

}  // namespace output
