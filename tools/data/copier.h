// A whole practice from one database to another, keys kept.
#ifndef KYODBC_TOOLS_DATA_COPIER_H
#define KYODBC_TOOLS_DATA_COPIER_H

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "tools/data/compare.h"
#include "tools/data/practice_database.h"
#include "tools/data/shape.h"
#include "tools/progress.h"

// What the target holds before copying.
enum class TargetState { kEmpty, kUnfinished, kFilled };

struct CopiedTable {
  std::string table;
  std::uint64_t rows;
};

// Until the rows have been found equal, the target's settings have the note of an unfinished copy instead of
// their own rows, the schema version among them. Rows go over in the order of keys and in transactions of a
// few hundred, so that a copy that was interrupted goes on behind the highest key of each table.
class Copier {
 public:
  // Both must outlive the copier; the source should show a snapshot. Throws ToolError when the target lacks
  // tables or columns.
  Copier(PracticeDatabase& source, PracticeDatabase& target);

  TargetState State();
  // Throws ToolError when the source is the target under another name, or an unfinished copy itself: whether
  // a note written to the one is seen in the other tells it, whatever the two are called.
  void RequireOther();
  // Rows of the target that were not made by its schema file.
  std::uint64_t RowsInTarget();

  // Has new keys of the target go on above those of the source. It comes before everything else: it does no
  // harm when copying then fails, and an account that has no right to do it changes nothing.
  void RaiseCounters();
  // Takes all rows out of the target.
  void Clear();
  // The settings are to be copied when the rows of all other tables have been found equal.
  enum class Part { kRows, kSettings };
  // From whatever is there, which must be a part of the same copy.
  void Copy(Part part, Progress& progress);
  void Verify(Part part, Progress& progress, Differences& differences);
  // Makes the target a practice.
  void Finish();

  std::uint64_t RowsInSource() const;
  const std::vector<CopiedTable>& Tables() const { return m_tables; }

 private:
  std::string Note() const;
  void WriteNote(const std::string& value);
  void DropNote();
  std::span<const Shape> ShapesIn(Part part) const;
  LONG HighestKey(const Shape& shape);
  void CopyTable(const Shape& shape, Progress& progress);
  void AsInTarget(const Shape& shape, Row& row) const;

  PracticeDatabase& m_source;
  PracticeDatabase& m_target;
  std::vector<Shape> m_shapes;
  std::vector<CopiedTable> m_tables;
};

#endif
