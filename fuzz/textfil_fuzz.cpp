// The line reader beside a model of its rules that looks at one byte at a time.
//
// The first two bytes of an input choose how it is read, the rest is the text: in memory or from a
// file, whole lines or pieces of bounded size. In a file, padding puts the text across the end of
// the reader's buffer.
#include <cstdint>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

#include "check.h"
#include "files/textfil.h"

namespace {

using Lines = std::vector<std::string>;

Lines ModelLines(std::string const& text) {
    Lines lines;
    std::string line;
    bool begun = false;
    bool cut = false;
    for (std::size_t i = 0; i < text.size() && text[i] != kvarn::endOfText; ++i) {
        char const c = text[i];
        begun = true;
        if (c == '\n') {
            lines.push_back(line);
            line.clear();
            begun = cut = false;
        } else if (c == '\0') {
            cut = true;
        } else if (bool const lineEnd = c == '\r' && text.compare(i + 1, 1, "\n") == 0;
                   !cut && !lineEnd) {
            line += c;
        }
    }
    if (begun) {
        lines.push_back(line);
    }
    return lines;
}

// Each line, with its line end, in pieces of at most `most` characters, and the line end taken off.
Lines Pieces(Lines lines, bool lastIsEnded, std::size_t most) {
    Lines pieces;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::string const line = lines[i] + (i + 1 < lines.size() || lastIsEnded ? "\n" : "");
        std::size_t at = 0;
        do {
            std::string piece = line.substr(at, most);
            piece.resize(piece.size() - (piece.ends_with('\n') ? 1 : 0));
            pieces.push_back(piece);
            at += most;
        } while (at < line.size());
    }
    return pieces;
}

Lines ReadLines(kvarn::LineReader& reader) {
    Lines lines;
    for (std::string_view line; reader.ReadLine(line);) {
        lines.emplace_back(line);
    }
    return lines;
}

Lines ReadPieces(kvarn::LineReader& reader, std::size_t size) {
    Lines pieces;
    for (std::vector<char> buffer(size); reader.ReadLine(buffer.data(), size);) {
        pieces.emplace_back(buffer.data());
    }
    return pieces;
}

void CheckReader(kvarn::LineReader& reader, std::string const& text, std::size_t size) {
    Lines const model = ModelLines(text);
    if (size < 2) {
        Check(ReadLines(reader) == model, "the lines of the model");
    } else {
        bool const lastIsEnded = text.substr(0, text.find(kvarn::endOfText)).ends_with('\n');
        Check(ReadPieces(reader, size) == Pieces(model, lastIsEnded, size - 1),
              "the pieces of the model");
    }
    Check(!reader.Failed(), "reading to the end is no failure");
}

// A file without a place in any folder, which its path opens as any other.
class MemoryFile {
  public:
    explicit MemoryFile(std::string const& content) : m_file(memfd_create("textfil_fuzz", 0)) {
        ssize_t const written = write(m_file, content.data(), content.size());
        Check(written == static_cast<ssize_t>(content.size()), "the fuzzer can write its file");
    }
    ~MemoryFile() { close(m_file); }
    MemoryFile(MemoryFile const&) = delete;
    MemoryFile& operator=(MemoryFile const&) = delete;

    std::string Path() const { return "/proc/self/fd/" + std::to_string(m_file); }

  private:
    int m_file;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    constexpr std::size_t choices = 2;
    if (size < choices) {
        return 0;
    }
    std::string text(reinterpret_cast<char const*>(data) + choices, size - choices);
    std::size_t const pieceSize = data[0];
    unsigned const distance = data[1];
    if (distance < 0xF0) {
        kvarn::LineReader reader{std::string_view(text)};
        CheckReader(reader, text, pieceSize);
    } else {
        constexpr std::size_t readerBuffer = 16 * 1024;
        text.insert(0, readerBuffer - (distance - 0xF0), '.');
        MemoryFile const file(text);
        kvarn::TextReader reader(file.Path().c_str());
        Check(reader.IsOpen(), "a text that is there opens");
        CheckReader(reader, text, 100 * pieceSize);
    }
    return 0;
}
