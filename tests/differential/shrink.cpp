#include "tests/differential/shrink.h"

#include <algorithm>

namespace differential {
namespace {

Script Without(const Script& script, std::size_t first, std::size_t count) {
  Script shorter(script.begin(), script.begin() + static_cast<std::ptrdiff_t>(first));
  shorter.insert(shorter.end(),
                 script.begin() + static_cast<std::ptrdiff_t>(std::min(first + count, script.size())),
                 script.end());
  return shorter;
}

// Cuts the script behind the call that goes wrong. False when none does.
bool GoesWrong(Target& target, Script* script) {
  if (WhyUndetermined(target.Options(), *script) != nullptr) return false;
  const std::optional<Mismatch> wrong = target.Play(*script);
  if (wrong) script->resize(wrong->call + 1);
  return wrong.has_value();
}

// Empties the fields of records that do not matter.
void Simplify(Target& target, Script* script, int tries) {
  for (std::size_t i = 0; i < script->size(); ++i) {
    if ((*script)[i].record.empty()) continue;
    const Packed empty = Packed::Empty(RecordStem((*script)[i]));
    for (std::size_t field = 0; field < empty.Shape().fields.size(); ++field) {
      Packed record(RecordStem((*script)[i]), (*script)[i].record);
      const int at = static_cast<int>(field);
      if (record.Value(at) == empty.Value(at)) continue;
      if (--tries < 0) return;
      record.Set(at, {});
      Script candidate = *script;
      candidate[i].record = record.Bytes();
      if (GoesWrong(target, &candidate) && candidate.size() == script->size()) *script = candidate;
    }
  }
}

}  // namespace

const char* WhyUndetermined(const ModelOptions& options, const Script& script) {
  Model model(options);
  for (const Call& call : script) {
    model.Run(call);
    if (model.Undetermined() != nullptr) return model.Undetermined();
  }
  return nullptr;
}

// From large parts to single calls, back to front: the end needs the beginning, rarely the other way round.
Script Shortest(Target& target, Script script, int tries) {
  GoesWrong(target, &script);
  for (std::size_t part = std::max<std::size_t>(script.size() / 2, 1);;) {
    bool shorter = false;
    for (std::size_t end = script.size(); end > 0 && tries > 0; --tries) {
      const std::size_t first = end > part ? end - part : 0;
      Script candidate = Without(script, first, end - first);
      if (GoesWrong(target, &candidate)) {
        script = candidate;
        shorter = true;
      }
      end = std::min(first, script.size());
    }
    if (tries <= 0 || (part == 1 && !shorter)) break;
    part = std::max<std::size_t>(part / 2, 1);
  }
  Simplify(target, &script, tries);
  return script;
}

}  // namespace differential
