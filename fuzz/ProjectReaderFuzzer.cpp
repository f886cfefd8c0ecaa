// The project reader on any bytes, over a form in memory that behaves as the main form does
// where it matters (rows added up to the limit, the only row reset in place). A load that fails
// must leave the form exactly as it was; one that succeeds is written, and read back.
#include "project/MemoryProjectForm.h"
#include "project/ProjectReader.h"
#include "project/ProjectWriter.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

class SilentBoxes : public platform::MessageBoxes {
public:
  Answer Show(const QString&, Buttons, Icon, const QString&) override { return Answer::Ok; }
};

// A project open before the file is read: two rows, a note, values in the other pages.
const char kOpenProject[] =
    "[Function](0)=[255:y=x:False,False,False,True,True,0:False]\r\n"
    "[Function](1)=[65280:y=x^2:False,False,False,True,True,0:True]\r\n"
    "[Note](1)\r\na note\r\n[EndNote](1)\r\n"
    "[Quality]=70\r\n[Plot][xMin]=-3\r\n[3D][Para][Z]=v\r\n";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  project::MemoryProjectForm form;
  core::SharedState state;
  SilentBoxes boxes;
  if (!project::ProjectReader(form, state, boxes).LoadBytes(QByteArray(kOpenProject))) std::abort();
  const project::MemoryProjectForm before = form;
  const bool read = project::ProjectReader(form, state, boxes)
                        .LoadBytes(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
  if (!read && !form.SameAs(before)) std::abort();
  // What was read writes out, and reads back.
  try {
    const QString text = project::ProjectWriter::Compose(form);
    project::MemoryProjectForm again;
    project::ProjectReader(again, state, boxes).LoadBytes(text.toUtf8());
  } catch (...) {
    // A value that the writer cannot put as its kind (a quality beyond 16 bits) is the writer's
    // own failure, told by its box in the program.
  }
  return 0;
}
