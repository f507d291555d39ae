#include "onebox.h"

#include <algorithm>

#include <kvarnprog.h>

namespace {

constexpr std::size_t lineLength = 44;

bool boxShown = false;

std::string CaptionOf(MessageBoxRequest const& request) {
    constexpr UINT applicationTitle = 57344;
    char title[64] = "";
    LoadStringA(LibraryModule(), applicationTitle, title, sizeof title);
    return request.caption != nullptr ? request.caption : title;
}

int ShowFirst(MessageBoxRequest const& request) {
    if (boxShown) {
        return IDOK;
    }
    boxShown = true;
    CWnd const* const owner = AfxGetMainWnd();
    return MessageBoxA(owner != nullptr ? owner->GetSafeHwnd() : nullptr,
                       WithPathLines(request.text).c_str(), CaptionOf(request).c_str(),
                       request.style);
}

// Where a path begins: at a drive or at a server.
std::size_t PathIn(std::string const& line) {
    std::size_t const drive = line.find(":\\");
    return drive != std::string::npos && drive > 0 ? drive - 1 : line.find("\\\\");
}

std::string PathLines(std::string path) {
    std::string lines;
    while (path.size() > lineLength) {
        std::size_t cut = path.rfind('\\', lineLength - 1);
        cut = cut == std::string::npos || cut < 3 ? path.find('\\', 3) : cut;
        if (cut == std::string::npos || cut + 1 >= path.size()) {
            break;
        }
        lines += path.substr(0, cut + 1) + '\n';
        path.erase(0, cut + 1);
    }
    return lines + path;
}

std::string LineWithPath(std::string const& line) {
    std::size_t const path = PathIn(line);
    if (path == std::string::npos) {
        return line;
    }
    std::string lines = line.substr(0, path);
    if (path > 0) {
        lines.erase(lines.find_last_not_of(' ') + 1);
        lines += '\n';
    }
    lines += PathLines(line.substr(path));
    return lines;
}

} // namespace

OneBox::OneBox() {
    boxShown = false;
    SetMessageBoxHandler(ShowFirst);
}

OneBox::~OneBox() {
    SetMessageBoxHandler(nullptr);
}

std::string WithPathLines(std::string const& text) {
    std::string lines;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t const end = std::min(text.find('\n', start), text.size());
        if (start > 0) {
            lines += '\n';
        }
        lines += LineWithPath(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}
