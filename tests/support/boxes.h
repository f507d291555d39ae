// The message boxes that the library shows while one of these lives, answered without a desktop.
#pragma once

#include <string>
#include <vector>

#include "core/message.h"

struct ShownBox {
    std::string text;
    std::string caption; // "<title>" for the application title
    unsigned style;
    int owned;

    bool operator==(ShownBox const&) const = default;
    friend std::ostream& operator<<(std::ostream& out, ShownBox const& box) {
        return out << '[' << box.caption << "] " << box.text << " (style " << box.style
                   << ", owned " << box.owned << ')';
    }
};

class Boxes {
  public:
    explicit Boxes(int answer = 1) {
        Shown().clear();
        m_answer = answer;
        SetMessageBoxHandler([](MessageBoxRequest const& request) {
            Shown().push_back({request.text,
                               request.caption != nullptr ? request.caption : "<title>",
                               request.style, request.owned});
            return m_answer;
        });
    }
    ~Boxes() { SetMessageBoxHandler(nullptr); }
    Boxes(Boxes const&) = delete;
    Boxes& operator=(Boxes const&) = delete;

    static std::vector<ShownBox>& Shown() {
        static std::vector<ShownBox> shown;
        return shown;
    }

  private:
    static inline int m_answer = 1;
};
