// icursor.cpp - ICursor: its virtual table stands here.
// Tests: tests/collections/typed_sequence_test.cpp
#include <quelmcl/icursor.hpp>

ICursor::~ICursor() = default;
