// Makes an exported function that hands its call on: the parameters' types are those of the declaration in
// the ODBC headers, the number at the end of the macro is that of the parameters after the handle.
#ifndef KYODBC_FAULTDRIVER_HAND_ON_H
#define KYODBC_FAULTDRIVER_HAND_ON_H

#include <tuple>

#include "faultdriver/call.h"
#include "faultdriver/functions.h"

namespace kyfault {

template <class Function>
struct Parameters;
template <class... Types>
struct Parameters<SQLRETURN(Types...)> {
  template <std::size_t index>
  using At = std::tuple_element_t<index, std::tuple<Types...>>;
};
// The parameter number `index`, 0 being the handle.
template <class Function, std::size_t index>
using Parameter = typename Parameters<Function>::template At<index>;

}  // namespace kyfault

#define KYFAULT_EXPORT extern "C" __attribute__((visibility("default")))
#define KYFAULT_ARG(name, index) kyfault::Parameter<decltype(name), index> a##index

#define KYFAULT_HAND_ON_0(name, kind)                               \
  KYFAULT_EXPORT SQLRETURN name(KYFAULT_ARG(name, 0)) {             \
    return kyfault::Call(#name, a0, kind).HandOn<decltype(name)>(); \
  }
#define KYFAULT_HAND_ON_1(name, kind)                                         \
  KYFAULT_EXPORT SQLRETURN name(KYFAULT_ARG(name, 0), KYFAULT_ARG(name, 1)) { \
    return kyfault::Call(#name, a0, kind).HandOn<decltype(name)>(a1);         \
  }
#define KYFAULT_HAND_ON_2(name, kind)                                                               \
  KYFAULT_EXPORT SQLRETURN name(KYFAULT_ARG(name, 0), KYFAULT_ARG(name, 1), KYFAULT_ARG(name, 2)) { \
    return kyfault::Call(#name, a0, kind).HandOn<decltype(name)>(a1, a2);                           \
  }
#define KYFAULT_HAND_ON_3(name, kind)                                                             \
  KYFAULT_EXPORT SQLRETURN name(KYFAULT_ARG(name, 0), KYFAULT_ARG(name, 1), KYFAULT_ARG(name, 2), \
                                KYFAULT_ARG(name, 3)) {                                           \
    return kyfault::Call(#name, a0, kind).HandOn<decltype(name)>(a1, a2, a3);                     \
  }
#define KYFAULT_HAND_ON_4(name, kind)                                                             \
  KYFAULT_EXPORT SQLRETURN name(KYFAULT_ARG(name, 0), KYFAULT_ARG(name, 1), KYFAULT_ARG(name, 2), \
                                KYFAULT_ARG(name, 3), KYFAULT_ARG(name, 4)) {                     \
    return kyfault::Call(#name, a0, kind).HandOn<decltype(name)>(a1, a2, a3, a4);                 \
  }
#define KYFAULT_HAND_ON_5(name, kind)                                                               \
  KYFAULT_EXPORT SQLRETURN name(KYFAULT_ARG(name, 0), KYFAULT_ARG(name, 1), KYFAULT_ARG(name, 2),   \
                                KYFAULT_ARG(name, 3), KYFAULT_ARG(name, 4), KYFAULT_ARG(name, 5)) { \
    return kyfault::Call(#name, a0, kind).HandOn<decltype(name)>(a1, a2, a3, a4, a5);               \
  }
#define KYFAULT_HAND_ON_6(name, kind)                                                             \
  KYFAULT_EXPORT SQLRETURN name(KYFAULT_ARG(name, 0), KYFAULT_ARG(name, 1), KYFAULT_ARG(name, 2), \
                                KYFAULT_ARG(name, 3), KYFAULT_ARG(name, 4), KYFAULT_ARG(name, 5), \
                                KYFAULT_ARG(name, 6)) {                                           \
    return kyfault::Call(#name, a0, kind).HandOn<decltype(name)>(a1, a2, a3, a4, a5, a6);         \
  }
#define KYFAULT_HAND_ON_8(name, kind)                                                               \
  KYFAULT_EXPORT SQLRETURN name(KYFAULT_ARG(name, 0), KYFAULT_ARG(name, 1), KYFAULT_ARG(name, 2),   \
                                KYFAULT_ARG(name, 3), KYFAULT_ARG(name, 4), KYFAULT_ARG(name, 5),   \
                                KYFAULT_ARG(name, 6), KYFAULT_ARG(name, 7), KYFAULT_ARG(name, 8)) { \
    return kyfault::Call(#name, a0, kind).HandOn<decltype(name)>(a1, a2, a3, a4, a5, a6, a7, a8);   \
  }
#define KYFAULT_HAND_ON_9(name, kind)                                                                 \
  KYFAULT_EXPORT SQLRETURN name(KYFAULT_ARG(name, 0), KYFAULT_ARG(name, 1), KYFAULT_ARG(name, 2),     \
                                KYFAULT_ARG(name, 3), KYFAULT_ARG(name, 4), KYFAULT_ARG(name, 5),     \
                                KYFAULT_ARG(name, 6), KYFAULT_ARG(name, 7), KYFAULT_ARG(name, 8),     \
                                KYFAULT_ARG(name, 9)) {                                               \
    return kyfault::Call(#name, a0, kind).HandOn<decltype(name)>(a1, a2, a3, a4, a5, a6, a7, a8, a9); \
  }
#define KYFAULT_HAND_ON_10(name, kind)                                                                     \
  KYFAULT_EXPORT SQLRETURN name(KYFAULT_ARG(name, 0), KYFAULT_ARG(name, 1), KYFAULT_ARG(name, 2),          \
                                KYFAULT_ARG(name, 3), KYFAULT_ARG(name, 4), KYFAULT_ARG(name, 5),          \
                                KYFAULT_ARG(name, 6), KYFAULT_ARG(name, 7), KYFAULT_ARG(name, 8),          \
                                KYFAULT_ARG(name, 9), KYFAULT_ARG(name, 10)) {                             \
    return kyfault::Call(#name, a0, kind).HandOn<decltype(name)>(a1, a2, a3, a4, a5, a6, a7, a8, a9, a10); \
  }
#define KYFAULT_HAND_ON_12(name, kind)                                                              \
  KYFAULT_EXPORT SQLRETURN name(KYFAULT_ARG(name, 0), KYFAULT_ARG(name, 1), KYFAULT_ARG(name, 2),   \
                                KYFAULT_ARG(name, 3), KYFAULT_ARG(name, 4), KYFAULT_ARG(name, 5),   \
                                KYFAULT_ARG(name, 6), KYFAULT_ARG(name, 7), KYFAULT_ARG(name, 8),   \
                                KYFAULT_ARG(name, 9), KYFAULT_ARG(name, 10), KYFAULT_ARG(name, 11), \
                                KYFAULT_ARG(name, 12)) {                                            \
    return kyfault::Call(#name, a0, kind)                                                           \
        .HandOn<decltype(name)>(a1, a2, a3, a4, a5, a6, a7, a8, a9, a10, a11, a12);                 \
  }

#endif
