#include "checkvagfil.h"

#include "../../text/scan.h"
#include "../../text/shown.h"
#include "linechecker.h"

namespace kvarn {
namespace {

std::string Quoted(std::string_view text) {
    return '"' + OneLine(text) + '"';
}

void LookAtName(TextLine const& line, std::vector<Finding>& cut) {
    VagfilHeader const header(line.text);
    if (header.name.size() > longestVagnamn) {
        cut.push_back({line.number, "the name has " + std::to_string(header.name.size()) +
                                        " characters; " + std::to_string(longestVagnamn) +
                                        " are read"});
    }
    if (!header.afterName.empty()) {
        cut.push_back({line.number,
                       "the name ends at its second \"$\"; not read: " + Quoted(header.afterName)});
    }
}

// Why a line gives no vertex; empty for one that does, or is meant not to.
char const* WhySkipped(VagfilLine const& line) {
    double number = 0;
    switch (line.kind) {
    case VagfilLine::Kind::bad:
        return "not four numbers";
    case VagfilLine::Kind::badProfileVertex:
        return "not three numbers";
    case VagfilLine::Kind::heading:
        return Scan(line.line.text, number) == 1 ? R"(it stands where "Profil" and "*" do)" : "";
    default:
        return "";
    }
}

} // namespace

VagfilContent ReadVagfil(std::string_view content) {
    VagfilContent read;
    VagfilReader lines(content);
    for (VagfilLine line; lines.Next(line);) {
        auto const& [number, text, afterZero] = line.line;
        bool const isProfile = line.kind == VagfilLine::Kind::profileVertex;
        if (std::string const why = WhySkipped(line); !why.empty()) {
            read.skipped.push_back({number, "bad line, skipped: " + why + ": " + Quoted(text)});
        } else if (isProfile || line.kind == VagfilLine::Kind::vertex) {
            (isProfile ? read.profile : read.plan).Add(line);
            if (number == 1) {
                LookAtName(line.line, read.cut);
            } else if (line.hasRest) { // a decimal comma in the last number, for one
                read.cut.push_back({number, "text after the numbers is not read: " + Quoted(text)});
            }
        }
        if (afterZero) {
            read.cut.push_back(
                {number, "text after a zero byte is not read: " + Quoted(*afterZero)});
        }
    }
    if (auto const beyond = BeyondEnd(content)) {
        read.cut.push_back(
            {beyond->number, "everything after the end-of-file character 0x1A is not read: " +
                                 Quoted(beyond->text)});
    }
    return read;
}

} // namespace kvarn
