// base_objects_test.cpp - IBase: version, severities, texts of an object.
#include <quelmcl/ibase.hpp>
#include <quelmcl/istring.hpp>

#include "address_text.hpp"
#include "foundation/address.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

namespace {

static_assert(std::is_empty<IBase>::value, "the root adds no bytes to an object");
static_assert(!std::is_polymorphic<IBase>::value, "the root has no virtual operations");

class Named : public IBase {
public:
  IString asString() const { return "named"; }
};

TEST(LibraryVersion, IsMajor310Minor2)
{
  const IBase::Version version = IBase::version();
  EXPECT_EQ(version.major, 310);
  EXPECT_EQ(version.minor, 2);
}

TEST(LibraryVersion, IsOneWordWithMajorInItsLowHalf)
{
  const IBase::Version version = IBase::version();
  std::uint32_t word = 0;
  ASSERT_EQ(sizeof version, sizeof word);
  std::memcpy(&word, &version, sizeof word);
  EXPECT_EQ(word, 0x00020136u);
}

TEST(LibraryVersion, IsKnownToThePreprocessorToo)
{
  EXPECT_EQ(IBase::version().major, QUELMCL_VERSION_MAJOR);
  EXPECT_EQ(IBase::version().minor, QUELMCL_VERSION_MINOR);
}

TEST(LibraryVersion, IsOneNumberForComparisons)
{
  EXPECT_EQ(QUELMCL_VERSION, IBase::version().major * 1000 + IBase::version().minor);
#if QUELMCL_VERSION < 310002 || QUELMCL_VERSION >= 311000
  ADD_FAILURE() << "the preprocessor compares it otherwise";
#endif
}

// The build names libraries and packages by it.
TEST(LibraryVersion, IsTheOneOfTheBuild)
{
  const IBase::Version version = IBase::version();
  EXPECT_EQ(std::to_string(version.major) + "." + std::to_string(version.minor), QUELMCL_TEST_PROJECT_VERSION);
}

TEST(BaseSeverities, AreThoseOfTheExceptions)
{
  EXPECT_EQ(static_cast<int>(IBase::unrecoverable), 0);
  EXPECT_EQ(static_cast<int>(IBase::recoverable), 1);
  EXPECT_EQ(IBase::unrecoverable, IException::unrecoverable);
  EXPECT_EQ(IBase::recoverable, IException::recoverable);
}

TEST(BaseSeverities, HaveAddresses)
{
  const IException::Severity* const unrecoverable = &IBase::unrecoverable;
  const IException::Severity* const recoverable = &IBase::recoverable;
  EXPECT_EQ(*unrecoverable, IException::unrecoverable);
  EXPECT_EQ(*recoverable, IException::recoverable);
}

TEST(BaseText, IsAlwaysTheSame)
{
  const IBase object;
  EXPECT_STREQ(object.asString(), "IBase object");
}

TEST(BaseText, StreamingThroughABaseReferenceIgnoresTheDerivedText)
{
  const Named object;
  const IBase& base = object;
  std::ostringstream stream;
  stream << base;
  EXPECT_EQ(stream.str(), "IBase object");
}

TEST(BaseText, StreamingAStringThroughABaseReferenceIgnoresItsText)
{
  const IString text("abc");
  std::ostringstream stream;
  stream << static_cast<const IBase&>(text);
  EXPECT_EQ(stream.str(), "IBase object");
}

TEST(BaseText, StreamingReturnsTheStream)
{
  const IBase object;
  std::ostringstream stream;
  std::ostream& result = stream << object;
  EXPECT_EQ(&result, &stream);
}

TEST(BaseDebugText, ShowsTheAddressOfTheObject)
{
  const IBase objects[2];
  for (const IBase& object : objects)
    EXPECT_EQ(std::string(object.asDebugInfo()), "IBase(@" + addressText(&object) + ")");
}

struct AddressCase {
  const char* name;
  std::uint64_t address;
  const char* at32Bits;  // null: no such address
  const char* at64Bits;
};

const AddressCase addressCases[] = {
  {"LeadingZeroBytesAreLeftOut", 0x00201234u, "201234", "201234"},
  {"FirstByteKeepsItsLeadingZero", 0x01234567u, "01234567", "01234567"},
  {"DigitsAreUpperCase", 0x0ABCDEF0u, "0ABCDEF0", "0ABCDEF0"},
  {"ZeroBytesInsideStay", 0x10000000u, "10000000", "10000000"},
  {"LargestPositiveWord", 0x7FFFFFFFu, "7FFFFFFF", nullptr},
  {"HalfOfTheAddressSpace", 0x80000000u, "7FFFFFFF", nullptr},
  {"HighAddress", 0xC0000010u, "7FFFFFFF", nullptr},
  {"WholeWideAddress", 0x123456789ABCu, nullptr, "123456789ABC"},
  {"WideAddressWithZeros", 0x200000000000u, nullptr, "200000000000"},
};

const char* digitsOf(const AddressCase& row)
{
  return sizeof(void*) == 4 ? row.at32Bits : row.at64Bits;
}

std::vector<AddressCase> casesOfThisWidth()
{
  std::vector<AddressCase> cases;
  for (const AddressCase& row : addressCases)
    if (digitsOf(row) != nullptr)
      cases.push_back(row);
  return cases;
}

class AddressText : public testing::TestWithParam<AddressCase> {};

TEST_P(AddressText, IsThatOfItsBytes)
{
  const AddressCase& row = GetParam();
  const void* const address = reinterpret_cast<const void*>(static_cast<std::uintptr_t>(row.address));
  EXPECT_STREQ(quelmcl::detail::hexAddress(address), digitsOf(row));
  EXPECT_EQ(addressText(address), digitsOf(row)) << "what other tests expect";
}

INSTANTIATE_TEST_SUITE_P(Addresses, AddressText, testing::ValuesIn(casesOfThisWidth()),
                         [](const testing::TestParamInfo<AddressCase>& row) { return std::string(row.param.name); });

}  // namespace
