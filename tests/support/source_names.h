// Names for the data sources of practices.
#ifndef KYODBC_TESTS_SUPPORT_SOURCE_NAMES_H
#define KYODBC_TESTS_SUPPORT_SOURCE_NAMES_H

#include <string>

namespace support {

// A name that is not in use, for a practice of a kind; one that such a practice had before, when there is
// one.
// The driver manager remembers every option of every source it has met and searches them one by one: new
// names for ever would make each connection slower than the last. The same kind of practice has the same
// options under the same name, so that what is remembered is right.
std::string TakeSourceName(const std::string& kind);
void GiveSourceNameBack(const std::string& kind, const std::string& name);

}  // namespace support

#endif
