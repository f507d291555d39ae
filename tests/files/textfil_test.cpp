#include "files/textfil.h"

#include <gtest/gtest.h>

#include "support/testfiles.h"

using kvarn::TextReader;
using namespace std::string_literals;

namespace {

using Lines = std::vector<std::string>;

Lines AllLines(kvarn::LineReader& reader) {
    Lines lines;
    std::string_view line;
    while (reader.ReadLine(line)) {
        lines.emplace_back(line);
    }
    EXPECT_FALSE(reader.Failed());
    return lines;
}

TEST(Textfil, LinesAreThoseOfTextMode) {
    constexpr std::size_t buffer = 16384; // the reader's: what follows straddles it
    std::string const nearly(buffer - 1, 'x');
    std::string const megabyte(1 << 20, 'y');
    std::pair<std::string, Lines> const cases[] = {
        {"", {}},
        {"\n", {""}},
        {"\r\n\r\n", {"", ""}},
        {"a\r\nb\nc", {"a", "b", "c"}},
        {"a\r\r\nb\rc\r", {"a\r", "b\rc\r"}},
        {"a\nb\x1A\nc\n", {"a", "b"}},
        {"a\n\x1A", {"a"}},
        {"a\0b\r\nc\0\n\0\n"s, {"a", "c", ""}},
        {"a\r\0b\r\nc"s, {"a\r", "c"}},
        {"\xEF\xBB\xBFKEY=1\r\n", {"\xEF\xBB\xBFKEY=1"}},
        {nearly + "\r\nb", {nearly, "b"}},
        {nearly + "\rb\n", {nearly + "\rb"}},
        {nearly + "z\r\n\x1A", {nearly + "z"}},
        {nearly + "\x1A" + megabyte, {nearly}},
        {megabyte + "\r\n" + megabyte, {megabyte, megabyte}},
    };
    TestFolder const folder;
    for (auto const& [bytes, lines] : cases) {
        SCOPED_TRACE(testing::PrintToString(bytes.substr(0, 40)));
        kvarn::LineReader memory{std::string_view(bytes)};
        EXPECT_EQ(AllLines(memory), lines);
        folder.Write("rader.txt", bytes);
        TextReader file(folder.Api("rader.txt").c_str());
        ASSERT_TRUE(file.IsOpen());
        EXPECT_EQ(AllLines(file), lines);
    }
}

TEST(Textfil, ABoundedReadLeavesTheRestForTheNext) {
    // A piece that is full leaves no room for the line end, which then is a piece of its own.
    kvarn::LineReader reader(std::string_view("abcdefg\r\n\r\nhi\r\nabcd\r\nabcdefgh\nx\nijkl"));
    Lines parts;
    char part[5];
    while (reader.ReadLine(part, sizeof part)) {
        parts.emplace_back(part);
    }
    EXPECT_EQ(parts, (Lines{"abcd", "efg", "", "hi", "abcd", "", "abcd", "efgh", "", "x", "ijkl"}));

    kvarn::LineReader mixed(std::string_view("abcdefg\nhi\n"));
    std::string_view rest;
    EXPECT_TRUE(mixed.ReadLine(part, sizeof part) && mixed.ReadLine(rest));
    EXPECT_EQ(rest, "efg");
    EXPECT_TRUE(mixed.ReadLine(part, sizeof part));
    EXPECT_STREQ(part, "hi");
}

TEST(Textfil, WhatCannotBeReadIsTold) {
    TestFolder const folder;
    EXPECT_FALSE(TextReader(folder.Api("saknas").c_str()).IsOpen());
    EXPECT_FALSE(TextReader(folder.Api().c_str()).IsOpen()); // a folder
#if !defined(_WIN32)
    TextReader memory("/proc/self/mem"); // opens, but its first page cannot be read
    std::string_view line;
    ASSERT_TRUE(memory.IsOpen());
    EXPECT_FALSE(memory.ReadLine(line));
    EXPECT_TRUE(memory.Failed());
#endif
}

TEST(Textfil, WritingTurnsLineFeedsIntoLineEnds) {
    std::string out = "0";
    kvarn::AppendTextMode(out, "a\nb\r\n");
    EXPECT_EQ(out, "0a\r\nb\r\r\n");
}

} // namespace
