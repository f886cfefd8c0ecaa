#include "Version.h"

namespace core {

int VersionMajor() { return QUILLOGRAPH_VERSION_MAJOR; }
int VersionMinor() { return QUILLOGRAPH_VERSION_MINOR; }
int VersionRevision() { return QUILLOGRAPH_VERSION_REVISION; }

}  // namespace core
