// string_operations.cpp - IString and I0String: construction, access, tests, searches, editing, joining.
#include "operations.hpp"

#include <cctype>

namespace faulttests {

const std::vector<Operation> stringOperations = {
  // construction and assignment
  {"StringFromText", strong, [](World& w) { w.result = IString("a text"); }},
  {"StringFromNothing", needsNone, [](World& w) { w.result = IString(); }},
  {"StringFromNullPointer", needsNone, [](World& w) { w.result = IString(static_cast<const char*>(nullptr)); }},
  {"StringFromCharacter", strong, [](World& w) { w.result = IString('c'); }},
  {"StringFromInt", strong, [](World& w) { w.result = IString(-12345); }},
  {"StringFromUnsignedLong", strong, [](World& w) { w.result = IString(4294967295ul); }},
  {"StringFromLongLong", strong, [](World& w) { w.result = IString(-9223372036854775807ll); }},
  {"StringFromDouble", strong, [](World& w) { w.result = IString(1.5e300); }},
  {"StringFromOnePiece", strong, [](World& w) { w.result = IString(nullptr, 9u, '*'); }},
  {"StringFromTwoPieces", strong, [](World& w) { w.result = IString("ab", 2u, nullptr, 3u, '*'); }},
  {"StringFromThreePieces", strong, [](World& w) { w.result = IString("ab", 2u, "c", 1u, "def", 3u); }},
  {"StringCopy", needsNone, [](World& w) { w.result = IString(w.words.text); }},
  {"StringAssignment", needsNone, [](World& w) { w.second = w.words.text; }},
  {"StringMove", needsNone, [](World& w) { w.second = std::move(w.words.text); }},
  {"StringAssignmentOfText", strong, [](World& w) { w.words.text = "another text"; }},
  {"StringAssignmentOfItsOwnText", strong, [](World& w) { w.words.text = static_cast<const char*>(w.words.text) + 3; }},
  {"StringAssignmentOfNumber", strong, [](World& w) { w.words.text = 77; }},
  // access
  {"StringAsDebugInfo", strong, [](World& w) { w.words.text.asDebugInfo(); }},
  {"StringAsNumbers", needsNone,
   [](World& w) {
     REQUIRE_OF(w, w.digits.text.asInt() != 0);
     REQUIRE_OF(w, w.digits.text.asUnsigned() != 0);
     REQUIRE_OF(w, w.digits.text.asDouble() > 1e50);
   }},
  {"StringIndexToWrite", strongOrQuiet, [](World& w) { w.words.text[4u] = 'X'; }},
  {"StringIndexToWritePastTheEnd", strong, [](World& w) { w.words.text[90u] = 'X'; }},
  {"StringIndexToWriteNegative", quiet,
   [](World& w) { requireFailure<IInvalidRequest>(w, 1011, [&w] { w.words.text[-1] = 'X'; }); }},
  {"StringIndexToReadPastTheEnd", quiet,
   [](World& w) {
     requireFailure<IInvalidRequest>(w, 1011,
                                     [&w] { static_cast<void>(static_cast<const IString&>(w.words.text)[99u]); });
   }},
  {"StringSubStringToTheEnd", strong, [](World& w) { w.result = w.words.text.subString(6); }},
  {"StringSubStringFromZero", strong, [](World& w) { w.result = w.words.text.subString(0); }},
  {"StringSubStringInside", strong, [](World& w) { w.result = w.words.text.subString(3, 10); }},
  {"StringSubStringWithPadding", strong, [](World& w) { w.result = w.words.text.subString(30, 50, '.'); }},
  {"StringSubStringEmpty", needsNone, [](World& w) { w.result = w.words.text.subString(30, 0); }},
  {"StringTooLong", quiet,
   [](World& w) {
     requireFailure<IInvalidRequest>(w, 1010, [&w] { w.result = w.words.text.subString(1, 4294967290u); });
   }},
  // tests
  {"StringClasses", needsNone,
   [](World& w) {
     REQUIRE_OF(w, !w.words.text.isAlphanumeric() && !w.words.text.isAlphabetic() && !w.words.text.isASCII());
     REQUIRE_OF(w, !w.words.text.isControl() && w.digits.text.isDigits() && !w.words.text.isGraphics());
     REQUIRE_OF(w, w.hexDigits.text.isHexDigits() && w.argument.isLowerCase() && w.argument.isPrintable());
     REQUIRE_OF(w, !w.argument.isPunctuation() && !w.argument.isUpperCase() && !w.argument.isWhiteSpace());
     REQUIRE_OF(w, w.binaryDigits.text.isBinaryDigits() && !w.words.text.isMBCS() && w.argument.isSBCS());
     w.words.text.isValidMBCS();
     w.words.text.includesMBCS();
     REQUIRE_OF(w, w.words.text.includesSBCS());
     w.words.text.charType(2);
   }},
  {"StringIsLike", needsNone, [](World& w) { REQUIRE_OF(w, w.words.text.isLike(w.pattern)); }},
  {"StringIsAbbreviationFor", needsNone, [](World& w) { REQUIRE_OF(w, w.argument.isAbbreviationFor("alphabet")); }},
  {"StringComparison", needsNone,
   [](World& w) {
     REQUIRE_OF(w, w.words.text != w.argument && w.words.text < w.argument && "a" < w.argument);
     REQUIRE_OF(w, w.argument == "alpha" && w.argument >= "alpha");
   }},
  // searching
  {"StringSearches", needsNone,
   [](World& w) {
     REQUIRE_OF(w, w.words.text.indexOf(w.argument) == 3 && w.words.text.indexOf("alpha", 4) > 4);
     REQUIRE_OF(w, w.words.text.indexOf(',') == 8 && w.words.text.indexOf(isdigit) != 0);
     REQUIRE_OF(w, w.words.text.lastIndexOf(w.argument) > 4 && w.words.text.lastIndexOf("zz") == 0);
     REQUIRE_OF(w, w.words.text.occurrencesOf(w.argument) == 2 && w.words.text.occurrencesOf(isdigit) == 1);
   }},
  {"StringSearchesForSets", needsNone,
   [](World& w) {
     REQUIRE_OF(w, w.words.text.indexOfAnyOf(w.set) == 3 && w.words.text.indexOfAnyBut(" ") == 3);
     REQUIRE_OF(w, w.words.text.lastIndexOfAnyOf(w.set) != 0 && w.words.text.lastIndexOfAnyBut(' ') != 0);
     REQUIRE_OF(w, w.words.text.indexOfAnyOf(w.isVowel) == 3 && w.words.text.lastIndexOfAnyBut(w.isVowel) != 0);
   }},
  {"StringSearchesForManyCharacters", needsNone,
   [](World& w) {
     REQUIRE_OF(w, w.words.text.indexOfAnyOf(w.words.text) == 1 && w.words.text.indexOfAnyBut(w.words.text) == 0);
     REQUIRE_OF(w, w.words.text.lastIndexOfAnyOf("\xC3\xA9\xE2\x82\xAC") != 0);
   }},
  // editing
  {"StringCenter", strong, [](World& w) { w.words.text.center(80, '*'); }},
  {"StringCenterCutting", strong, [](World& w) { w.words.text.center(20); }},
  {"StringCenterToItsLength", needsNone, [](World& w) { w.words.text.center(w.words.text.length()); }},
  {"StringChangeToLonger", strong, [](World& w) { w.words.text.change(w.argument, "a longer text"); }},
  {"StringChangeToShorter", strong, [](World& w) { w.words.text.change("alpha", "a"); }},
  {"StringChangeToEquallyLong", strongOrQuiet, [](World& w) { w.words.text.change(w.argument, "ALPHA"); }},
  {"StringChangeOfNothing", needsNone, [](World& w) { w.words.text.change("zzz", w.argument); }},
  {"StringChangeOfAPartOfItself",
   strong,
   [](World& w) { w.words.text.change(static_cast<const char*>(w.words.text) + 30, w.longArgument); }},
  {"StringChangeByItself",
   strong,
   [](World& w) { w.words.text.change("a", static_cast<const char*>(w.words.text)); }},
  {"StringCopyOften", strong, [](World& w) { w.words.text.copy(7); }},
  {"StringCopyNever", needsNone, [](World& w) { w.words.text.copy(0); }},
  {"StringInsert", strong, [](World& w) { w.words.text.insert(w.argument, 5); }},
  {"StringInsertPastTheEnd", strong, [](World& w) { w.words.text.insert("text", 90, '.'); }},
  {"StringInsertOfItself", strong, [](World& w) { w.words.text.insert(w.words.text, 5); }},
  {"StringLeftJustify", strong, [](World& w) { w.words.text.leftJustify(70, '.'); }},
  {"StringLeftJustifyCutting", strong, [](World& w) { w.words.text.leftJustify(11); }},
  {"StringLowerCase", strongOrQuiet, [](World& w) { w.hexDigits.text.lowerCase(); }},
  {"StringOverlayWith", strong, [](World& w) { w.words.text.overlayWith(w.longArgument, 6); }},
  {"StringOverlayInside", strong, [](World& w) { w.words.text.overlayWith("xyz", 13); }},
  {"StringOverlayPastTheEnd", strong, [](World& w) { w.words.text.overlayWith("xyz", 60, '.'); }},
  {"StringRemoveToTheEnd", strong, [](World& w) { w.words.text.remove(12); }},
  {"StringRemoveInside", strong, [](World& w) { w.words.text.remove(4, 9); }},
  {"StringRemoveAll", needsNone, [](World& w) { w.words.text.remove(1); }},
  {"StringReverse", strongOrQuiet, [](World& w) { w.words.text.reverse(); }},
  {"StringRightJustify", strong, [](World& w) { w.words.text.rightJustify(70, '.'); }},
  {"StringRightJustifyCutting", strong, [](World& w) { w.words.text.rightJustify(11); }},
  {"StringStrip", strong, [](World& w) { w.words.text.strip(); }},
  {"StringStripCharacter", strong, [](World& w) { w.words.text.strip(' '); }},
  {"StringStripSet", strong, [](World& w) { w.words.text.strip(IString(" a"), IStringEnum::both); }},
  {"StringStripTest", strong, [](World& w) { w.words.text.strip(isspace); }},
  {"StringStripLeading", strong, [](World& w) { w.words.text.stripLeading(" a"); }},
  {"StringStripTrailing", strong, [](World& w) { w.words.text.stripTrailing(); }},
  {"StringTranslate", strongOrQuiet, [](World& w) { w.words.text.translate("abg", w.set); }},
  {"StringTranslateByPadding", strongOrQuiet, [](World& w) { w.words.text.translate(w.set, "", '.'); }},
  {"StringUpperCase", strongOrQuiet, [](World& w) { w.words.text.upperCase(); }},
  // the static forms
  {"StaticCenter", strong, [](World& w) { w.result = IString::center(w.words.text, 80); }},
  {"StaticChange", strong, [](World& w) { w.result = IString::change(w.words.text, "alpha", "zz"); }},
  {"StaticCopy", strong, [](World& w) { w.result = IString::copy(w.words.text, 3); }},
  {"StaticInsert", strong, [](World& w) { w.result = IString::insert(w.words.text, "alpha", 5); }},
  {"StaticLeftJustify", strong, [](World& w) { w.result = IString::leftJustify(w.words.text, 70); }},
  {"StaticLowerCase", strong, [](World& w) { w.result = IString::lowerCase(w.hexDigits.text); }},
  {"StaticOverlayWith", strong, [](World& w) { w.result = IString::overlayWith(w.words.text, "alpha", 5); }},
  {"StaticRemove", strong, [](World& w) { w.result = IString::remove(w.words.text, 5, 3); }},
  {"StaticReverse", strong, [](World& w) { w.result = IString::reverse(w.words.text); }},
  {"StaticRightJustify", strong, [](World& w) { w.result = IString::rightJustify(w.words.text, 70); }},
  {"StaticStrip", strong, [](World& w) { w.result = IString::strip(w.words.text, " a"); }},
  {"StaticStripLeading", strong, [](World& w) { w.result = IString::stripLeading(w.words.text); }},
  {"StaticStripTrailing", strong, [](World& w) { w.result = IString::stripTrailing(w.words.text, isspace); }},
  {"StaticTranslate", strong, [](World& w) { w.result = IString::translate(w.words.text, "ab", "xy"); }},
  {"StaticUpperCase", strong, [](World& w) { w.result = IString::upperCase(w.words.text); }},
  // joining and bits
  {"StringPlusString", strong, [](World& w) { w.result = w.words.text + w.argument; }},
  {"StringPlusText", strong, [](World& w) { w.result = w.words.text + "text"; }},
  {"TextPlusString", strong, [](World& w) { w.result = "text" + w.words.text; }},
  {"StringPlusCharacter", strong, [](World& w) { w.result = w.words.text + 'c'; }},
  {"StringAppended", strong, [](World& w) { w.words.text += w.longArgument; }},
  {"StringAppendedToItself", strong, [](World& w) { w.words.text += w.words.text; }},
  {"StringAppendedText", strong, [](World& w) { w.words.text += "text"; }},
  {"StringChainOfSums", strong, [](World& w) { w.words.text = "<" + w.words.text + w.argument + ">" + w.words.text; }},
  {"StringAnd", strong, [](World& w) { w.result = w.words.text & w.argument; }},
  {"StringOr", strong, [](World& w) { w.result = w.words.text | "text"; }},
  {"StringExclusiveOr", strong, [](World& w) { w.result = "text" ^ w.words.text; }},
  {"TextAndString", strong, [](World& w) { w.result = "text" & w.words.text; }},
  {"StringOrString", strong, [](World& w) { w.result = w.words.text | w.longArgument; }},
  {"StringExclusiveOrString", strong, [](World& w) { w.result = w.words.text ^ w.argument; }},
  {"StringComplement", strong, [](World& w) { w.result = ~w.words.text; }},
  {"StringAndInPlace", strongOrQuiet, [](World& w) { w.words.text &= w.argument; }},
  {"StringOrInPlace", strongOrQuiet, [](World& w) { w.words.text |= "text"; }},
  {"StringExclusiveOrByItself", strongOrQuiet,
   [](World& w) { w.words.text ^= static_cast<const char*>(w.words.text) + 1; }},
  // positions from 0
  {"ZeroBasedFromText", strong, [](World& w) { w.result = I0String("a text"); }},
  {"ZeroBasedFromPieces", strong, [](World& w) { w.result = I0String("ab", 2u, nullptr, 3u, '*'); }},
  {"ZeroBasedCopy", needsNone, [](World& w) { w.result = I0String(w.zeroBased.text); }},
  {"ZeroBasedSearches", needsNone,
   [](World& w) {
     REQUIRE_OF(w, w.zeroBased.text.indexOf(w.argument) == 2 && w.zeroBased.text.indexOf("zz") == I0String::notFound);
     REQUIRE_OF(w, w.zeroBased.text.lastIndexOfAnyOf(w.set) != I0String::notFound);
   }},
  {"ZeroBasedSubString", strong, [](World& w) { w.result = w.zeroBased.text.subString(5, 9); }},
  {"ZeroBasedIndexToWrite", strongOrQuiet, [](World& w) { w.zeroBased.text[4u] = 'X'; }},
  {"ZeroBasedIndexOfPhrase", strong, [](World& w) { REQUIRE_OF(w, w.zeroBased.text.indexOfPhrase("alpha") != 2); }},
  {"ZeroBasedChange", strong, [](World& w) { w.zeroBased.text.change(w.argument, "a longer text"); }},
  {"ZeroBasedInsert", strong, [](World& w) { w.zeroBased.text.insert("text", 3); }},
  {"ZeroBasedOverlayWith", strong, [](World& w) { w.zeroBased.text.overlayWith(w.longArgument, 3); }},
  {"ZeroBasedRemove", strong, [](World& w) { w.zeroBased.text.remove(5, 4); }},
  {"ZeroBasedIndexToWriteNegative",
   quiet,
   [](World& w) { requireFailure<IInvalidRequest>(w, 1011, [&w] { w.zeroBased.text[-2] = 'X'; }); }},
  {"ZeroBasedSubStringToTheEnd", strong, [](World& w) { w.result = w.zeroBased.text.subString(5); }},
  {"ZeroBasedRemoveToTheEnd", strong, [](World& w) { w.zeroBased.text.remove(5); }},
  {"ZeroBasedStaticChange", strong, [](World& w) { w.result = I0String::change(w.zeroBased.text, "alpha", "zz"); }},
  {"ZeroBasedStaticOverlayWith", strong, [](World& w) { w.result = I0String::overlayWith(w.zeroBased.text, "zz", 7); }},
  {"ZeroBasedStaticRemove", strong, [](World& w) { w.result = I0String::remove(w.zeroBased.text, 5, 4); }},
  {"ZeroBasedStaticInsert", strong, [](World& w) { w.result = I0String::insert(w.zeroBased.text, "text", 3); }},
};

}  // namespace faulttests
