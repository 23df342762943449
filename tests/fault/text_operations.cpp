// text_operations.cpp - words, number forms, templates, dates, times, streams.
#include "operations.hpp"

#include <cctype>

namespace faulttests {

namespace {

using Skip = IStringParser::SkipWords;

/// The stream from its beginning, with nothing written and no bad state.
std::iostream& freshStream(World& w)
{
  w.storage.rewind();
  w.stream.clear();
  return w.stream;
}

}  // namespace

const std::vector<Operation> textOperations = {
  // words
  {"NumWords", needsNone, [](World& w) { REQUIRE_OF(w, w.words.text.numWords() == 7); }},
  {"IndexOfWord", needsNone, [](World& w) { REQUIRE_OF(w, w.words.text.indexOfWord(2) == 10); }},
  {"LengthOfWord", needsNone, [](World& w) { REQUIRE_OF(w, w.words.text.lengthOfWord(2) == 5); }},
  {"Word", strong, [](World& w) { w.result = w.words.text.word(3); }},
  {"Words", strong, [](World& w) { w.result = w.words.text.words(2, 3); }},
  {"IndexOfPhrase", strong, [](World& w) { REQUIRE_OF(w, w.words.text.indexOfPhrase("5 delta") > 20); }},
  {"WordIndexOfPhrase", strong, [](World& w) { REQUIRE_OF(w, w.words.text.wordIndexOfPhrase("5 delta") == 5); }},
  {"IndexOfPhraseAlmostEverywhere", strong,
   [](World& w) {
     const IString text = IString::copy("a ", 900);
     REQUIRE_OF(w, text.indexOfPhrase(IString::copy("a ", 100) + "b") == 0);
   }},
  {"WordList", strong, [](World& w) { REQUIRE_OF(w, IWordList(w.words.text).count() == 7); }},
  {"RemoveWords", strong, [](World& w) { w.words.text.removeWords(2, 2); }},
  {"RemoveWordsToTheEnd", strong, [](World& w) { w.words.text.removeWords(3); }},
  {"Space", strong, [](World& w) { w.words.text.space(2, '_'); }},
  {"StaticRemoveWords", strong, [](World& w) { w.result = IString::removeWords(w.words.text, 2, 2); }},
  {"StaticSpace", strong, [](World& w) { w.result = IString::space(w.words.text, 3); }},
  // number forms
  {"BytesToBinary", strong, [](World& w) { w.bytes.text.c2b(); }},
  {"BytesToDecimal", strong, [](World& w) { w.bytes.text.c2d(); }},
  {"BytesToHexadecimal", strong, [](World& w) { w.bytes.text.c2x(); }},
  {"BinaryToBytes", strong, [](World& w) { w.binaryDigits.text.b2c(); }},
  {"BinaryToDecimal", strong, [](World& w) { w.binaryDigits.text.b2d(); }},
  {"BinaryToHexadecimal", strong, [](World& w) { w.binaryDigits.text.b2x(); }},
  {"DecimalToBytes", strong, [](World& w) { w.digits.text.d2c(); }},
  {"DecimalToBinary", strong, [](World& w) { w.digits.text.d2b(); }},
  {"DecimalToHexadecimal", strong, [](World& w) { w.digits.text.d2x(); }},
  {"HexadecimalToBytes", strong, [](World& w) { w.hexDigits.text.x2c(); }},
  {"HexadecimalToBinary", strong, [](World& w) { w.hexDigits.text.x2b(); }},
  {"HexadecimalToDecimal", strong, [](World& w) { w.hexDigits.text.x2d(); }},
  {"ManyDecimalDigitsToBytes", strong, [](World& w) { w.manyDigits.text.d2c(); }},
  {"ManyBytesToDecimal", strong, [](World& w) { w.manyBytes.text.c2d(); }},
  {"StaticBytesToHexadecimal", strong, [](World& w) { w.result = IString::c2x(w.bytes.text); }},
  {"StaticDecimalToBinary", strong, [](World& w) { w.result = IString::d2b(w.digits.text); }},
  {"StaticBytesToDecimal", strong, [](World& w) { w.result = IString::c2d(w.bytes.text); }},
  {"StaticHexadecimalToDecimal", strong, [](World& w) { w.result = IString::x2d(w.hexDigits.text); }},
  {"StaticBinaryToHexadecimal", strong, [](World& w) { w.result = IString::b2x(w.binaryDigits.text); }},
  {"NoDigitsToBytes", needsNone, [](World& w) { w.words.text.x2c(); }},
  // templates: variables reached before the failure have changed
  {"TemplateOfVariables", basic, [](World& w) { w.words.text >> w.first >> w.second >> w.third; }},
  {"TemplateOfPatterns", basic, [](World& w) { w.words.text >> w.first >> "gamma" >> w.second >> '\t' >> w.third; }},
  {"TemplateOfStrings", basic,
   [](World& w) {
     w.words.text >> w.first >> static_cast<const IString&>(w.argument) >> w.second >> IStringTest(isdigit) >> w.third;
   }},
  {"TemplateOfPositions", basic, [](World& w) { w.words.text >> w.first >> 4 >> w.second << 20 >> w.third; }},
  {"TemplateOfSkips", basic,
   [](World& w) { w.words.text >> Skip(2) >> w.first >> IStringParser::skipWord >> w.second; }},
  {"TemplateOfManyVariables", basic,
   [](World& w) {
     w.words.text >> w.first >> w.second >> w.third >> w.first >> w.second >> w.third >> w.first >> w.second >>
       w.third >> w.first >> w.second >> w.third >> IStringParser::reset >> w.third;
   }},
  // dates
  {"DateDayName", strong, [](World& w) { w.result = w.date.dayName(); }},
  {"DateMonthName", strong, [](World& w) { w.result = IDate::monthName(IDate::July); }},
  {"DateAsString", strongButForC, [](World& w) { w.result = w.date.asString(); }},
  {"DateAsStringWithFourDigits", strongButForC, [](World& w) { w.result = w.date.asString(IDate::fourDigitYear); }},
  {"DateFormatted", strongButForC, [](World& w) { w.result = w.date.asString("%A, %d %B %Y, day %j of the year"); }},
  {"DateFormattedAtLength", strongButForC,
   [](World& w) {
     w.result = w.date.asString("%c %c %c %c %c %c %c %c %c %c %c %c %c %c %c %c %c %c %c %c %c %c %c %c %c %c %c %c");
   }},
  {"DateParse", needsNone, [](World& w) { w.date = IDate::parse(w.dateText, "%Y-%m-%d") + 1; }},
  {"DateTryParse", needsNone, [](World& w) { REQUIRE_OF(w, IDate::tryParse(w.dateText, "%Y-%m-%d", w.date)); }},
  {"DateParseInVain", strongOrQuiet,
   [](World& w) {
     requireFailure<IInvalidParameter>(w, 1101, [&w] { w.date = IDate::parse(w.argument, "%Y-%m-%d"); });
   }},
  {"DateArithmetic", needsNone,
   [](World& w) { REQUIRE_OF(w, w.date + 366 - w.date == 366 && IDate(2024, 60) == w.date); }},
  {"DateToday", needsNone, [](World& w) { REQUIRE_OF(w, IDate::today() > w.date - 10000); }},
  {"DateToStream", strongButForC, [](World& w) { freshStream(w) << w.date; }},
  // times
  {"TimeAsString", strongButForC, [](World& w) { w.result = w.time.asString(); }},
  {"TimeFormatted", strongButForC, [](World& w) { w.result = w.time.asString("%H hours, %M minutes and %S seconds"); }},
  {"TimeParse", needsNone, [](World& w) { w.time = ITime::parse(w.timeText, "%H:%M:%S"); }},
  {"TimeTryParse", needsNone, [](World& w) { REQUIRE_OF(w, ITime::tryParse(w.timeText, "%H:%M:%S", w.time)); }},
  {"TimeParseInVain", strongOrQuiet,
   [](World& w) {
     requireFailure<IInvalidParameter>(w, 1102, [&w] { w.time = ITime::parse(w.argument, "%H:%M:%S"); });
   }},
  {"TimeToStream", strongButForC, [](World& w) { freshStream(w) << w.time; }},
  // streams: what was read is gone from the stream
  {"LineFromStream", basic,
   [](World& w) {
     IString::lineFrom(freshStream(w));
     w.result = IString::lineFrom(w.stream);
   }},
  {"WordFromStream", basic, [](World& w) { freshStream(w) >> w.words.text; }},
  {"StringToStream", needsNone, [](World& w) { freshStream(w) << w.words.text; }},
  {"ObjectToStream", basic, [](World& w) { freshStream(w) << static_cast<const IBase&>(w.date) << w.isVowel; }},
  // the texts of the roots
  {"BaseAsDebugInfo", strong, [](World& w) { static_cast<const IBase&>(w.date).asDebugInfo(); }},
  {"VirtualBaseAsString", strong, [](World& w) { w.result = w.isVowel.asString(); }},
  {"VirtualBaseAsDebugInfo", strong, [](World& w) { w.isVowel.asDebugInfo(); }},
};

}  // namespace faulttests
