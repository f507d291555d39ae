#include "dxfoutput.h"

#include <text/format.h>

#include "../road/alignment.h"
#include "../road/letters.h"

namespace kvarnio::dxf {

Output& Output::Text(int code, std::string_view ascii) {
    m_text += kvarn::Format("%d", code);
    m_text += '\n';
    m_text += ascii;
    m_text += '\n';
    return *this;
}

// A backslash and a caret begin escapes, and blanks at an end are lost.
Output& Output::Letters(int code, std::u16string_view letters) {
    std::string text;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        char16_t const c = letters[i];
        bool const isInside = i > 0 && i + 1 < letters.size();
        bool const isPlain = c > 0x20 && c < 0x7F && c != u'\\' && c != u'^' && c != u'%';
        text += isPlain || (c == u' ' && isInside) ? std::string(1, static_cast<char>(c))
                                                   : "\\U+" + HexOf(c);
    }
    return Text(code, text);
}

Output& Output::Integer(int code, std::int64_t number) {
    return Text(code, std::to_string(number));
}

Output& Output::Number(int code, double number) {
    return Text(code, Metres(number));
}

Output& Output::Bulge(int code, double bulge) {
    return Text(code, kvarn::Format("%.12lf", bulge));
}

Output& Output::HandleOf(int code, Handle handle) {
    constexpr unsigned base = 16;
    std::string digits;
    do {
        digits.insert(digits.begin(), "0123456789ABCDEF"[handle % base]);
        handle /= base;
    } while (handle > 0);
    return Text(code, digits);
}

Output& Output::Point(int which, RoadPoint p) {
    constexpr int east = 10;
    constexpr int north = 20;
    constexpr int height = 30;
    return Number(east + which, p.y).Number(north + which, p.x).Number(height + which, 0);
}

Output& Output::Begin(char const* type, Handle handle, Handle owner, Handle dictionary) {
    Text(0, type).HandleOf(5, handle);
    if (dictionary != 0) {
        Text(102, "{ACAD_XDICTIONARY").HandleOf(360, dictionary).Text(102, "}");
    }
    m_begun = handle;
    return HandleOf(330, owner);
}

Output& Output::BeginEntity(char const* type, char const* kind, char const* layer,
                            Handle dictionary) {
    Begin(type, NewHandle(), modelSpace, dictionary);
    return Text(100, "AcDbEntity").Text(8, layer).Text(100, kind);
}

} // namespace kvarnio::dxf
