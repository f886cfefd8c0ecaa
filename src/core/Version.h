#pragma once

#include <QString>

// The program's version: the one record of it, from the build (the top CMakeLists.txt). Project
// files and the information page show it.
namespace core {

int VersionMajor();
int VersionMinor();
// The build's revision: the number of commits the sources stand on, 0 where that is not known.
int VersionRevision();

}  // namespace core
