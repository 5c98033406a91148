// Words that pack up to four entries, one per byte, least significant first: fields and operators of a
// filter, keys of a sort order.
#ifndef KYODBC_RECSET_PACKED_WORD_H
#define KYODBC_RECSET_PACKED_WORD_H

#include "platform/types.h"

namespace packed {

inline constexpr int kSlots = 4;

inline DWORD Byte(LONG word, int slot) { return (static_cast<DWORD>(word) >> (8 * slot)) & 0xFF; }
// A field id or an operator; 0 ends a list of fields.
inline LONG Entry(LONG word, int slot) { return static_cast<LONG>(Byte(word, slot) & 0x7F); }
// The top bit: OR in a filter, descending in a sort order.
inline bool Flagged(LONG word, int slot) { return (Byte(word, slot) & 0x80) != 0; }

}  // namespace packed

#endif
