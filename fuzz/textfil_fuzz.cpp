// The line reader beside a model of its rules that looks at one byte at a time.
//
// The first two bytes of an input choose how it is read, the rest is the text: in memory or from a
// file, whole lines or pieces of bounded size. In a file, padding puts the text across the end of
// the reader's buffer.
#include <algorithm>

#include "check.h"
#include "files/textfil.h"
#include "folder.h"
#include "textlines.h"
#include "tree.h"

namespace {

// Each line with its line end, where it has one.
Lines ModelLines(std::string const& text) {
    Lines lines;
    bool begins = true;
    bool cut = false;
    for (std::size_t i = 0; i < text.size() && text[i] != kvarn::endOfText; ++i) {
        if (begins) {
            lines.emplace_back();
        }
        bool const crOfEnd = text.compare(i, 2, "\r\n") == 0;
        begins = text[i] == '\n';
        cut = !begins && (cut || text[i] == '\0');
        if (!cut && !crOfEnd) {
            lines.back() += text[i];
        }
    }
    return lines;
}

std::string WithoutEnd(std::string line) {
    line.resize(line.size() - (line.ends_with('\n') ? 1 : 0));
    return line;
}

// In pieces of at most so many characters, of which the line end is one.
Lines Pieces(Lines const& lines, std::size_t most) {
    Lines pieces;
    for (std::string const& line : lines) {
        std::size_t at = 0;
        do {
            pieces.push_back(WithoutEnd(line.substr(at, most)));
            at += most;
        } while (at < line.size());
    }
    return pieces;
}

Lines ReadPieces(kvarn::LineReader& reader, std::size_t size) {
    Lines pieces;
    for (std::vector<char> buffer(size); reader.ReadLine(buffer.data(), size);) {
        pieces.emplace_back(buffer.data());
    }
    return pieces;
}

void CheckReader(kvarn::LineReader& reader, Lines const& model, std::size_t size) {
    bool const whole = size < 2;
    Check((whole ? LinesOf(reader) : ReadPieces(reader, size)) ==
              Pieces(model, whole ? std::string::npos - 1 : size - 1),
          "the lines or pieces of the model");
    Check(!reader.Failed(), "reading to the end is no failure");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    constexpr std::size_t choices = 2;
    if (size < choices) {
        return 0;
    }
    std::string const text(reinterpret_cast<char const*>(data) + choices, size - choices);
    std::size_t const pieceSize = data[0];
    unsigned const distance = data[1];
    if (distance < 0xF0) {
        kvarn::LineReader reader{std::string_view(text)};
        CheckReader(reader, ModelLines(text), pieceSize);
    } else {
        static Folder const folder("/dev/shm");
        constexpr std::size_t readerBuffer = 16 * 1024;
        std::string const padding(readerBuffer - (distance - 0xF0), '.');
        Lines model = ModelLines(text); // which is slow: the padding is put in front of it
        model.resize(std::max<std::size_t>(model.size(), 1));
        model.front().insert(0, padding);
        std::string const path = folder.Path() + "/text";
        WriteFile(path, padding + text);
        kvarn::TextReader reader(path.c_str());
        Check(reader.IsOpen(), "a text that is there opens");
        CheckReader(reader, model, 100 * pieceSize);
    }
    return 0;
}
