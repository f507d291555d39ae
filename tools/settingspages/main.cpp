// settingspages scripts FOLDER: makes the resource scripts of the settings pages from their list.
// settingspages headers FOLDER: makes the headers that programs are compiled with. They are part of
// the sources (src/resources): run it when the list has changed.
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <stdexcept>

#include "headers.h"
#include "script.h"

namespace {

void Write(std::filesystem::path const& path, std::string const& text) {
    std::ofstream file(path, std::ios::binary);
    if (!file.write(text.data(), static_cast<std::streamsize>(text.size())).flush()) {
        throw std::runtime_error(path.string() + " cannot be written");
    }
}

// Programs are compiled with the numbers.
void CheckNumbers(std::vector<pages::Page> const& all) {
    std::set<int> numbers;
    auto const take = [&](int number) {
        if (!numbers.insert(number).second) {
            throw std::runtime_error("number " + std::to_string(number) + " is used twice");
        }
    };
    for (pages::Page const& page : all) {
        take(page.number);
        pages::ForEachField(page, [&](pages::Field const& field) { take(field.number); });
    }
}

void Make(std::string const& what, std::filesystem::path const& folder) {
    std::vector<pages::Page> const all = pages::AllPages();
    CheckNumbers(all);
    if (what == "headers") {
        Write(folder / "resource.h", pages::ResourceHeader(all));
        Write(folder / "settingspages.h", pages::TableHeader(all));
    } else if (what == "scripts") {
        Write(folder / "pages_sv.rc", pages::Script(all, pages::swedish));
        Write(folder / "pages_no.rc", pages::Script(all, pages::norwegian));
    } else {
        throw std::runtime_error("usage: settingspages headers|scripts FOLDER");
    }
}

} // namespace

int main(int count, char** arguments) {
    try {
        bool const complete = count == 3;
        Make(complete ? arguments[1] : "", complete ? arguments[2] : "");
    } catch (std::exception const& failure) {
        std::cerr << "settingspages: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}
