// The format of the support points, over any bytes: every line has its place in the header or in a
// block, records keep their limits, and what is written reads back.
#include <algorithm>
#include <cmath>

#include "check.h"
#include "formats/checks/checks.h"
#include "formats/stodpunkt.h"
#include "text/letters.h"
#include "textlines.h"

namespace {

using kvarn::IsStarLine;
using kvarn::StodpunktLine;

struct Punkt {
    std::string namn;
    double niva = 0;
    float varden[kvarn::stodpunktNumbers] = {};
};
struct Innehall {
    double huvud[kvarn::stodpunktNumbers] = {};
    double gvy = 0;
    std::vector<Punkt> punkter;
    std::size_t lines = 0; // that were passed
};

// A name that its own line gives back.
bool IsPlain(std::string const& name) {
    std::string converted = name;
    OemToAnsiNordic(converted.data());
    return converted == name && !name.empty() && !IsStarLine(name) && !kvarn::IsGvy(name);
}

void CheckNext(StodpunktLine const& line, Lines const& lines, std::size_t& at) {
    Check(line.isThere == (at < lines.size()), "lines in their order");
    Check(!line.isThere || line.line.text == lines[at], "whole lines");
    at += line.isThere ? 1 : 0;
}

// Accounts for every line up to the end of the blocks.
Innehall Read(std::string const& text) {
    Lines const lines = LinesOf(text);
    kvarn::LineReader reader{std::string_view(text)};
    Innehall all;
    kvarn::StodpunktHeader const header(reader);
    for (std::size_t i = 0; i < kvarn::stodpunktNumbers; ++i) {
        CheckNext(header.numbers[i], lines, all.lines);
        if (header.numbers[i].HoldsNumber()) {
            header.numbers[i].Read(all.huvud[i]);
        }
    }
    all.lines += header.skipped.size();
    CheckNext(header.end, lines, all.lines);
    Check(!header.end.HoldsNumber(), "the header has an end");

    kvarn::StodpunktReader blocks(reader);
    for (kvarn::StodpunktBlock block; blocks.Next(block);) {
        CheckNext(block.name, lines, all.lines);
        CheckNext(block.level, lines, all.lines);
        CheckNext(block.rest, lines, all.lines);
        if (block.IsGvy()) {
            block.level.Read(all.gvy);
        } else {
            Punkt punkt{block.Name().substr(0, kvarn::longestStodpunkt)};
            block.level.Read(punkt.niva);
            kvarn::ReadValues(block.rest.line.text, punkt.varden);
            all.punkter.push_back(punkt);
        }
    }
    bool const ended = blocks.End().isThere;
    Check(ended ? IsStarLine(lines[all.lines]) : all.lines == lines.size(), "a star line, or all");
    return all;
}

// As a number comes back that was printed with so many decimals.
bool Same(double read, double written, double step) {
    return std::isnan(written)
               ? std::isnan(read)
               : read == written || std::fabs(read - written) <= step + 1e-6 * std::fabs(written);
}

void CheckReadBack(Innehall const& all) {
    double numbers[kvarn::stodpunktNumbers - 1];
    std::copy_n(all.huvud, kvarn::stodpunktNumbers - 1, numbers);
    std::string text = kvarn::StodpunktHeaderText(numbers, all.huvud[5]) + kvarn::GvyText(all.gvy);
    bool plain = true;
    for (Punkt const& punkt : all.punkter) {
        text += kvarn::StodpunktText(punkt.namn, punkt.niva, punkt.varden);
        plain = plain && IsPlain(punkt.namn);
    }
    Innehall const again = Read(text + "*\r\n");
    for (std::size_t i = 0; i < kvarn::stodpunktNumbers; ++i) {
        Check(Same(again.huvud[i], all.huvud[i], 5.1e-7), "the header comes back");
    }
    if (!plain) {
        return;
    }
    Check(again.punkter.size() == all.punkter.size(), "no point is lost or made");
    double const gvy = std::isnan(all.gvy) ? 0 : all.gvy; // which is none
    Check(Same(again.gvy, gvy, 5.1e-5), "the level comes back");
    for (std::size_t i = 0; i < all.punkter.size(); ++i) {
        Check(again.punkter[i].namn == all.punkter[i].namn, "names come back");
        Check(Same(again.punkter[i].niva, all.punkter[i].niva, 5.1e-5), "levels come back");
        for (std::size_t j = 0; j < kvarn::stodpunktNumbers; ++j) {
            Check(Same(again.punkter[i].varden[j], all.punkter[i].varden[j], 0.0051),
                  "values come back");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    CheckReadBack(Read(text));
    std::size_t const lines = LinesOf(text).size();
    for (kvarn::Finding const& finding : kvarn::CheckPoints(text)) {
        Check(finding.line >= 1 && finding.line <= lines + 1, "a finding is of a line");
    }
    return 0;
}
