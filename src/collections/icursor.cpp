// icursor.cpp - ICursor: its virtual table stands here.
// Tests: tests/collections/typed_sequence_test.cpp
#include <quelmcl/icursor.hpp>

#include "exceptions/startup.hpp"

QUELMCL_KEEP_START_UP

ICursor::~ICursor() = default;
