#include "ritningsformat.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <type_traits>

namespace {

constexpr ritningsformattype formatTable[] = {
    {"A0", 1122, 793, 1141, 823, 1189, 841},  {"A1", 774, 574, 793, 577, 840, 594},
    {"A1L", 1122, 574, 1141, 577, 1189, 594}, {"A2", 527, 373, 547, 403, 594, 420},
    {"A2L", 774, 373, 793, 403, 841, 420},    {"A3", 353, 250, 373, 280, 420, 297},
    {"A3L", 527, 250, 547, 280, 594, 297},    {"A3XL", 774, 250, 794, 280, 843, 297},
    {"A4", 143, 250, 183, 280, 210, 297},
};

} // namespace

CRitningsFormat::CRitningsFormat() : m_antal(std::size(formatTable)) {
    static_assert(std::size(formatTable) == std::extent_v<decltype(m_format)>);
    std::copy(std::begin(formatTable), std::end(formatTable), m_format);
}

CRitningsFormat::CRitningsFormat(CRitningsFormat const&) = default;
CRitningsFormat& CRitningsFormat::operator=(CRitningsFormat const&) = default;
CRitningsFormat::~CRitningsFormat() = default;

int CRitningsFormat::Format2Index(char const* namn) {
    int index = -1;
    auto const count =
        std::min<std::ptrdiff_t>(m_antal, std::ssize(m_format)); // clients may set it
    for (int i = 0; i < count && namn != nullptr; ++i) {
        index = std::string_view(m_format[i].namn) == namn ? i : index; // the last that matches
    }
    return index;
}
