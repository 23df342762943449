// virtual_base_test.cpp - IVBase: virtual texts and destruction, streaming.
#include <quelmcl/istring.hpp>
#include <quelmcl/ivbase.hpp>

#include "address_text.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <type_traits>

namespace {

static_assert(std::is_base_of<IBase, IVBase>::value, "the virtual root derives from the root");
static_assert(std::has_virtual_destructor<IVBase>::value, "objects are destroyed through base pointers");
static_assert(sizeof(IVBase) == sizeof(void*), "the virtual root holds nothing but its table pointer");

class Named : public IVBase {
public:
  explicit Named(bool* destroyedFlag = nullptr) : destroyed(destroyedFlag) {}
  Named(const Named&) = delete;
  Named& operator=(const Named&) = delete;
  ~Named() override
  {
    if (destroyed != nullptr)
      *destroyed = true;
  }
  IString asString() const override { return "named"; }
  IString asDebugInfo() const override { return "Named()"; }

private:
  bool* destroyed;
};

class Unnamed : public IVBase {};

TEST(VirtualBaseText, IsThatOfTheClassUnlessOverridden)
{
  EXPECT_STREQ(IVBase().asString(), "IVBase object");
  EXPECT_STREQ(Unnamed().asString(), "IVBase object");
}

TEST(VirtualBaseText, ComesFromTheDerivedClassThroughAReference)
{
  const Named object;
  const IVBase& base = object;
  EXPECT_STREQ(base.asString(), "named");
  EXPECT_STREQ(base.asDebugInfo(), "Named()");
}

TEST(VirtualBaseText, StreamingThroughAVirtualBaseReferenceWritesTheDerivedText)
{
  const Named object;
  const IVBase& base = object;
  std::ostringstream stream;
  stream << base;
  EXPECT_EQ(stream.str(), "named");
}

TEST(VirtualBaseText, StreamingThroughABaseReferenceWritesIBaseObject)
{
  const Named object;
  const IBase& base = object;
  std::ostringstream stream;
  stream << base;
  EXPECT_EQ(stream.str(), "IBase object");
}

TEST(VirtualBaseText, StreamingADerivedObjectPrefersItsOwnText)
{
  const Named object;
  std::ostringstream stream;
  stream << object;
  EXPECT_EQ(stream.str(), "named");
}

TEST(VirtualBaseText, StreamingReturnsTheStream)
{
  const IVBase object;
  std::ostringstream stream;
  std::ostream& result = stream << object;
  EXPECT_EQ(&result, &stream);
  EXPECT_EQ(stream.str(), "IVBase object");
}

TEST(VirtualBaseDebugText, ShowsTheAddressOfTheObject)
{
  const IVBase objects[2];
  for (const IVBase& object : objects)
    EXPECT_EQ(std::string(object.asDebugInfo()), "IVBase(@" + addressText(&object) + ")");
}

TEST(VirtualBaseDebugText, NamesTheVirtualBaseForADerivedClassWithoutATextOfItsOwn)
{
  const Unnamed object;
  EXPECT_EQ(std::string(object.asDebugInfo()), "IVBase(@" + addressText(&object) + ")");
}

TEST(VirtualBaseDestruction, ReachesTheDerivedClass)
{
  bool destroyed = false;
  std::unique_ptr<IVBase> object(new Named(&destroyed));
  object.reset();
  EXPECT_TRUE(destroyed);
}

}  // namespace
