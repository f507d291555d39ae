// A DXF text as it is written: groups, handles, and the tables that every drawing has.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "../road/roadgeometry.h"

namespace kvarnio::dxf {

class Output {
  public:
    using Handle = std::uint64_t;

    // Handles that tables and entities name each other by.
    static constexpr Handle modelSpace = 1;
    static constexpr Handle paperSpace = 2;
    static constexpr Handle rootDictionary = 3;

    Handle NewHandle() { return ++m_lastHandle; }
    Handle LastHandle() const { return m_lastHandle; }

    Output& Text(int code, std::string_view ascii);
    // Letters beyond ASCII become \U+00E5.
    Output& Letters(int code, std::u16string_view letters);
    Output& Integer(int code, std::int64_t number);
    // With the decimals of metres.
    Output& Number(int code, double number);
    Output& Bulge(int code, double bulge);
    Output& HandleOf(int code, Handle handle);
    // X, Y and Z of a point on the map, at the codes 10, 20 and 30 for 0, 11, 21 and 31 for 1.
    Output& Point(int which, RoadPoint p);

    // An entity in the drawing, up to its own groups. The dictionary is attached to it; 0: none.
    Output& BeginEntity(char const* type, char const* kind, char const* layer,
                        Handle dictionary = 0);
    // What was begun last.
    Handle Begun() const { return m_begun; }
    // Anything with a handle and an owner.
    Output& Begin(char const* type, Handle handle, Handle owner, Handle dictionary = 0);

    std::string Take() && { return std::move(m_text); }

  private:
    std::string m_text;
    Handle m_lastHandle = rootDictionary;
    Handle m_begun = 0;
};

// Sections before the entities, without the header: tables and blocks.
void WriteTables(Output& out, Extent const& shown);

// A drawing's first section. The handles of all that is in the drawing are below the seed.
void WriteHeader(Output& out, Extent const& shown, Output::Handle seed);

} // namespace kvarnio::dxf
