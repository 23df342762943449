/// @file world.hpp
/// A World holds the objects that the operations of the table work on: one of each kind, and others that share their texts.
#ifndef QUELMCL_TESTS_FAULT_WORLD_HPP
#define QUELMCL_TESTS_FAULT_WORLD_HPP

#include <quelmcl/quelmcl.hpp>

#include <gtest/gtest.h>

#include <iostream>
#include <streambuf>
#include <string>
#include <vector>

namespace faulttests {

/// Whether the texts that operations change are held by a second string as well. Operations may edit in place where they are not.
enum Sharing { alone, shared };

/// A text, and the string that shares it, or holds nothing.
template <class String>
struct TextWithSharer {
  TextWithSharer(const std::string& bytes, Sharing sharing) : text(bytes.data(), bytes.size())
  {
    if (sharing == shared)
      sharer = text;
  }
  String text;
  String sharer;
};

/// A stream's storage that needs no heap: a given text to read, and some room to write to.
class FixedStorage : public std::streambuf {
public:
  explicit FixedStorage(const char* text) : toRead(text) { rewind(); }
  void rewind();
  std::string written() const { return std::string(pbase(), pptr()); }

private:
  std::string toRead;
  char output[512];
};

/// A string that takes over what an operation of a buffer gives.
class Result : public IString {
public:
  void take(IBuffer* given)
  {
    buffer()->removeRef();
    setBuffer(given);
  }
  using IString::operator=;
};

class World {
public:
  explicit World(Sharing sharing);
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  TextWithSharer<IString> words, bytes, digits, manyDigits, hexDigits, binaryDigits, manyBytes;
  TextWithSharer<I0String> zeroBased;
  IString argument, longArgument, set, pattern, dateText, timeText;
  IString first, second, third;  // what a template fills
  Result result;                 // what an operation gives

  ILinkedSequence<IString> names, otherNames;
  IDate date;
  ITime time;
  IException failure;
  IMessageText message;
  IStringTest isVowel;

  FixedStorage storage;
  std::iostream stream;

  /// The buffer behind a text.
  static IBuffer* bufferOf(const IString& text);
  /// For operations that work although storage runs out: notes the first claim that does not hold.
  void require(bool holds, const char* claim)
  {
    if (!holds && brokenClaim == nullptr)
      brokenClaim = claim;
  }
  const char* brokenClaim;

  /// All that can be told of the objects: texts, who shares them, numbers of references.
  std::string description() const;
  /// Whether each buffer counts as many references as strings hold it.
  testing::AssertionResult countsAreRight() const;

private:
  std::vector<const IString*> strings() const;
};

}  // namespace faulttests

/// Notes a claim that has to hold even where storage has run out.
#define REQUIRE_OF(world, claim) (world).require(claim, #claim)

#endif
