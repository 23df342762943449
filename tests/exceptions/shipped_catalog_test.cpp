// shipped_catalog_test.cpp - the catalog that comes with the library has every message that the library uses.
#include <quelmcl/ibase.hpp>
#include <quelmcl/imsgtext.hpp>

#include <gtest/gtest.h>

#include <string>

namespace {

const char unavailable[] = "Unable to load text from message file.";
const char ifMissing[] = "(missing)";

class ShippedMessage : public testing::TestWithParam<unsigned long> {
protected:
  ShippedMessage() : previous(IBase::messageFile()) { IBase::setMessageFile("quelmcl.cat"); }
  ~ShippedMessage() override { IBase::setMessageFile(previous.c_str()); }

private:
  const std::string previous;
};

TEST_P(ShippedMessage, IsInTheCatalog)
{
  IMessageText message = IBase::messageText(GetParam());
  message.setDefaultText(ifMissing);  // stays away from a text that was loaded
  EXPECT_STRNE(message.text(), ifMissing);
  EXPECT_STRNE(message.text(), unavailable);
  EXPECT_GT(std::string(message.text()).size(), 10u) << "a message is to say something";
}

TEST_P(ShippedMessage, EndsWithoutALineEnd)
{
  const IMessageText message = IBase::messageText(GetParam());
  const std::string text(message.text());
  ASSERT_FALSE(text.empty());
  EXPECT_NE(text.back(), '\n');
  EXPECT_NE(text.back(), '\r');
}

INSTANTIATE_TEST_SUITE_P(Numbers, ShippedMessage, testing::Values(1, 4, 185, 186, 1010, 1011, 1101, 1102, 1201, 1202),
                         testing::PrintToStringParamName());

class ShippedMessageAboutAnExpression : public ShippedMessage {};

TEST_P(ShippedMessageAboutAnExpression, ShowsTheExpression)
{
  const IMessageText message = IBase::messageText(GetParam(), "count > 17");
  EXPECT_NE(std::string(message.text()).find("count > 17"), std::string::npos) << message.text();
  EXPECT_EQ(std::string(message.text()).find("%1"), std::string::npos) << message.text();
}

INSTANTIATE_TEST_SUITE_P(Numbers, ShippedMessageAboutAnExpression, testing::Values(1, 1101, 1102, 1201, 1202),
                         testing::PrintToStringParamName());

class ShippedMessageWithoutVariables : public ShippedMessage {};

TEST_P(ShippedMessageWithoutVariables, HasNone)
{
  EXPECT_EQ(std::string(IBase::messageText(GetParam()).text()).find('%'), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Numbers, ShippedMessageWithoutVariables, testing::Values(4, 185, 186, 1010, 1011),
                         testing::PrintToStringParamName());

}  // namespace
