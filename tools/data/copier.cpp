#include "tools/data/copier.h"
#include "tools/data/catalog.h"

#include <fmt/format.h>

#include <algorithm>
#include <deque>

#include "tools/data/checksum.h"
#include "tools/data/contents.h"
#include "tools/data/counters.h"
#include "tools/data/row_reader.h"
#include "tools/data/row_writer.h"
#include "tools/tool_error.h"

namespace {

constexpr LONG kNoteKey = -1;
constexpr const char* kDoing = "looking at the target";
constexpr const char* kLooking = "none yet";  // the note of no practice

// The columns of the source, with the types that they have in the target.
Shape CommonShape(PracticeDatabase& source, PracticeDatabase& target, const std::string& table) {
  Shape shape = ShapeOf(source, table);
  const Shape other = ShapeOf(target, table);
  for (std::size_t i = 0; i < shape.columns.size(); ++i) {
    const auto found = std::find(other.columns.begin(), other.columns.end(), shape.columns[i]);
    if (found == other.columns.end()) {
      throw ToolError(kFailed,
                      fmt::format("the target's table {} has no column {}", table, shape.columns[i]));
    }
    shape.kinds[i] = other.kinds[static_cast<std::size_t>(found - other.columns.begin())];
  }
  return shape;
}

std::string NoteIn(PracticeDatabase& database) {
  return database.Answer(
      fmt::format("SELECT tCfgSSet FROM {} WHERE tCfgSKey = '{}'", database.Name("TConfig"), kCopyNote),
      "looking for an unfinished copy");
}

}  // namespace

Copier::Copier(PracticeDatabase& source, PracticeDatabase& target) : m_source(source), m_target(target) {
  for (const char* table : kTableNames) {
    m_shapes.push_back(CommonShape(source, target, table));
    m_tables.push_back({table, CountRows(source, m_shapes.back(), RowsOfPractice(m_shapes.back()))});
  }
  if (target.Kind() == System::kMariadb) {
    target.Execute("SET SESSION sql_mode = CONCAT(@@SESSION.sql_mode, ',NO_AUTO_VALUE_ON_ZERO')", kDoing);
  }
}

std::string Copier::Note() const { return Sha256OfText(m_source.Identity()); }

TargetState Copier::State() {
  const std::string note = NoteIn(m_target);
  if (note == Note()) return TargetState::kUnfinished;
  if (!note.empty()) {
    throw ToolError(kFailed,
                    "the target holds an unfinished copy of another practice; --replace starts anew");
  }
  return RowsInTarget() == 0 ? TargetState::kEmpty : TargetState::kFilled;
}

std::uint64_t Copier::RowsInTarget() { return RowsBesidesSchema(m_target, m_shapes); }

std::uint64_t Copier::RowsInSource() const {
  std::uint64_t rows = 0;
  for (const CopiedTable& table : m_tables) rows += table.rows;
  return rows;
}

void Copier::WriteNote(const std::string& value) {
  m_target.Execute(
      fmt::format("INSERT INTO {} (tCfgCulIntCfgIDPk, tCfgSKey, tCfgSSet) VALUES ({}, '{}', '{}')",
                  m_target.Name("TConfig"), kNoteKey, kCopyNote, value),
      "noting the copy");
}

void Copier::DropNote() {
  m_target.Execute(fmt::format("DELETE FROM {} WHERE tCfgSKey = '{}'", m_target.Name("TConfig"), kCopyNote),
                   "taking the note of the copy away");
}

// Another connection than the one that shows a snapshot.
void Copier::RequireOther() {
  PracticeDatabase source(m_source, PracticeDatabase::Another::kConnection);
  if (!NoteIn(source).empty()) throw ToolError(kFailed, "FROM is an unfinished copy itself");
  if (!NoteIn(m_target).empty()) return;  // and the source has none
  WriteNote(kLooking);
  const bool same = NoteIn(source) == kLooking;
  DropNote();
  if (same) throw ToolError(kUsage, "FROM and TO are the same database");
}

void Copier::RaiseCounters() {
  for (const Shape& shape : m_shapes) RaiseNextKey(m_target, shape, NextKey(m_source, shape));
}

void Copier::Clear() {
  Changes changes(m_target);
  for (const Shape& shape : m_shapes) {
    m_target.Execute("DELETE FROM " + m_target.Name(shape.table), "emptying " + shape.table);
  }
  WriteNote(Note());
  changes.Commit();
}

// The practice's own name of its database system is that of the database it is in.
void Copier::AsInTarget(const Shape& shape, Row& row) const {
  if (shape.table != "TConfig") return;
  const auto value = [&](const char* column) -> Value& {
    const auto found = std::find(shape.columns.begin(), shape.columns.end(), column);
    return row.at(static_cast<std::size_t>(found - shape.columns.begin()));
  };
  if (value("tcfgskey") == "DBMS") value("tcfgsset") = NameOf(m_target.Kind());
}

LONG Copier::HighestKey(const Shape& shape) {
  const std::string from =
      fmt::format(" FROM {} WHERE {}", m_target.Name(shape.table), RowsOfPractice(shape));
  if (m_target.Number("SELECT COUNT(*)" + from, kDoing) == 0) return kBeforeAllKeys;
  return m_target.Number(fmt::format("SELECT MAX({})", shape.KeyName()) + from, kDoing);
}

void Copier::CopyTable(const Shape& shape, Progress& progress) {
  progress.Rename(shape.table);
  RowReader reader(m_source, shape, HighestKey(shape));
  RowWriter writer(m_target, shape);
  progress.Step(CountRows(m_target, shape, RowsOfPractice(shape)));
  for (std::deque<Row> page = reader.NextPage(); !page.empty(); page = reader.NextPage()) {
    for (Row& row : page) AsInTarget(shape, row);
    writer.Store(page);
    progress.Step(page.size());
  }
}

std::span<const Shape> Copier::ShapesIn(Part part) const {
  const std::span<const Shape> all(m_shapes);
  return part == Part::kSettings ? all.last(1) : all.first(all.size() - 1);
}

void Copier::Copy(Part part, Progress& progress) {
  for (const Shape& shape : ShapesIn(part)) CopyTable(shape, progress);
}

void Copier::Verify(Part part, Progress& progress, Differences& differences) {
  progress.Rename("comparing");
  const Expected expected = [this](const Shape& shape, Row& row) { AsInTarget(shape, row); };
  for (const Shape& shape : ShapesIn(part)) {
    CompareTable(
        m_source, m_target, shape, expected, [&] { progress.Step(); }, differences);
  }
}

void Copier::Finish() { DropNote(); }
