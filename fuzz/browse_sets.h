// Every kind of browse set, closed and without a database.
#ifndef KYODBC_FUZZ_BROWSE_SETS_H
#define KYODBC_FUZZ_BROWSE_SETS_H

#include <cstddef>
#include <memory>

#include "recset/kyrecset.h"

namespace fuzz {

inline constexpr std::size_t kBrowseSets = 11;

// `kind`: 0 to kBrowseSets-1; the last is the view that has a filter of its own.
std::unique_ptr<CKyRecSet> MakeBrowseSet(std::size_t kind);

}  // namespace fuzz

#endif
