// The groups that a DXF text consists of: a code on one line and a value on the next.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kvarnio::dxf {

struct Group {
    int code = 0;
    std::string_view value; // without blanks around it
    std::size_t line = 0;   // of the value, counted from 1
};

// "line 12"
std::string LineText(std::size_t line);

// These throw NotTaken, with the line, for a value that is none.
double NumberIn(Group const& group);
// A number of metres, or of another unit, that can be on the earth.
double CoordinateIn(Group const& group);
std::int64_t IntegerIn(Group const& group);
// 0 for what is no handle.
std::uint64_t HandleIn(Group const& group);
// With its letters, which may be written as \U+00E5.
std::string TextIn(Group const& group);

class Groups {
  public:
    // Of a text that the caller keeps. Throws NotTaken for a binary DXF, and for UTF-16.
    explicit Groups(std::string_view text);

    // The next one, comments left out. Throws NotTaken for a code that is none, and where the text
    // ends.
    Group Next();

  private:
    std::string_view TakeLine();

    std::string_view m_rest;
    std::size_t m_line = 0;
};

} // namespace kvarnio::dxf
