// A road line whose list can be looked into.
#pragma once

#include <vector>

#include "check.h"
#include "vagmodell.h"

class Line : public CVaglinje {
  public:
    std::vector<kovltype> Vertices() const {
        std::vector<kovltype> vertices;
        for (nod const* n = m_forsta; n != nullptr; n = n->nasta) {
            vertices.push_back(n->post);
        }
        return vertices;
    }

    void CheckSound() const {
        int forward = 0;
        int current = 0;
        bool marked = false;
        for (nod const* n = m_forsta; n != nullptr; n = n->nasta) {
            ++forward;
            current = n == aktel ? forward : current;
            marked = marked || n == mark;
            Check(n->nasta != nullptr || n == m_sista, "the last vertex ends the list");
        }
        int backward = 0;
        for (nod const* n = forward > 0 ? m_sista : nullptr; n != nullptr; n = n->forra) {
            ++backward;
        }
        Check(forward == m_antal && backward == m_antal, "as many vertices either way");
        Check(aktel == nullptr ||
                  (current != 0 && current == m_position && m_aktpost == &aktel->post),
              "the current vertex is in the line, at its position");
        Check(mark == nullptr || (marked && m_markpost == &mark->post), "the mark is in the line");
    }

    int Index() const { return IndexOf(aktel); }
    int MarkIndex() const { return IndexOf(mark); }

  private:
    int IndexOf(nod const* sought) const {
        int index = 0;
        for (nod const* n = m_forsta; n != nullptr; n = n->nasta, ++index) {
            if (n == sought) {
                return index;
            }
        }
        return -1;
    }
};

inline void CheckWalk(Line const& line, Gang const& gang) {
    Check(line.MarkIndex() == static_cast<int>(gang.from) &&
              line.Index() == static_cast<int>(gang.to),
          "mark and current vertex are the segment that was found");
}
