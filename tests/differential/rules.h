// Everything that is not the same on all databases, or that nobody promises. The list is meant to stay short.
#ifndef KYODBC_TESTS_DIFFERENTIAL_RULES_H
#define KYODBC_TESTS_DIFFERENTIAL_RULES_H

namespace differential {

// Facts of a database that change answers; the model is told them.
struct DatabaseFacts {
  bool like_ignores_case = false;    // LIKE takes A to Z for a to z
  bool nulls_last = false;           // in ascending order, so first in descending order
  bool midnight_after_date = false;  // a time of 00:00:00 is later than a date literal of that day
};

// Reasons why no answer can be foretold. A call that comes to one of them is not generated.
namespace reason {
// Databases return rows that the sort order does not set apart in any order.
constexpr char kNoOrder[] = "rows without an order";
// The key of the newest row is that of any of those with the same time.
constexpr char kNewestTie[] = "two newest rows";
// SQLite compares the text of a date that does not exist, the others refuse it.
constexpr char kImpossibleLiteral[] = "an impossible date in a condition";
// A backslash escapes in patterns of PostgreSQL and MariaDB, not of SQLite.
constexpr char kBackslashPattern[] = "a backslash in a pattern";
// LIKE on numbers and dates converts them as each database likes.
constexpr char kPatternOfNoText[] = "a pattern for a number or date";
// Text compared with a key or date: each database converts by its own rules.
constexpr char kSearchesNoText[] = "a search by text in an order of numbers";
// The count leaves the set on its first row with position -1; nobody says where a move leads from there.
constexpr char kCountBehindEnd[] = "a count behind the last row";
// Both ends passed and no row known: nobody says where a search starts.
constexpr char kSearchFromNowhere[] = "a search in a set that is closed or empty or past both ends";
// A view reports the deletion of a row that is gone as each database likes.
constexpr char kGoneRowOfView[] = "a row deleted through a view was gone";
// The place of a hidden patient is counted in the table, but taken in what the view showed before.
constexpr char kHiddenPatient[] = "a hidden patient has no certain place";
// The driver of PostgreSQL rolls the transaction back at a statement that is no SQL.
constexpr char kBrokenSqlInTransaction[] = "a statement that is no SQL in a transaction";
// Only a version that nobody has changed converts to a number known here.
constexpr char kChangedVersion[] = "the version of the practice was changed";
// An add may fail behind its insert. Then no set is read again, but one that was to be shows the row.
constexpr char kUntoldRow[] = "a row that was added and not told of, beside a set to be read again";
// Whether a record is touched before the missing connection is noticed.
constexpr char kRecordUnconnected[] = "a record is completed without a connection";
}  // namespace reason

}  // namespace differential

#endif
