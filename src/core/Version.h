#pragma once

#include <QString>

// The program's version: the one record of it, from the build (the top CMakeLists.txt). Project
// files and the information page show it.
namespace core {

int VersionMajor();
int VersionMinor();

}  // namespace core
