// kyodbc_differential: random scripts of flat calls on several databases, answer by answer against a model.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <stdexcept>

#include "tests/differential/generator.h"
#include "tests/differential/script.h"
#include "tests/differential/shrink.h"

namespace differential {
namespace {

constexpr char kUsage[] =
    "usage: kyodbc_differential [--seeds A-B] [--calls N] [--databases sqlite,postgresql,mariadb]\n"
    "         [--full-names] [--owner] [--replay FILE] [--save FILE] [--print] [--plant-error CALL]\n";

struct Arguments {
  unsigned first_seed = 1, last_seed = 1;
  std::size_t calls = 2000;
  std::vector<std::string> databases = {"sqlite"};
  bool full_names = false, owner = false, print = false;
  std::string replay, save;
  std::size_t plant = 0;  // counted from 1; 0: none
};

std::vector<std::string> Parts(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
  return parts;
}

Arguments Read(const std::vector<std::string>& words) {
  Arguments arguments;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const auto value = [&] { return ++i < words.size() ? words[i] : throw std::runtime_error(kUsage); };
    if (words[i] == "--seeds") {
      const std::vector<std::string> seeds = Parts(value(), '-');
      arguments.first_seed = static_cast<unsigned>(std::stoul(seeds.front()));
      arguments.last_seed = static_cast<unsigned>(std::stoul(seeds.back()));
    } else if (words[i] == "--calls") {
      arguments.calls = std::stoul(value());
    } else if (words[i] == "--databases") {
      arguments.databases = Parts(value(), ',');
    } else if (words[i] == "--full-names") {
      arguments.full_names = true;
    } else if (words[i] == "--owner") {
      arguments.owner = true;
    } else if (words[i] == "--print") {
      arguments.print = true;
    } else if (words[i] == "--replay") {
      arguments.replay = value();
    } else if (words[i] == "--save") {
      arguments.save = value();
    } else if (words[i] == "--plant-error") {
      arguments.plant = std::stoul(value());
    } else {
      throw std::runtime_error(kUsage);
    }
  }
  return arguments;
}

class Statistics {
 public:
  void Add(const Call& call, const Answer& answer) {
    const std::string function = FunctionName(call);
    if (function.empty()) return;
    ++m_calls;
    ++m_functions[function];
    if (ReturnsCode(call.verb)) ++m_codes[answer.result];
  }
  void Print() const {
    std::cout << "calls of each function:";
    for (const auto& [function, count] : m_functions) std::cout << ' ' << function << ' ' << count;
    std::cout << "\nresult codes:";
    for (const auto& [code, count] : m_codes) std::cout << ' ' << code << ": " << count;
    std::cout << "\nfunctions reached: " << m_functions.size() << "\n";
  }
  std::size_t Calls() const { return m_calls; }

 private:
  std::size_t m_calls = 0;
  std::map<std::string, int> m_functions;
  std::map<int, int> m_codes;
};

// What of the answers differs.
std::string Difference(const Call& call, const Mismatch& wrong) {
  std::string text = "  result: expected " + std::to_string(wrong.expected.result) + ", got " +
                     std::to_string(wrong.got.result) + "\n";
  if (wrong.expected.memory == wrong.got.memory) return text;
  const std::size_t size = LayoutOf(RecordStem(call)).size;
  if (wrong.expected.memory.size() == size && wrong.got.memory.size() == size) {
    text += "  expected:" + TextOf(Packed(RecordStem(call), wrong.expected.memory)) + "\n";
    text += "  got:     " + TextOf(Packed(RecordStem(call), wrong.got.memory)) + "\n";
  } else {
    text += "  expected: " + TextOf(Cell(wrong.expected.memory)) + "\n";
    text += "  got:      " + TextOf(Cell(wrong.got.memory)) + "\n";
  }
  std::size_t at = 0;
  while (at < wrong.got.memory.size() && at < wrong.expected.memory.size() &&
         wrong.got.memory[at] == wrong.expected.memory[at]) {
    ++at;
  }
  return text + "  first other byte: " + std::to_string(at) + "\n";
}

void Report(Target& target, const Script& script, const std::string& name, const Arguments& arguments) {
  const Script shortest = Shortest(target, script);
  const std::optional<Mismatch> wrong = target.Play(shortest);
  std::cout << name << " on " << target.Kind() << ": shortest script: " << shortest.size() << " calls\n"
            << TextOf(shortest);
  if (wrong) std::cout << Difference(shortest[wrong->call], *wrong);
  if (!arguments.save.empty()) std::ofstream(arguments.save) << TextOf(shortest);
}

using Targets = std::vector<std::unique_ptr<Target>>;

// Whether all databases answered as foretold.
bool Play(Targets& targets, const Script& script, const std::string& name, const Arguments& arguments,
          Statistics* statistics) {
  bool right = true;
  for (const std::unique_ptr<Target>& target : targets) {
    if (const char* why = WhyUndetermined(target->Options(), script)) {
      std::cout << name << " cannot be foretold on " << target->Kind() << ": " << why << "\n";
      right = false;
      continue;
    }
    const auto wrong = target->Play(script, [&](const Call& call, const Answer& answer) {
      statistics->Add(call, answer);
      if (arguments.print)
        std::cout << TextOf(call) << " -> " << answer.result
                  << (FillsRecord(call.verb) ? TextOf(Packed(RecordStem(call), answer.memory)) : "") << "\n";
    });
    if (!wrong) continue;
    right = false;
    std::cout << name << " on " << target->Kind() << " went wrong at call " << wrong->call + 1 << "\n"
              << TextOf(script[wrong->call]) << "\n"
              << Difference(script[wrong->call], *wrong);
    Report(*target, script, name, arguments);
  }
  return right;
}

Script FromFile(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot read " + path);
  std::ostringstream text;
  text << file.rdbuf();
  return ParseScript(text.str());
}

int Run(const Arguments& arguments) {
  const auto start = std::chrono::steady_clock::now();
  setenv("TZ", "UTC", 1);
  Targets targets;
  std::vector<ModelOptions> options;
  for (const std::string& kind : arguments.databases) {
    targets.push_back(std::make_unique<Target>(kind, arguments.full_names, arguments.owner));
    options.push_back(targets.back()->Options());
  }
  Statistics statistics;
  unsigned scripts = 0, failed = 0;
  if (!arguments.replay.empty()) {
    ++scripts;
    failed += Play(targets, FromFile(arguments.replay), "script", arguments, &statistics) ? 0 : 1;
  }
  for (unsigned seed = arguments.first_seed; arguments.replay.empty() && seed <= arguments.last_seed;
       ++seed) {
    Script script = Generator(seed, options).Make(arguments.calls);
    if (arguments.plant > 0 && arguments.plant <= script.size()) script[arguments.plant - 1].planted = true;
    ++scripts;
    failed += Play(targets, script, "seed " + std::to_string(seed), arguments, &statistics) ? 0 : 1;
    std::cout << std::flush;
  }
  statistics.Print();
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
  std::cout << "scripts: " << scripts << ", failed: " << failed << ", databases: " << targets.size()
            << ", calls compared: " << statistics.Calls() << ", seconds: " << static_cast<int>(took.count())
            << "\n";
  return failed == 0 ? 0 : 1;
}

}  // namespace
}  // namespace differential

int main(int count, char** words) {
  try {
    return differential::Run(differential::Read({words + 1, words + count}));
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
