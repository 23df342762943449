/// @file macros_off.hpp
/// A function full of trace macros, compiled with the flag that makes them vanish.
#ifndef QUELMCL_TESTS_TRACE_MACROS_OFF_HPP
#define QUELMCL_TESTS_TRACE_MACROS_OFF_HPP

int sumTracedToNowhere(int a, int b);

#endif
