#pragma once

#include "platform/FileDialogs.h"
#include "platform/MessageBoxes.h"

#include <QString>

#include <cstdint>
#include <functional>

namespace output {

// What tells the export page's saving buttons apart: the dialog's title and filter, the titles of
// the overwrite question and of the two failure boxes, and SavePicture's picture kind (1 PNG,
// 2 JPEG, 3 BMP; 0 for the vector files, which are written otherwise).
struct SaveKind {
  const char* Title;
  const char* Filter;
  const char* OverwriteTitle;
  std::int32_t Kind;
  const char* ErrorTitle;
  const char* UnknownTitle;
};

// The saving routine of the buttons: the file dialog, opened again as long as the user answers No
// to "overwrite?"; then write, which raises core::RuntimeError (or any std::exception) with a
// description when it fails. A failure other than a cancel is told under the error title; then,
// whatever happened, a file that isn't there is told under the unknown error title. Returns the
// name when the file was written without an error, else "".
QString SaveThroughDialog(platform::FileDialogs& files, platform::MessageBoxes& boxes, const SaveKind& kind,
                          const std::function<void(const QString& name)>& write);

}  // namespace output
