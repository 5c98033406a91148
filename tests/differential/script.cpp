#include "tests/differential/script.h"

#include <cstdio>
#include <sstream>
#include <stdexcept>

namespace differential {
namespace {

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    char hex[5];
    std::snprintf(hex, sizeof hex, "\\x%02X", static_cast<unsigned char>(c));
    const bool plain = c >= ' ' && c < 0x7F && c != '"' && c != '\\';
    quoted += plain ? std::string(1, c) : std::string(hex);
  }
  return quoted + '"';
}

bool IsNothing(const Cell& cell) {
  if (const int* number = std::get_if<int>(&cell)) return *number == 0;
  if (const auto* text = std::get_if<std::string>(&cell)) return text->empty();
  const Time* time = std::get_if<Time>(&cell);
  return time == nullptr || IsZero(*time);
}

// Words of a line; blanks inside quotes do not part them.
std::vector<std::string> WordsOf(const std::string& line) {
  std::vector<std::string> words(1);
  bool quoted = false;
  for (const char c : line) {
    if (c == '"') quoted = !quoted;
    if (c == ' ' && !quoted) {
      words.emplace_back();
    } else {
      words.back() += c;
    }
  }
  std::erase(words, std::string());
  return words;
}

std::string Unquoted(const std::string& word) {
  std::string text;
  for (std::size_t i = 1; i + 1 < word.size(); ++i) {
    if (word[i] != '\\') {
      text += word[i];
      continue;
    }
    text += static_cast<char>(std::stoi(word.substr(i + 2, 2), nullptr, 16));
    i += 3;
  }
  return text;
}

Cell CellOf(const std::string& word) {
  if (word.starts_with('"')) return Unquoted(word);
  if (!word.starts_with('@')) return std::stoi(word);
  Time time{};
  std::istringstream parts(word.substr(1));
  std::string part;
  for (int& number : time) {
    if (!std::getline(parts, part, '-')) throw std::runtime_error("no time: " + word);
    number = std::stoi(part);
  }
  return time;
}

void SetField(Packed* record, const std::string& name, const Cell& value) {
  const int field = record->Shape().Index(name);
  const auto* text = std::get_if<std::string>(&value);
  const int width = record->Shape().fields[static_cast<std::size_t>(field)].width;
  if (text != nullptr && static_cast<int>(text->size()) == width) {
    record->SetUnterminated(field, *text);
  } else {
    record->Set(field, value);
  }
}

// The record's bytes; throws for a word that is no argument.
void Take(const std::string& word, Call* call, Packed* record) {
  if (word == "null1") {
    call->null_first = true;
  } else if (word == "null2") {
    call->null_second = true;
  } else if (word == "planted") {
    call->planted = true;
  } else {
    const std::size_t equals = word.find('=');
    if (equals == std::string::npos) throw std::runtime_error("no argument: " + word);
    const std::string name = word.substr(0, equals);
    const Cell value = CellOf(word.substr(equals + 1));
    if (name == "a") {
      call->a = std::get<int>(value);
    } else if (name == "b") {
      call->b = std::get<int>(value);
    } else if (name.size() == 3 && name.starts_with("op")) {
      call->operands.at(static_cast<std::size_t>(name[2] - '0')) = value;
    } else {
      SetField(record, name, value);
    }
  }
}

Call ParseCall(const std::string& line) {
  const std::vector<std::string> words = WordsOf(line);
  Call call;
  call.verb = VerbOf(words.at(0));
  std::size_t next = 1;
  if (NameOf(call.verb).has_stem) call.stem = StemOf(words.at(next++));
  Packed record = Packed::Empty(RecordStem(call));
  for (; next < words.size(); ++next) Take(words[next], &call, &record);
  if (TakesRecord(call.verb) && !call.null_first) call.record = record.Bytes();
  return call;
}

}  // namespace

std::string TextOf(const Cell& cell) {
  if (IsNull(cell)) return "nothing";
  if (const int* number = std::get_if<int>(&cell)) return std::to_string(*number);
  if (const auto* text = std::get_if<std::string>(&cell)) return Quoted(*text);
  std::string text;
  for (const int part : std::get<Time>(cell)) text += (text.empty() ? "@" : "-") + std::to_string(part);
  return text;
}

std::string TextOf(const Packed& record) {
  std::string text;
  for (std::size_t i = 0; i < record.Shape().fields.size(); ++i) {
    const Cell value = record.Value(static_cast<int>(i));
    if (!IsNothing(value)) text += std::string(" ") + record.Shape().fields[i].name + "=" + TextOf(value);
  }
  return text;
}

std::string TextOf(const Call& call) {
  std::string text = NameOf(call.verb).word;
  if (NameOf(call.verb).has_stem) text += std::string(" ") + LayoutOf(call.stem).name;
  if (call.a != 0) text += " a=" + std::to_string(call.a);
  if (call.b != 0) text += " b=" + std::to_string(call.b);
  for (std::size_t i = 0; i < call.operands.size(); ++i) {
    if (!IsNull(call.operands[i])) text += " op" + std::to_string(i) + "=" + TextOf(call.operands[i]);
  }
  if (call.null_first) text += " null1";
  if (call.null_second) text += " null2";
  if (call.planted) text += " planted";
  return call.record.empty() ? text : text + TextOf(Packed(RecordStem(call), call.record));
}

std::string TextOf(const Script& script) {
  std::string text;
  for (const Call& call : script) text += TextOf(call) + "\n";
  return text;
}

Script ParseScript(const std::string& text) {
  Script script;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line.starts_with('#')) continue;
    try {
      script.push_back(ParseCall(line));
    } catch (const std::exception& error) {
      throw std::runtime_error(std::string(error.what()) + ": " + line);
    }
  }
  return script;
}

}  // namespace differential
