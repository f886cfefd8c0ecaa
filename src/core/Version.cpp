#include "Version.h"

namespace core {

int VersionMajor() { return QUILLOGRAPH_VERSION_MAJOR; }
int VersionMinor() { return QUILLOGRAPH_VERSION_MINOR; }

}  // namespace core
