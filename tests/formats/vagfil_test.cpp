// The two ways of reading a road file's lines: by the form that the library writes, and by any.
#include "formats/vagfil.h"

#include <array>
#include <bit>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

namespace {

using Bits = std::array<std::uint64_t, sizeof(kovltype) / sizeof(std::uint64_t)>;

TEST(Vagfil, ALineOfTheUsualFormIsReadAsAnyOther) {
    constexpr char others[] = "0123456789.- \t\r\nxeE+\0*9"; // what may stand in a line's place
    std::mt19937_64 random(11);
    int taken = 0;
    for (int i = 0; i < 100'000; ++i) {
        auto const number = [&] {
            double const size = std::pow(10, static_cast<double>(random() % 12) - 4);
            return std::ldexp(static_cast<double>(random() >> 11U), -52) * size - size;
        };
        std::string text;
        kvarn::AppendVertex(text, {number(), number(), number(), number()});
        std::size_t const length = text.size();
        bool const changed = i % 2 != 0;
        if (changed) {
            text[random() % length] = others[random() % sizeof others];
        }
        text += "1 2 3 4\r\n";

        std::string_view rest = text;
        kovltype vertex{};
        if (!kvarn::TakeVertex(rest, vertex)) {
            ASSERT_TRUE(changed) << text;
            ASSERT_EQ(rest.size(), text.size());
            continue;
        }
        ++taken;
        kvarn::LineReader lines{std::string_view(text)};
        std::string_view line;
        kovltype other{};
        ASSERT_TRUE(lines.ReadLine(line) && kvarn::ReadVertex(line, other)) << text;
        ASSERT_EQ(std::bit_cast<Bits>(vertex), std::bit_cast<Bits>(other)) << text;
        ASSERT_EQ(text.size() - rest.size(), line.size() + 2) << text; // CR LF
    }
    EXPECT_GT(taken, 60'000); // of what was changed too
}

} // namespace
