// buffer_operations.cpp - IBuffer and IDBCSBuffer, as those who extend the library call them.
#include "operations.hpp"

#include <cctype>

namespace faulttests {

namespace {

IBuffer& bufferOf(const World& w)
{
  return *World::bufferOf(w.words.text);
}

}  // namespace

const std::vector<Operation> bufferOperations = {
  {"BufferAllocate", strong,
   [](World& w) {
     IBuffer* const made = bufferOf(w).allocate(3);
     made->contents()[0] = made->contents()[1] = made->contents()[2] = 'x';
     w.result.take(made);
   }},
  {"BufferNewBuffer", strong, [](World& w) { w.result.take(bufferOf(w).newBuffer("ab", 2, nullptr, 3, "c", 1, '*')); }},
  {"BufferNewBufferOfNothing", needsNone,
   [](World& w) { w.result.take(bufferOf(w).newBuffer("", 0, "", 0, "", 0, ' ')); }},
  {"BufferNewBufferTooLong", quiet,
   [](World& w) {
     requireFailure<IInvalidRequest>(w, 1010,
                                     [&w] { bufferOf(w).newBuffer("", 4000000000u, "", 4000000000u, "", 0, ' '); });
   }},
  {"BufferOverflow", quiet, [](World& w) { requireFailure<IInvalidRequest>(w, 1010, [] { IBuffer::overflow(); }); }},
  {"BufferSubString", strong, [](World& w) { w.result.take(bufferOf(w).subString(4, 60, '.')); }},
  {"BufferCenter", strong, [](World& w) { w.result.take(bufferOf(w).center(70, '.')); }},
  {"BufferChange", strong, [](World& w) { w.result.take(bufferOf(w).change("alpha", 5, "a", 1, 1, 9)); }},
  {"BufferChangeOfNothing", needsNone, [](World& w) { w.result.take(bufferOf(w).change("zz", 2, "a", 1, 1, 9)); }},
  {"BufferCopy", strong, [](World& w) { w.result.take(bufferOf(w).copy(5)); }},
  {"BufferInsert", strong, [](World& w) { w.result.take(bufferOf(w).insert("text", 4, 70, '.')); }},
  {"BufferLeftJustify", strong, [](World& w) { w.result.take(bufferOf(w).leftJustify(70, '.')); }},
  {"BufferLowerCase", strongOrQuiet, [](World& w) { w.result.take(World::bufferOf(w.hexDigits.text)->lowerCase()); }},
  {"BufferOverlayWith", strong, [](World& w) { w.result.take(bufferOf(w).overlayWith("text", 4, 70, '.')); }},
  {"BufferRemove", strong, [](World& w) { w.result.take(bufferOf(w).remove(5, 3)); }},
  {"BufferReverse", strongOrQuiet, [](World& w) { w.result.take(bufferOf(w).reverse()); }},
  {"BufferRightJustify", strong, [](World& w) { w.result.take(bufferOf(w).rightJustify(70, '.')); }},
  {"BufferStrip", strong, [](World& w) { w.result.take(bufferOf(w).strip(" a", 2, IStringEnum::both)); }},
  {"BufferStripTest", strong,
   [](World& w) { w.result.take(bufferOf(w).strip(IStringTest(isspace), IStringEnum::leading)); }},
  {"BufferTranslate", strongOrQuiet, [](World& w) { w.result.take(bufferOf(w).translate("ab", 2, "xy", 2, ' ')); }},
  {"BufferUpperCase", strongOrQuiet, [](World& w) { w.result.take(bufferOf(w).upperCase()); }},
  {"BufferAsDebugInfo", strong, [](World& w) { bufferOf(w).asDebugInfo(); }},
  {"BufferSearches", needsNone,
   [](World& w) {
     REQUIRE_OF(w, bufferOf(w).indexOf("alpha", 5, 1) == 3);
     REQUIRE_OF(w, bufferOf(w).lastIndexOf("alpha", 5, 99) > 3);
     REQUIRE_OF(w, bufferOf(w).indexOfAnyOf("\xE2\x82\xAC", 3, 1) > 3);
     REQUIRE_OF(w, bufferOf(w).lastIndexOfAnyBut(" ", 1, 99) > 3);
   }},
};

}  // namespace faulttests
