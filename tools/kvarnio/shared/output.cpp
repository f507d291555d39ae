#include "output.h"

#include <algorithm>
#include <iostream>

#include "platform.h"

template class nlohmann::basic_json<nlohmann::ordered_map>;

namespace kvarnio {
namespace {

bool jsonIsPrinted = false;

std::size_t Width(std::string const& utf8) {
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80;
    }));
}

std::vector<std::size_t> ColumnWidths(std::vector<std::vector<std::string>> const& rows,
                                      std::size_t widest) {
    std::vector<std::size_t> widths(rows.front().size());
    for (auto const& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            std::size_t const width = Width(row[i]);
            widths[i] = width <= widest ? std::max(widths[i], width) : widths[i];
        }
    }
    return widths;
}

} // namespace

std::string Shown(std::string_view path) {
    std::u8string const host = HostPath(path).u8string();
    return {host.begin(), host.end()};
}

void PrintTable(std::vector<std::vector<std::string>> const& rows, std::size_t widest) {
    std::vector<std::size_t> const widths = ColumnWidths(rows, widest);
    for (auto const& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            std::size_t const width = Width(row[i]);
            std::size_t const padding = width < widths[i] ? widths[i] - width : 0;
            line += row[i] + std::string(i + 1 < row.size() ? padding + 2 : 0, ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        std::cout << line << '\n';
    }
}

void PrintJson(Json const& json) {
    constexpr int indent = 2;
    constexpr bool onlyAscii = false;
    std::cout << json.dump(indent, ' ', onlyAscii, Json::error_handler_t::replace) << '\n';
    jsonIsPrinted = true;
}

bool JsonIsPrinted() {
    return jsonIsPrinted;
}

} // namespace kvarnio
