#include "tests/differential/generator.h"

#include "tests/differential/flat_calls.h"

namespace differential {
namespace {

struct Weighted {
  Verb verb;
  int weight;
};

constexpr Weighted kTableCalls[] = {
    {Verb::kOpen,         3 },
    {Verb::kClose,        1 },
    {Verb::kIsOpen,       1 },
    {Verb::kIndexPos,     4 },
    {Verb::kMoveByPos,    8 },
    {Verb::kMoveByDelta,  8 },
    {Verb::kMoveByIntID,  6 },
    {Verb::kMoveByString, 6 },
    {Verb::kSetFilter,    7 },
    {Verb::kSetSort,      4 },
    {Verb::kDeleteByPos,  2 },
    {Verb::kGetByPos,     12},
    {Verb::kMaxPos,       5 },
    {Verb::kAddNew,       7 },
    {Verb::kEdit,         3 },
    {Verb::kEditSel,      8 },
    {Verb::kDelete,       2 },
    {Verb::kGet,          7 },
    {Verb::kGetNum,       3 },
    {Verb::kGetLastID,    2 },
    {Verb::kGetLastDate,  4 },
};

// Tables beyond this many rows shrink rather than grow.
constexpr std::size_t kManyRows = 30;
constexpr std::size_t kFewRows = 6;

bool Grows(Verb verb) { return verb == Verb::kAddNew || verb == Verb::kAddPat || verb == Verb::kAddUnit; }

// A call after which a set shows nothing teaches little, nor does one that finds nothing.
bool IsDull(const Call& call, const Model& before, const Model& after, const Answer& answer) {
  if (!ReturnsCode(call.verb) || !after.Connected()) return false;
  const bool shows = call.verb == Verb::kSetFilter || call.verb == Verb::kOpen;
  if (shows && answer.result == 0) return before.Set(call.stem).open && after.Set(call.stem).rows.empty();
  return answer.result != 0;
}

}  // namespace

Generator::Generator(unsigned seed, const std::vector<ModelOptions>& databases) : m_random(seed) {
  for (const ModelOptions& options : databases) m_models.emplace_back(options);
}

// The numbers that std::uniform_int_distribution makes differ between libraries.
int Generator::Below(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

bool Generator::Try(const Call& call, bool any, Script* script) {
  std::vector<Model> models = m_models;
  Answer answer;
  for (Model& model : models) {
    answer = model.Run(call);
    if (model.Undetermined() != nullptr) return false;
  }
  if (!any && IsDull(call, m_models.back(), models.back(), answer)) return false;
  m_models = std::move(models);
  script->push_back(call);
  if (call.verb != Verb::kClock) ++m_calls;
  if (call.verb == Verb::kSetSort && answer.result == 1) m_forced = SortOf(call.stem);
  return true;
}

Call Generator::Preparation() {
  const Stem stem = static_cast<Stem>(Below(kStems));
  if (Chance(50)) return SortOf(stem);
  return HasCall(stem, Verb::kAddNew) ? Change(stem, Verb::kAddNew) : Browse(stem, Verb::kOpen);
}

Call Generator::NextOfTable(Stem stem) {
  int sum = 0;
  for (const Weighted& row : kTableCalls) sum += row.weight;
  for (;;) {
    int chosen = Below(sum);
    const Weighted* row = kTableCalls;
    while (chosen >= row->weight) chosen -= (row++)->weight;
    Verb verb = row->verb;
    if (!HasCall(stem, verb)) continue;
    const std::size_t rows = m_models.back().TableOf(stem).rows.size();
    const bool removes = verb == Verb::kDelete || verb == Verb::kDeleteByPos;
    if ((removes && rows < kFewRows) || (Grows(verb) && rows > kManyRows)) continue;
    const bool browses = verb >= Verb::kIndexPos && verb <= Verb::kMaxPos;
    if (browses && !m_models.back().Set(stem).open && Chance(80)) verb = Verb::kOpen;
    const bool changes = verb >= Verb::kAddNew && verb <= Verb::kGet;
    return changes ? Change(stem, verb) : Browse(stem, verb);
  }
}

Call Generator::Next() {
  if (!m_models.back().Connected()) return Chance(80) ? Call{.verb = Verb::kInit} : ConnectionCall();
  const int what = Below(100);
  if (what < 6) return Call{.verb = Verb::kClock, .a = m_now += Below(100'000)};
  if (what < 12) return PatientCall();
  if (what < 17) return UnitCall();
  if (what < 22) return SettingCall();
  if (what < 25) return ConnectionCall();
  return NextOfTable(static_cast<Stem>(Below(kStems)));
}

Script Generator::Make(std::size_t calls) {
  constexpr std::size_t kPrepared = 150;
  Script script;
  Try({.verb = Verb::kClock, .a = m_now}, true, &script);
  Try({.verb = Verb::kInit}, true, &script);
  for (int stem = 0; stem < kStems; ++stem) Try(SortOf(static_cast<Stem>(stem)), true, &script);
  while (m_calls < calls) {
    if (m_forced) {
      const Call forced = *m_forced;
      m_forced.reset();
      Try(forced, true, &script);
      continue;
    }
    // Failures are wanted too, but not most of the time.
    Try(script.size() < kPrepared ? Preparation() : Next(), Chance(15), &script);
  }
  return script;
}

}  // namespace differential
