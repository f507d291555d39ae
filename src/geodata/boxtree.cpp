#include "boxtree.h"

namespace kvarn {

BoxTree::BoxTree(std::vector<Box> leaves) {
    m_levels.push_back(std::move(leaves));
    while (m_levels.back().size() > 1) {
        std::vector<Box>& below = m_levels.back();
        below.resize((below.size() + 1) / 2 * 2);
        std::vector<Box> pairs(below.size() / 2);
        for (std::size_t i = 0; i < below.size(); ++i) {
            pairs[i / 2].Add(below[i]);
        }
        m_levels.push_back(std::move(pairs));
    }
}

} // namespace kvarn
