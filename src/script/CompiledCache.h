#pragma once

#include "core/RuntimeError.h"

#include <QHash>
#include <QString>

#include <memory>
#include <optional>

namespace script {

// Compiled texts by their text, so that a text evaluated again costs no parse. A text that does
// not compile is kept with its error and fails fast again. Past a limit the cache starts anew, so
// that a stream of ever new texts cannot grow it without bound.
template <typename Code>
class CompiledCache {
public:
  struct Entry {
    Code Compiled;
    std::optional<core::RuntimeError> Error;
  };

  // The entry of text, compiled by compile(text) on first use. The reference stays valid until
  // the next call of Get or Clear.
  template <typename Compile>
  const Entry& Get(const QString& text, Compile&& compile) {
    if (const auto found = m_entries.constFind(text); found != m_entries.cend()) return **found;
    if (m_entries.size() >= kLimit) m_entries.clear();
    auto entry = std::make_unique<Entry>();
    try {
      entry->Compiled = compile(text);
    } catch (const core::RuntimeError& error) {
      entry->Error = error;
    }
    return **m_entries.insert(text, std::shared_ptr<const Entry>(std::move(entry)));
  }

  void Clear() { m_entries.clear(); }

private:
  static constexpr qsizetype kLimit = 4096;
  QHash<QString, std::shared_ptr<const Entry>> m_entries;
};

}  // namespace script
