#pragma once

#include <type_traits>

/// Switches that scripts/mutate writes into a copy of the sources, one for each change, so that one
/// program holds them all and none needs a compiler of its own. A switch that is off leaves an
/// expression what it was. Where the compiler computes (a constant, the size of an array) a switch
/// is always off, and never counts as reached.
namespace brivane::mutation {

extern int active;               ///< number of the one change that is on, -1 for none
extern unsigned char reached[];  ///< for each change: 1 once run through, 2 where it cannot compile

inline bool On(int id) {
  reached[id] |= 1;
  return id == active;
}

inline void CannotCompile(int id) { reached[id] = 2; }

/// A number or a truth value.
template <int kId, class T, class U>
constexpr T Value(T value, U other) {
  if (!std::is_constant_evaluated() && On(kId)) return static_cast<T>(other);
  return value;
}

/// Stands behind an operator, which is written once more behind it: a < Change<7>{} < b. Thus both
/// operands stay what the language's own precedence makes them.
template <int kId>
struct Change {};

template <int kId, class T>
struct Operand {
  T&& value;
};

#define BRIVANE_BINARY_SWITCH(from, to)                                                        \
  template <int kId, class L>                                                                  \
  constexpr Operand<kId, L> operator from(L&& left, Change<kId>) {                             \
    return {static_cast<L&&>(left)};                                                           \
  }                                                                                            \
  template <int kId, class L, class R>                                                         \
  constexpr auto operator from(Operand<kId, L> left, R&& right)                                \
      ->decltype(static_cast<L&&>(left.value) from static_cast<R&&>(right)) {                  \
    using Result = decltype(static_cast<L&&>(left.value) from static_cast<R&&>(right));        \
    if (!std::is_constant_evaluated()) {                                                       \
      if constexpr (requires {                                                                 \
                      static_cast<Result>(static_cast<L&&>(left.value)                         \
                                              to static_cast<R&&>(right));                     \
                    }) {                                                                       \
        if (On(kId))                                                                           \
          return static_cast<Result>(static_cast<L&&>(left.value) to static_cast<R&&>(right)); \
      } else {                                                                                 \
        CannotCompile(kId);                                                                    \
      }                                                                                        \
    }                                                                                          \
    return static_cast<L&&>(left.value) from static_cast<R&&>(right);                          \
  }
BRIVANE_BINARY_SWITCH(<, <=)
BRIVANE_BINARY_SWITCH(<=, <)
BRIVANE_BINARY_SWITCH(>, >=)
BRIVANE_BINARY_SWITCH(>=, >)
BRIVANE_BINARY_SWITCH(==, !=)
BRIVANE_BINARY_SWITCH(!=, ==)
BRIVANE_BINARY_SWITCH(+, -)
BRIVANE_BINARY_SWITCH(-, +)
BRIVANE_BINARY_SWITCH(*, /)
BRIVANE_BINARY_SWITCH(/, *)
#undef BRIVANE_BINARY_SWITCH

/// The same for a += Change<7>{} += b, which groups from the right.
#define BRIVANE_ASSIGNING_SWITCH(from, to)                                 \
  template <int kId, class R>                                              \
  constexpr Operand<kId, R> operator from(Change<kId>, R&& right) {        \
    return {static_cast<R&&>(right)};                                      \
  }                                                                        \
  template <int kId, class L, class R>                                     \
  constexpr decltype(auto) operator from(L& left, Operand<kId, R> right) { \
    if (!std::is_constant_evaluated()) {                                   \
      if constexpr (requires { left to static_cast<R&&>(right.value); }) { \
        if (On(kId)) return left to static_cast<R&&>(right.value);         \
      } else {                                                             \
        CannotCompile(kId);                                                \
      }                                                                    \
    }                                                                      \
    return left from static_cast<R&&>(right.value);                        \
  }
BRIVANE_ASSIGNING_SWITCH(+=, -=)
BRIVANE_ASSIGNING_SWITCH(-=, +=)
#undef BRIVANE_ASSIGNING_SWITCH

/// Before<7>{}->*a for ++a, a->*After<7>{} for a++: up, or down where switched.
template <int kId>
struct Before {};
template <int kId>
struct After {};

template <int kId, class T>
constexpr T& operator->*(Before<kId>, T& value) {
  if constexpr (requires { --value; }) {
    if (!std::is_constant_evaluated() && On(kId)) return --value;
  } else if (!std::is_constant_evaluated()) {
    CannotCompile(kId);
  }
  return ++value;
}

template <int kId, class T>
constexpr T operator->*(T& value, After<kId>) {
  T before = value;
  Before<kId>{}->*value;
  return before;
}

/// The operands of "&&" and "||" as functions: the second is not asked where the first decides.
template <int kId, class L, class R>
constexpr bool Both(L left, R right) {
  if (!std::is_constant_evaluated() && On(kId)) return left() || right();
  return left() && right();
}

template <int kId, class L, class R>
constexpr bool Either(L left, R right) {
  if (!std::is_constant_evaluated() && On(kId)) return left() && right();
  return left() || right();
}

}  // namespace brivane::mutation
