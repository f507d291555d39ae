#include "list.h"

namespace pages {

std::vector<Page> AllPages() {
    std::vector<Page> all;
    for (auto const& part : {KvarnbokPages(), SoundingPages(), KlippbokPages()}) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

} // namespace pages
