#include "FuzzInput.h"

#include "mathx/RowParser.h"
#include "mathx/TypedInput.h"

// Anything typed or pasted: converted, and the row read by the row parser, as the insert dialog
// does with every change of its linear field.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString text = FuzzText(data, size);
  const QString row = mathx::FromTypedInput(text);
  // The field converts its text again with every key: a row must come back as it is.
  if (mathx::FromTypedInput(row) != row) __builtin_trap();
  mathx::ParseRow(row);
  if (size > 256) return 0;
  // A prefix is what the field holds while the rest is still being typed.
  for (qsizetype end = 0; end < text.size(); end += 7) mathx::FromTypedInput(text.left(end));
  return 0;
}
