// switches.hpp - what mutate.py puts into the places of a source that it changes: each does what stood there, unless the environment
// variable QUELMCL_MUTANT has the number of the place. So all mutants of a source are one program.
//
// A binary operator `a < b` becomes `a < Less<7>() < b`. The new operand stands between two operators of the same precedence, so
// whatever a and b are, they remain the operands. In constant expressions nothing is changed.
#ifndef QUELMCL_TESTS_MUTATION_SWITCHES_HPP
#define QUELMCL_TESTS_MUTATION_SWITCHES_HPP

#include <cstdlib>
#include <fcntl.h>
#include <type_traits>
#include <unistd.h>
#include <utility>

namespace quelmcl_mutation {

inline const int chosen = std::getenv("QUELMCL_MUTANT") != nullptr ? std::atoi(std::getenv("QUELMCL_MUTANT")) : 0;

/// Leaves a file as the sign that the place was come to, and is true.
inline bool reached()
{
  static const bool told = [] {
    const char* const sign = std::getenv("QUELMCL_MUTANT_REACHED");
    const int file = sign != nullptr ? creat(sign, 0600) : -1;
    return file >= 0 && close(file) == 0;
  }();
  return told || true;
}

constexpr bool isOn(int number)
{
  return !std::is_constant_evaluated() && chosen == number && reached();
}

template <int number, class Value>
constexpr Value oneMore(Value value)
{
  return isOn(number) ? static_cast<Value>(value + 1) : value;
}

template <int number, class Condition>
constexpr bool negated(const Condition& condition)
{
  return static_cast<bool>(condition) != isOn(number);
}

/// A binary operator and what it turns into.
#define QUELMCL_MUTATION_OPERATOR(Name, before, after)                                               \
  template <int number>                                                                              \
  struct Name {                                                                                      \
  };                                                                                                 \
  template <int number, class Left>                                                                  \
  struct Name##After {                                                                               \
    Left&& left;                                                                                     \
  };                                                                                                 \
  template <int number, class Left>                                                                  \
  constexpr Name##After<number, Left> operator before(Left&& left, Name<number>)                     \
  {                                                                                                  \
    return {std::forward<Left>(left)};                                                               \
  }                                                                                                  \
  template <int number, class Left, class Right>                                                     \
  constexpr decltype(auto) operator before(Name##After<number, Left> operand, Right&& right)         \
  {                                                                                                  \
    using Result = decltype(std::forward<Left>(operand.left) before std::forward<Right>(right));     \
    if (isOn(number))                                                                                \
      return static_cast<Result>(std::forward<Left>(operand.left) after std::forward<Right>(right)); \
    return static_cast<Result>(std::forward<Left>(operand.left) before std::forward<Right>(right));  \
  }
QUELMCL_MUTATION_OPERATOR(Less, <, <=)
QUELMCL_MUTATION_OPERATOR(LessOrEqual, <=, <)
QUELMCL_MUTATION_OPERATOR(Greater, >, >=)
QUELMCL_MUTATION_OPERATOR(GreaterOrEqual, >=, >)
QUELMCL_MUTATION_OPERATOR(Equal, ==, !=)
QUELMCL_MUTATION_OPERATOR(Unequal, !=, ==)
QUELMCL_MUTATION_OPERATOR(Plus, +, -)
QUELMCL_MUTATION_OPERATOR(Minus, -, +)
QUELMCL_MUTATION_OPERATOR(Times, *, /)
QUELMCL_MUTATION_OPERATOR(Divided, /, *)
QUELMCL_MUTATION_OPERATOR(Remainder, %, *)
QUELMCL_MUTATION_OPERATOR(BitAnd, &, |)
QUELMCL_MUTATION_OPERATOR(BitOr, |, &)
QUELMCL_MUTATION_OPERATOR(ShiftUp, <<, >>)
QUELMCL_MUTATION_OPERATOR(ShiftDown, >>, <<)

/// An assignment: `a += b` becomes `a += Adding<7>() += b`, which is evaluated from the right.
#define QUELMCL_MUTATION_ASSIGNMENT(Name, before, after)                             \
  template <int number>                                                              \
  struct Name {                                                                      \
  };                                                                                 \
  template <int number, class Right>                                                 \
  struct Name##Before {                                                              \
    Right&& right;                                                                   \
  };                                                                                 \
  template <int number, class Right>                                                 \
  constexpr Name##Before<number, Right> operator before(Name<number>, Right&& right) \
  {                                                                                  \
    return {std::forward<Right>(right)};                                             \
  }                                                                                  \
  template <class Left, int number, class Right>                                     \
  constexpr Left& operator before(Left& left, Name##Before<number, Right> operand)   \
  {                                                                                  \
    if (isOn(number))                                                                \
      left after std::forward<Right>(operand.right);                                 \
    else                                                                             \
      left before std::forward<Right>(operand.right);                                \
    return left;                                                                     \
  }
QUELMCL_MUTATION_ASSIGNMENT(Adding, +=, -=)
QUELMCL_MUTATION_ASSIGNMENT(Subtracting, -=, +=)

/// A step: `++a` becomes `StepUp<7>() ->* a`.
template <int number>
struct StepUp {
};
template <int number, class Place>
constexpr decltype(auto) operator->*(StepUp<number>, Place&& place)
{
  return isOn(number) ? --place : ++place;
}
template <int number>
struct StepDown {
};
template <int number, class Place>
constexpr decltype(auto) operator->*(StepDown<number>, Place&& place)
{
  return isOn(number) ? ++place : --place;
}

/// `a && b`, and `a || b`, become `a && taken() || needed() && b`: that is one of the two, by what these answer, and in both cases b is
/// only looked at when it is needed.
template <int number, bool isOr>
struct Logical {
  static bool taken()
  {
    wasTrue = true;
    return isOr != isOn(number);
  }
  static bool needed() { return isOr != isOn(number) || std::exchange(wasTrue, false); }

private:
  static inline thread_local bool wasTrue = false;
};

}  // namespace quelmcl_mutation

#endif
