#include <neighbours/road/alignment.h>

#include <gtest/gtest.h>

namespace {

TEST(AlignmentTest, MetresHaveTheDigitsThatTheyNeed) {
    EXPECT_EQ(kvarnio::Metres(12.5), "12.5000");
    EXPECT_EQ(kvarnio::Metres(-0.00001234), "-0.00001234");
    EXPECT_EQ(kvarnio::Metres(6580511.098765), "6580511.098765");
}

TEST(AlignmentTest, TextInTwoByteLettersIsRefused) {
    using namespace std::string_view_literals;
    kvarnio::RequirePlainText("<LandXML/>\n");
    for (std::string_view const text : {"\xff\xfe<\0"sv, "\xfe\xff\0<"sv, "<\0L\0"sv}) {
        EXPECT_THROW(kvarnio::RequirePlainText(text), kvarnio::NotTaken);
    }
}

} // namespace
