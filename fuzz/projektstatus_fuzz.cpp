// The states of a project, beside a model: a module with any texts under any numbers, and any order
// of calls on two lists.
#include <algorithm>
#include <optional>
#include <vector>

#include "check.h"
#include "input.h"
#include "project/projektstatus.h"
#include "text/text.h"

namespace {

constexpr int okand = 999;
constexpr unsigned forstaText = 5006;
constexpr unsigned okandText = 5012;
constexpr std::size_t langst = sizeof(projektstatustype::text) - 1;

// A host's module: the first of two texts with one number counts.
struct Modul {
    explicit Modul(Input& in) {
        constexpr std::size_t mest = 9;
        texter.reserve(mest); // the module points into it
        while (texter.size() < mest && in.Bool()) {
            constexpr std::size_t langre = 300; // than any buffer
            texter.push_back(in.Bool() ? std::string(langre, 'x') : in.Text(langst + 4));
            unsigned const nummer = in.Number(forstaText - 1, okandText + 1);
            rader.push_back({nummer, texter.back().c_str()});
        }
    }
    std::string Text(unsigned nummer) const {
        for (kvarn::StringResource const& rad : rader) {
            if (rad.id == nummer) {
                constexpr std::size_t mest = 254;
                return std::string(rad.text).substr(0, mest);
            }
        }
        return "";
    }
    HINSTANCE Handle() {
        resurser = {rader.data(), rader.size()};
        return reinterpret_cast<HINSTANCE>(&resurser);
    }

    std::vector<std::string> texter;
    std::vector<kvarn::StringResource> rader;
    kvarn::ModuleResources resurser{};
};

struct Post {
    int kod;
    std::string text;
};

class Par {
  public:
    void Steg(Input& in, Modul& modul) {
        switch (in.Number(0, 7)) {
        case 0:
            m_modul = in.Bool() ? &modul : nullptr;
            m_lista.SetHandle(m_modul != nullptr ? modul.Handle() : nullptr);
            break;
        case 1:
            Load();
            break;
        case 2:
            Ny(in);
            break;
        case 3:
            Find(in.Bool() || m_modell.empty() ? in.Text(langst) : Nagon(in).text);
            break;
        case 4:
            SetStatus(in.Bool() || m_modell.empty() ? in.Number(-2, 12) : Nagon(in).kod);
            break;
        case 5:
            GetStatus();
            break;
        case 6:
            m_lista.m_status = in.Number<std::int32_t>(); // clients may
            m_status = m_lista.m_status;
            break;
        default:
            TaBort();
        }
        CheckListan();
    }

  private:
    Post const& Nagon(Input& in) const {
        return m_modell[in.Number<std::size_t>(0, m_modell.size() - 1)];
    }
    std::string Text(unsigned nummer) const {
        return m_modul != nullptr ? m_modul->Text(nummer) : "";
    }

    void Load() {
        bool const tom = m_modell.empty();
        m_lista.Load();
        for (int kod = 0; tom && kod < 7; ++kod) {
            unsigned const nummer = forstaText + static_cast<unsigned>(kod);
            m_modell.push_back({kod < 6 ? kod : okand, Text(nummer).substr(0, langst)});
        }
    }
    void Ny(Input& in) {
        projektstatustype post{in.Number(-1, 10), {}};
        std::string const text = in.Text(sizeof post.text); // it may lack the zero
        std::copy(text.begin(), text.end(), post.text);
        bool const sist = in.Bool();
        bool const tom = in.Bool();
        bool const forst = !sist && m_lista.Home() == 0;
        Check(m_lista.Ny(sist ? 1 : 0, tom ? nullptr : &post) == 0, "a new state");
        Post const ny = {tom ? 0 : post.kod, std::string(kvarn::FieldText(post.text))};
        m_modell.insert(forst ? m_modell.begin() : m_modell.end(), tom ? Post{0, ""} : ny);
    }
    void Find(std::string const& text) {
        std::string const sokt = text.substr(0, text.find('\0'));
        auto const post = std::find_if(m_modell.begin(), m_modell.end(), [&](Post const& p) {
            return kvarn::SameText(p.text, sokt);
        });
        bool const finns = post != m_modell.end();
        m_funnen = m_funnen || finns;
        Check(m_lista.Find(sokt.c_str()) == (finns ? post->kod : okand), "the code of the text");
        Check(!finns || m_lista.Get_aktel()->kod == post->kod, "which is current");
    }
    void SetStatus(int kod) {
        bool const finns = std::any_of(m_modell.begin(), m_modell.end(),
                                       [&](Post const& p) { return p.kod == kod; });
        m_funnen = m_funnen || finns;
        m_status = finns || m_modell.empty() ? kod : okand;
        Check(m_lista.SetStatus(kod) == (m_modell.empty() ? -1 : 0), "the stated result");
    }
    // The state counts as a position.
    void GetStatus() {
        std::string const text = m_lista.GetStatus().GetString();
        if (m_modell.empty()) {
            Check(text.empty(), "an empty list has no text");
        } else if (m_status >= static_cast<int>(m_modell.size())) {
            Check(text == Text(okandText), "the unknown state's text");
            m_status = okand;
        } else {
            Check(text == m_modell[static_cast<std::size_t>(std::max(m_status, 0))].text,
                  "the text so many steps on");
        }
    }
    void TaBort() {
        if (m_lista.Home() == 0) {
            m_lista.Delete();
            m_modell.erase(m_modell.begin());
        }
    }

    void CheckListan() {
        Check(m_lista.m_status == m_status && (m_lista.m_funnen == 1) == m_funnen, "the state");
        Check(m_lista.TxLoadString(okandText).GetString() == Text(okandText), "a module's text");
        auto post = m_modell.begin();
        for (bool finns = m_lista.Home() == 0; finns; finns = m_lista++ != nullptr) {
            projektstatustype const& egen = *m_lista.Get_aktel();
            Check(post != m_modell.end() && egen.kod == post->kod &&
                      kvarn::FieldText(egen.text) == post->text,
                  "the list of the model");
            ++post;
        }
        Check(post == m_modell.end(), "and all of it");
    }

    CProjektStatus m_lista;
    Modul const* m_modul = nullptr;
    std::vector<Post> m_modell;
    int m_status = 0;
    bool m_funnen = false;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    constexpr int mestaSteg = 30;
    Input in(data, size);
    Modul modul(in);
    Par par[2];
    for (int i = 0; i < mestaSteg && in.Remaining() > 0; ++i) {
        par[in.Number(0, 1)].Steg(in, modul);
    }
    return 0;
}
