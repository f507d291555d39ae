#include "exchangeformat.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include <text/codepage.h>

#include "../failure.h"
#include "../folder.h"

namespace kvarnio {
namespace {

struct Known {
    ExchangeFormat format;
    char const* name;
    std::array<std::string_view, 2> endings;
    bool isRead;
};

constexpr std::array<Known, 4> known = {{
    {ExchangeFormat::landXml, "landxml", {".xml", ".landxml"}, true},
    {ExchangeFormat::dxf, "dxf", {".dxf", ""}, true},
    {ExchangeFormat::geoJson, "geojson", {".geojson", ".json"}, false},
    {ExchangeFormat::csv, "csv", {".csv", ".txt"}, false},
}};

std::string Names(bool areRead) {
    std::string names;
    for (Known const& format : known) {
        if (format.isRead || !areRead) {
            names += (names.empty() ? "" : ", ") + std::string(format.name);
        }
    }
    return names;
}

Known const* ByEnding(std::string const& file) {
    auto const* const found = std::find_if(known.begin(), known.end(), [&](Known const& format) {
        return std::any_of(
            format.endings.begin(), format.endings.end(),
            [&](std::string_view ending) { return !ending.empty() && HasExtension(file, ending); });
    });
    return found == known.end() ? nullptr : found;
}

Known const* ByName(std::string const& name) {
    auto const* const found = std::find_if(known.begin(), known.end(), [&](Known const& format) {
        return kvarn::CompareNoCase1252(format.name, name) == 0;
    });
    return found == known.end() ? nullptr : found;
}

ExchangeFormat FormatOf(std::string const& given, std::string const& file, bool isRead) {
    Known const* const format = given.empty() ? ByEnding(file) : ByName(given);
    if (format != nullptr && (format->isRead || !isRead)) {
        return format->format;
    }
    if (format != nullptr) {
        throw UsageError(std::string(format->name) +
                         " is a format to write, not to read; --format takes " + Names(isRead));
    }
    throw UsageError((given.empty() ? "the ending of " + file + " tells no format"
                                    : "there is no format \"" + given + '"') +
                     "; --format takes " + Names(isRead));
}

} // namespace

char const* NameOf(ExchangeFormat format) {
    return std::find_if(known.begin(), known.end(),
                        [&](Known const& one) { return one.format == format; })
        ->name;
}

ExchangeFormat FormatToRead(std::string const& given, std::string const& file) {
    return FormatOf(given, file, true);
}

ExchangeFormat FormatToWrite(std::string const& given, std::string const& file) {
    return FormatOf(given, file, false);
}

bool IsExchangeFile(std::string const& file) {
    Known const* const format = ByEnding(file);
    return format != nullptr && format->isRead;
}

std::string FormatsToRead() {
    return Names(true);
}

std::string FormatsToWrite() {
    return Names(false);
}

} // namespace kvarnio
