// Sequences of flat calls. What a model of plain rows can foretell is compared byte by byte; the calls that
// nobody can foretell are made behind them, and must answer with a known code.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>
#include <string>

#include "frame/KyODBC.h"
#include "fuzz/exact.h"
#include "fuzz/require.h"
#include "tests/differential/flat_calls.h"
#include "tests/differential/script.h"
#include "tests/differential/target.h"

namespace {

using namespace differential;
using fuzz::Require;

constexpr int kMostCalls = 40;

std::string ConsumeText(FuzzedDataProvider& input) {
  static const std::string texts[] = {"", "-", "Meyer", "M%", "O'Neil", "Müller", "9", "}ext", "%", "m", "A"};
  const auto chosen = input.ConsumeIntegralInRange<std::size_t>(0, std::size(texts) + 3);
  return chosen < std::size(texts) ? texts[chosen] : fuzz::UpToZero(input.ConsumeRandomLengthString(70));
}

Time ConsumeTime(FuzzedDataProvider& input) {
  const int what = input.ConsumeIntegralInRange(0, 9);
  if (what == 0) return {};
  if (what == 1) return {1880, 1, 1, 0, 0, 0};
  return {input.ConsumeIntegralInRange(1900, 2100), input.ConsumeIntegralInRange(1, 12),
          input.ConsumeIntegralInRange(1, 28),      input.ConsumeIntegralInRange(0, 23),
          input.ConsumeIntegralInRange(0, 59),      input.ConsumeIntegralInRange(0, 59)};
}

int ConsumeNumber(FuzzedDataProvider& input) {
  return input.ConsumeIntegralInRange(0, 7) > 0 ? input.ConsumeIntegralInRange(-2, 12)
                                                : input.ConsumeIntegral<int>();
}

std::string ConsumeRecord(FuzzedDataProvider& input, Stem stem) {
  Packed record = Packed::Empty(stem);
  for (std::size_t i = 0; i < record.Shape().fields.size() && input.remaining_bytes() > 0; ++i) {
    const int field = static_cast<int>(i);
    switch (record.Shape().fields[i].kind) {
      case Kind::kText:
        record.SetText(field, ConsumeText(input));
        break;
      case Kind::kDate:
      case Kind::kTime:
        record.SetMoment(field, ConsumeTime(input));
        break;
      default:
        record.SetNumber(field, ConsumeNumber(input));
    }
  }
  return record.Bytes();
}

// Field ids that the set knows, most of the time.
int ConsumeFields(FuzzedDataProvider& input, Stem stem) {
  const std::vector<int> known = KnownIds(stem);
  std::uint32_t word = 0;
  const int count = input.ConsumeIntegralInRange(0, 4);
  for (int slot = 0; slot < count; ++slot) {
    const auto id = input.ConsumeIntegralInRange(0, 9) > 0
                        ? known[input.ConsumeIntegralInRange<std::size_t>(0, known.size() - 1)]
                        : input.ConsumeIntegralInRange(0, 127);
    word |= (static_cast<std::uint32_t>(id) | (input.ConsumeBool() ? 0x80u : 0u)) << (8 * slot);
  }
  return static_cast<int>(word);
}

void ConsumeFilter(FuzzedDataProvider& input, Call* call) {
  constexpr int kOperators[] = {1, 2, 3, 4, 5, 7, 16, 17};
  std::uint32_t operators = 0;
  call->a = ConsumeFields(input, call->stem);
  for (std::size_t slot = 0; slot < 4; ++slot) {
    const int op = kOperators[input.ConsumeIntegralInRange<std::size_t>(0, std::size(kOperators) - 1)];
    operators |= static_cast<std::uint32_t>(op) << (8 * slot);
    const int id = (call->a >> (8 * slot)) & 0x7F;
    switch (TypeOfId(id)) {
      case ValueType::kNone:
        break;
      case ValueType::kInteger:
        call->operands[slot] = ConsumeNumber(input);
        break;
      case ValueType::kText:
        call->operands[slot] = ConsumeText(input);
        break;
      default:
        call->operands[slot] = ConsumeTime(input);
        // The second value of a range is read as the first.
        if (op == 17 && slot < 3) call->operands[++slot] = ConsumeTime(input);
    }
  }
  call->b = static_cast<int>(operators);
}

Call ConsumeCall(FuzzedDataProvider& input) {
  Call call{.verb = static_cast<Verb>(input.ConsumeIntegralInRange(0, static_cast<int>(Verb::kGetOwner))),
            .stem = static_cast<Stem>(input.ConsumeIntegralInRange(0, kStems - 1))};
  if (call.verb == Verb::kSetFilter) {
    ConsumeFilter(input, &call);
  } else if (call.verb == Verb::kSetSort) {
    call.a = ConsumeFields(input, call.stem);
  } else {
    call.a = ConsumeNumber(input);
    if (call.verb == Verb::kCheckVersion) call.a &= 0xFFFF;
  }
  if (TakesRecord(call.verb)) call.record = ConsumeRecord(input, RecordStem(call));
  if (call.verb == Verb::kMoveByString) call.operands[0] = ConsumeText(input);
  if (call.verb == Verb::kEditSel || call.verb == Verb::kEditSelPat || call.verb == Verb::kEditSelUnit) {
    call.b = input.ConsumeBool() ? -1 : input.ConsumeIntegral<int>();
  }
  if (call.verb >= Verb::kGetString && call.verb <= Verb::kWriteInt) {
    for (std::size_t i = 0; i < 3; ++i) call.operands[i] = ConsumeText(input);
    call.a = input.ConsumeIntegralInRange(1, 300);
    call.b = ConsumeNumber(input);
  }
  if (call.verb == Verb::kGetDbms || call.verb == Verb::kGetOwner) {
    call.a = input.ConsumeIntegralInRange(1, 300);
  }
  return call;
}

bool Exists(const Call& call) { return !NameOf(call.verb).has_stem || HasCall(call.stem, call.verb); }

Target& TheTarget() {
  static Target* const target = new Target("sqlite", false, false);
  return *target;
}

// Every call whose answer the model can tell goes into the script, the others behind it.
void Sort(FuzzedDataProvider& input, Script* foretold, Script* unforeseen) {
  foretold->push_back({.verb = Verb::kClock, .a = 1'000'000'000});
  foretold->push_back({.verb = Verb::kInit});
  Model model(TheTarget().Options());
  for (const auto& call : *foretold) model.Run(call);
  for (int i = 0; i < kMostCalls && input.remaining_bytes() > 0; ++i) {
    const Call call = ConsumeCall(input);
    if (!Exists(call)) continue;
    Model after = model;
    after.Run(call);
    if (after.Undetermined() != nullptr) {
      unforeseen->push_back(call);
    } else {
      model = after;
      foretold->push_back(call);
    }
  }
}

void RequireKnown(const Call& call, int code) {
  if (!ReturnsCode(call.verb)) return;
  for (const int known : {0, 1, 3, 4, 5, 6, 8, 21, 30, 31, 52, 55, 56, 57, 64, 65, 66, 67}) {
    if (code == known) return;
  }
  Require(false, TextOf(call).c_str(), std::to_string(code));
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  setenv("KYODBC_TEST_DB", "sqlite", 1);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  Script foretold, unforeseen;
  Sort(input, &foretold, &unforeseen);
  if (const auto wrong = TheTarget().Play(foretold)) {
    const Script shown(foretold.begin(), foretold.begin() + static_cast<std::ptrdiff_t>(wrong->call) + 1);
    std::fprintf(stderr, "%s\nexpected %d, got %d\n", TextOf(shown).c_str(), wrong->expected.result,
                 wrong->got.result);
    Require(false, "another answer than the model's", wrong->got.memory);
  }
  if (unforeseen.empty()) return 0;
  DB_InitDatabase(&TheTarget().Parameters());
  for (const Call& call : unforeseen) {
    RequireKnown(call, CallLibrary(call, TheTarget().Parameters()).result);
  }
  DB_CloseDatabase();
  return 0;
}
