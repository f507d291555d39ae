// foreignfiles ROADFILE FOLDER: writes the road into a folder in every format, for other programs
// to read. check-foreign runs it.
#include <neighbours/dxf.h>
#include <neighbours/geojson.h>

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include <formats/checks/checkvagfil.h>
#include <text/codepage.h>

namespace {

std::string Read(char const* path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error(std::string(path) + " cannot be read");
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

kvarnio::Road RoadIn(std::string const& content) {
    kvarn::VagfilContent const read = kvarn::ReadVagfil(content);
    kvarn::VagfilReader const header{std::string_view(content)};
    return {header.Header() ? kvarn::ToUtf8(header.Header()->Name()) : "", read.plan.vertices,
            read.profile.vertices};
}

void Write(std::filesystem::path const& path, std::string const& text) {
    std::ofstream(path, std::ios::binary) << text;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        return 2;
    }
    try {
        kvarnio::Road const road = RoadIn(Read(arguments[1]));
        std::filesystem::path const folder = arguments[2];
        Write(folder / "road.dxf",
              kvarnio::ToDxf(road, {std::nullopt, kvarnio::Area{0, 1e6, -30, 30}}));
        Write(folder / "road.geojson", kvarnio::ToGeoJson(road, {0.001, 20.0, "EPSG:3006"}));
    } catch (std::exception const& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
