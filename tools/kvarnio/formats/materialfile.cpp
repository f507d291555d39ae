#include "materialfile.h"

#include <algorithm>

#include <text/scan.h>

namespace kvarnio {
namespace {

// The library's rule, which entry a line belongs to, on the entries' numbers alone.
class Matcher {
  public:
    explicit Matcher(Materials const& materials) : m_norwegian(materials.norwegian) {
        for (bergmattype const& entry : BuiltIn(materials)) {
            m_numbers.push_back(entry.nr);
        }
    }

    void Match(MaterialLine& line) {
        constexpr int shiftNumber = 31;
        if (line.values < 2) {
            return;
        }
        line.isShift = m_norwegian && line.number == shiftNumber && line.name.starts_with("Ikke");
        if (line.isShift) {
            m_shift = 1;
            return;
        }
        auto const found = std::find(m_numbers.begin(), m_numbers.end(), line.number - m_shift);
        line.isNew = line.number < 0 || found == m_numbers.end();
        line.entry =
            line.isNew ? m_numbers.size() : static_cast<std::size_t>(found - m_numbers.begin());
        if (line.isNew) {
            m_numbers.push_back(line.number);
        }
    }

  private:
    bool m_norwegian;
    int m_shift = 0;
    std::vector<int> m_numbers;
};

MaterialLine Read(TextLine const& line) {
    MaterialLine read{};
    read.line = &line;
    read.values = kvarn::Scan(line.text, read.number, read.name, read.text, read.scale,
                              read.pattern, read.degrees, read.flag);
    return read;
}

} // namespace

char const* Materials::FileName() const {
    return norwegian ? CBergOrMateLista::FILNAMNN : CBergOrMateLista::FILNAMN;
}

CBergOrMateLista ListOf(Materials const& materials, CAutoIni* ini, CProjPath* project) {
    return {ini, project, static_cast<int>(materials.kind), materials.norwegian ? 1 : 0};
}

std::vector<bergmattype> EntriesOf(CBergOrMateLista& list) {
    std::vector<bergmattype> entries;
    for (bool there = list.Home() == 0; there; there = list++ != nullptr) {
        entries.push_back(*list.Get_aktel());
    }
    return entries;
}

std::vector<bergmattype> BuiltIn(Materials const& materials) {
    CProjPath none;
    CBergOrMateLista list = ListOf(materials, nullptr, &none);
    list.Init();
    return EntriesOf(list);
}

std::vector<MaterialLine> ReadMaterialLines(std::vector<TextLine> const& lines,
                                            Materials const& materials) {
    std::vector<MaterialLine> read;
    Matcher matcher(materials);
    int stars = 0;
    for (TextLine const& line : lines) {
        if (line.text.starts_with('*')) {
            ++stars;
        } else if (stars == materials.StarsBefore()) {
            read.push_back(Read(line));
            matcher.Match(read.back());
        }
    }
    return read;
}

} // namespace kvarnio
