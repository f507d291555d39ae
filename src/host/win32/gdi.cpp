#include "gdi.h"

#include <algorithm>
#include <cstring>

struct HFONT__ {
    LOGFONTA description;
};

HFONT CreateFontIndirectA(LOGFONTA const* description) {
    return new HFONT__{*description};
}

int GetObjectA(HGDIOBJ object, int size, void* description) {
    if (object == nullptr || size <= 0) {
        return 0;
    }
    int const length = std::min(size, static_cast<int>(sizeof(LOGFONTA)));
    std::memcpy(description, &static_cast<HFONT>(object)->description,
                static_cast<std::size_t>(length));
    return length;
}

BOOL DeleteObject(HGDIOBJ object) {
    delete static_cast<HFONT>(object);
    return object != nullptr;
}
