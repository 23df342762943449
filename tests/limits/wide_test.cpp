// wide_test.cpp - lengths at 64 bits, where there is room for the longest text: each operation up to its bound, with true lengths, and
// one byte beyond; and lengths of more than 32 bits, which are refused and never cut.
#include "outcome.hpp"
#include "support/sanitizer_heap.hpp"

#include <cstring>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

#ifndef QUELMCL_HEAP_OF_A_SANITIZER

using namespace limittests;

namespace {

/// An operation whose result has the longest length that it can reach, or one step more than any text can have.
struct Bound {
  const char* name;
  IString (*reaching)(unsigned past);
  unsigned reached;
  char first;  // of the result that is reached
  char last;
};

class TrueBound : public testing::TestWithParam<Bound> {};

TEST_P(TrueBound, IsReachedAndNotPassed)
{
  QUELMCL_NEEDS_MEGABYTES(9500u);
  const Bound& row = GetParam();
  {
    const IString text = row.reaching(0);
    ASSERT_EQ(text.length(), row.reached);
    const char* const bytes = text;
    EXPECT_EQ(bytes[0], row.first);
    EXPECT_EQ(bytes[row.reached - 1], row.last);
    EXPECT_EQ(bytes[row.reached], '\0');
  }
  EXPECT_EQ(errorIdOf([&row] { row.reaching(1); }), tooLong);
}

const IString abc("abc");

const Bound bounds[] = {
  {"made", [](unsigned past) { return IString(nullptr, longest + past, 'x'); }, longest, 'x', 'x'},
  {"joined", [](unsigned past) { return IString(nullptr, longest - 3 + past, 'x') + abc; }, longest, 'x', 'c'},
  {"joined_with_a_literal", [](unsigned past) { return "abc" + IString(nullptr, longest - 3 + past, 'x'); }, longest,
   'a', 'x'},
  {"appended",
   [](unsigned past) {
     IString text(nullptr, longest - 3 + past, 'x');
     text += abc;
     return text;
   },
   longest, 'x', 'c'},
  {"copies", [](unsigned past) { return IString::copy(IString("xy"), longest / 2 + past); }, longest, 'x', 'y'},
  {"changed",
   [](unsigned past) {
     const IString replacement(nullptr, 65535, 'x');
     return IString::change(IString(nullptr, 65536, 'a') + IString(nullptr, longest - 65535u * 65536u + past, 'b'), "a",
                            replacement);
   },
   longest, 'x', 'b'},
  {"inserted", [](unsigned past) { return IString::insert(abc, "XY", longest - 2 + past); }, longest, 'a', 'Y'},
  {"laid_over", [](unsigned past) { return IString::overlayWith(abc, "XY", longest - 1 + past); }, longest, 'a', 'Y'},
  {"centred", [](unsigned past) { return IString::center(abc, longest + past, '.'); }, longest, '.', '.'},
  {"on_the_left", [](unsigned past) { return IString::leftJustify(abc, longest + past, '.'); }, longest, 'a', '.'},
  {"on_the_right", [](unsigned past) { return IString::rightJustify(abc, longest + past, '.'); }, longest, '.', 'c'},
  {"a_part", [](unsigned past) { return abc.subString(2, longest + past, '.'); }, longest, 'b', '.'},
  {"spaces", [](unsigned past) { return IString::space(IString("a b"), longest - 2 + past, '.'); }, longest, 'a', 'b'},
  {"binary_digits", [](unsigned past) { return IString::c2b(IString(nullptr, longest / 8 + past, '\x81')); },
   longest / 8 * 8, '1', '1'},
  {"hexadecimal_digits", [](unsigned past) { return IString::c2x(IString(nullptr, longest / 2 + past, 'x')); }, longest,
   '7', '8'},
  {"decimal_digits_of_a_zero", [](unsigned past) { return IString::c2d(IString(nullptr, 1431655761u + past, '\0')); },
   4294967272u, '0', '0'},
};

INSTANTIATE_TEST_SUITE_P(Rows, TrueBound, testing::ValuesIn(bounds),
                         [](const testing::TestParamInfo<Bound>& row) { return std::string(row.param.name); });

TEST(TrueBound, LeavesTheTextAlone)
{
  QUELMCL_NEEDS_MEGABYTES(9500u);
  IString text(nullptr, longest, 'x');
  text[longest] = 'z';
  EXPECT_EQ(errorIdOf([&] { text += "y"; }), tooLong);
  EXPECT_EQ(errorIdOf([&] { text += text; }), tooLong);
  EXPECT_EQ(errorIdOf([&] { text.insert("y"); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { text.copy(2); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { text.change("z", "yy"); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { text.c2x(); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { static_cast<void>(text[longest + 1]); }), tooLong);
  EXPECT_EQ(text.length(), longest);
  EXPECT_EQ(text.indexOfAnyBut("x"), longest);
  EXPECT_EQ(text.lastIndexOf('x'), longest - 1);
}

// ---------------------------------------------------------------------------------------------------------------------
// Lengths of more than 32 bits

/// A C text of more than 4 GiB in little storage: a megabyte of the letter x, seen over and over, and the NUL at its end.
class EndlessText {
public:
  explicit EndlessText(std::size_t wantedLength) : length(wantedLength), size((wantedLength / window + 1) * window)
  {
    const int file = memfd_create("a megabyte", 0);
    const std::string letters(window, 'x');
    if (file < 0 || write(file, letters.data(), window) != static_cast<ssize_t>(window))
      std::abort();
    void* const place = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (place == MAP_FAILED)
      std::abort();
    bytes = static_cast<char*>(place);
    for (std::size_t at = 0; at + window < size; at += window)
      if (mmap(bytes + at, window, PROT_READ, MAP_SHARED | MAP_FIXED, file, 0) == MAP_FAILED)
        std::abort();
    close(file);
    std::memset(bytes + size - window, 'x', length - (size - window));
  }
  ~EndlessText() { munmap(bytes, size); }
  EndlessText(const EndlessText&) = delete;
  EndlessText& operator=(const EndlessText&) = delete;

  const char* text() const { return bytes; }
  std::string_view view() const { return std::string_view(bytes, length); }

private:
  static constexpr std::size_t window = 1u << 20;

  std::size_t length;
  std::size_t size;
  char* bytes;
};

constexpr std::size_t fourGigabytes = std::size_t{1} << 32;

TEST(LengthOfMoreThan32Bits, IsRefusedAndNotCut)
{
  for (const std::size_t length : {std::size_t{longest} + 1, fourGigabytes - 1, fourGigabytes, fourGigabytes + 3}) {
    const EndlessText endless(length);
    const IString xxx("xxx");
    EXPECT_EQ(errorIdOf([&] { const IString text(endless.text()); }), tooLong) << length;
    EXPECT_EQ(errorIdOf([&] { const IString text(endless.text(), length); }), tooLong) << length;
    EXPECT_EQ(errorIdOf([&] { const IString text("a", 1u, endless.text(), length); }), tooLong) << length;
    EXPECT_EQ(errorIdOf([&] { const IString text(endless.view()); }), tooLong) << length;
    EXPECT_EQ(errorIdOf([&] { const IString text = xxx + endless.text(); }), tooLong) << length;
    EXPECT_EQ(errorIdOf([&] { const IString text = endless.text() + xxx; }), tooLong) << length;
    EXPECT_EQ(errorIdOf([&] {
                IString text;
                text = endless.text();
              }),
              tooLong)
      << length;
    EXPECT_EQ(errorIdOf([&] {
                IString text("a");
                text += endless.text();
              }),
              tooLong)
      << length;
    EXPECT_EQ(errorIdOf([&] { IString("xxx").insert(endless.text()); }), tooLong) << length;
    EXPECT_EQ(errorIdOf([&] { IStringBuilder().append(endless.view()); }), tooLong) << length;
  }
}

TEST(LengthOfMoreThan32Bits, OfAPatternIsRefusedAsWell)
{
  const EndlessText endless(fourGigabytes + 3);
  const IString xxx("xxx");
  EXPECT_EQ(errorIdOf([&] { static_cast<void>(xxx.indexOf(endless.text())); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { static_cast<void>(xxx.lastIndexOf(endless.text())); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { static_cast<void>(xxx.occurrencesOf(endless.text())); }), tooLong);
  EXPECT_EQ(errorIdOf([&] { IString("xxx").change(endless.text(), "y"); }), tooLong);
}

TEST(LengthOfMoreThan32Bits, IsThatOfAnotherText)
{
  const EndlessText endless(fourGigabytes + 3);
  const IString xxx("xxx");
  EXPECT_TRUE(xxx != endless.text());
  EXPECT_FALSE(xxx == endless.text());
  EXPECT_TRUE(xxx < endless.text());
}

TEST(NumberOfMoreThan32Bits, OfSpacesIsRefusedAndNotCut)
{
  EXPECT_EQ(errorIdOf([] { IString("a b").space(fourGigabytes + 1); }), tooLong);
  EXPECT_EQ(errorIdOf([] { IString("a b").space(fourGigabytes); }), tooLong);
}

}  // namespace

#endif
