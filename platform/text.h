// Cutting and copying texts by bytes without splitting a character.
#ifndef KYODBC_PLATFORM_TEXT_H
#define KYODBC_PLATFORM_TEXT_H

#include <cstddef>

namespace text {

// The length of the longest prefix of `text` (`length` bytes) that has at most `limit` bytes and does not
// end inside a UTF-8 character. A text that ends before the limit is never shortened. Bytes that belong to
// no well-formed character (RFC 3629) stand for themselves: a lone separator byte 0xBB is never dropped.
// A sequence that is well-formed as far as the text goes counts as a character.
std::size_t CutLength(const char* text, std::size_t length, std::size_t limit);

// Fills a buffer of `size` bytes with at most size-1 bytes of `text`, cut as above, and a zero byte. The
// text ends at its zero byte, or after `length` bytes. Returns the number of bytes copied. The two may
// overlap. A null text is empty; nothing happens when `buffer` is null or `size` is 0.
std::size_t BoundedCopy(char* buffer, std::size_t size, const char* text, std::size_t length);

// The length of the text in a fixed field of `size` bytes: up to its zero byte. Of an unterminated field
// it is what BoundedCopy would have put there: at most size-1 bytes, not ending inside a character.
std::size_t FieldLength(const char* field, std::size_t size);

}  // namespace text

#endif
