#include "pointfile.h"

#include <algorithm>

#include <text/scan.h>
#include <text/text.h>

namespace kvarnio {
namespace {

class Reader {
  public:
    explicit Reader(std::vector<TextLine> const& lines) : m_lines(lines) {}

    // The next line; null at the end.
    TextLine const* Take() { return m_next < m_lines.size() ? &m_lines[m_next++] : nullptr; }

  private:
    std::vector<TextLine> const& m_lines;
    std::size_t m_next = 0;
};

void ReadHeader(Reader& reader, PointFile& file) {
    for (TextLine const*& line : file.header) {
        line = reader.Take();
    }
    TextLine const* line = reader.Take();
    for (; line != nullptr && HoldsNumber(*line); line = reader.Take()) {
        file.skipped.push_back(line);
    }
    file.headerEnd = line;
}

} // namespace

bool PointBlock::IsGvy() const {
    return kvarn::SameText(name->text, "gvy");
}

PointFile ReadPointFile(std::vector<TextLine> const& lines) {
    PointFile file;
    Reader reader(lines);
    ReadHeader(reader, file);
    TextLine const* line = reader.Take();
    for (; line != nullptr && !line->text.starts_with('*'); line = reader.Take()) {
        file.blocks.push_back({line});
        file.blocks.back().level = reader.Take();
        file.blocks.back().rest = reader.Take();
    }
    file.end = line;
    return file;
}

bool HoldsNumber(TextLine const& line) {
    return !line.text.empty() && !line.text.starts_with('*');
}

std::vector<double> ValuesIn(TextLine const* line) {
    std::array<double, 6> v{};
    int const count =
        line != nullptr ? kvarn::Scan(line->text, v[0], v[1], v[2], v[3], v[4], v[5]) : 0;
    return {v.begin(), v.begin() + std::max(count, 0)};
}

} // namespace kvarnio
