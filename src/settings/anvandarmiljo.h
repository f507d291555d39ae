// The user's own settings folder of one program and release, and how it is filled the first time.
#pragma once

#include <cstdint>
#include <string>

namespace kvarn {

// What CAutoIni::InitXPWay returns.
enum Uppstart {
    klar = 0,
    ingenInstallation = -1,
    ingaAnvandardata = -2,
    ingaGemensammaData = -3,
    ingenAnvandarkatalog = -4,
    ingenIniFil = -5,
    ingenHuvudkatalog = -6
};

constexpr std::int32_t senasteUtgava = 20;

// A release as the last part of its registry key and of its folder, "R20"; empty for others.
std::string Utgavekatalog(std::int32_t utgava);

class Anvandarmiljo {
  public:
    // With the user's application data, made where that is missing, and the name that the program's
    // keys and folders have.
    explicit Anvandarmiljo(std::string program);

    // Any other release leaves the folder as it was; at first there is none.
    void ValjUtgava(std::int32_t utgava);

    std::string const& Katalog() const { return m_katalog; }
    std::string const& Ini() const { return m_ini; }
    bool HarIni() const;
    // The folder above those of the releases, or a file in it.
    std::string Programkatalog() const;
    std::string Programkatalog(char const* fil) const;

    // Each makes the folder and copies files into it: from the folder that the program had under
    // its older name, where there is one and the user's INI file is missing; from that of all
    // users, which knows no releases. The user is told of what fails.
    Uppstart HamtaFranAldre() const;
    Uppstart HamtaFranGemensamma() const;

  private:
    Uppstart Fyll(std::string const& fran) const;
    Uppstart SkapaKataloger() const;

    std::string m_data;
    std::string m_program;
    std::string m_utgavekatalog;
    std::string m_katalog;
    std::string m_ini;
};

} // namespace kvarn
