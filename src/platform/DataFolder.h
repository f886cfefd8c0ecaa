#pragma once

#include <QString>

namespace platform {

// The folder of the files that come with the program (Ribbon/, Icons/, Functions/, the pages).
// Installed, it is share/quillograph beside the program's bin folder; run from the build tree, it
// is the source tree's data folder. QUILLOGRAPH_DATA names another one, for tests and packagers.
QString DataFolder();

// A file of that folder: DataFile("Ribbon/Menubar.xcb"). From the build tree, a file that the build
// made (Help.pdf, the samples' pictures) comes from the build's data folder.
QString DataFile(const QString& relativePath);

}  // namespace platform
