// kvarnio env: where everything is after start-up, and why.
#include <cstdlib>
#include <memory>

#include <CLI/CLI.hpp>
#include <settings/bootstrap.h>
#include <text/codepage.h>

#include "../commands.h"
#include "../shared/arguments.h"
#include "../shared/output.h"
#include "../shared/platform.h"

namespace kvarnio {
namespace {

struct EnvArguments {
    std::vector<std::string> bootstrap; // release and program
    bool refresh = false;
};

// What was found out, in the order of asking.
class Findings {
  public:
    void Add(char const* name, std::string const& value, std::string const& why) {
        m_rows.push_back({name, value, why});
        m_json.push_back({{"name", name}, {"value", value}, {"why", why}});
    }
    void AddPath(char const* name, CString const& path, std::string const& why) {
        std::string const shown = path.IsEmpty() ? "" : Shown(path.GetString());
        std::error_code unreachable;
        bool const there =
            !path.IsEmpty() && std::filesystem::exists(HostPath(path.GetString()), unreachable);
        Add(name, shown, path.IsEmpty() ? "not set" : there ? why : why + "; does not exist");
    }
    void Print(bool json) const {
        constexpr std::size_t longPath = 200;
        json ? PrintJson(m_json) : PrintTable(m_rows, longPath);
    }

  private:
    std::vector<std::vector<std::string>> m_rows = {{"WHAT", "VALUE", "WHY"}};
    Json m_json = Json::array();
};

std::string KeySource(CAutoIni& ini, char const* key) {
    return ini.ReadKey("SYSTEM", key).IsEmpty() ? "as before" : std::string("key ") + key;
}

std::string Bootstrapped(int result) {
    switch (result) {
    case 0:
        return "ready";
    case -1:
        return "no installation found in the registry";
    case -2:
        return "no settings of the user's";
    case -3:
        return "no settings of all users";
    case -4:
        return "the user's folder could not be made";
    case -5:
        return "Markvida.ini could not be made for the user";
    default:
        return "the folder Orsakor could not be made in the user's data";
    }
}

std::string Meaning(kvarn::BootstrapStep::Kind kind) {
    using Step = kvarn::BootstrapStep;
    switch (kind) {
    case Step::noInstallation:
        return "no installation";
    case Step::otherInstallation:
        return "other one";
    case Step::installation:
        return "installation";
    case Step::usersSettings:
        return "settings found";
    case Step::olderSettings:
        return "settings copied from the older name";
    case Step::noSettings:
        return "no settings";
    case Step::switcher:
        return "settings by the switcher";
    case Step::noSwitcher:
        return "no settings by the switcher";
    case Step::sharedSettings:
    default:
        return "settings copied from all users";
    }
}

// As the bootstrap took them.
void AddSteps(Findings& findings, std::vector<kvarn::BootstrapStep> const& steps) {
    for (kvarn::BootstrapStep const& step : steps) {
        std::string const name = Meaning(step.kind);
        if (step.kind > kvarn::BootstrapStep::installation) {
            findings.AddPath(name.c_str(), step.place.c_str(), "bootstrap");
        } else if (step.value.empty()) {
            findings.Add(name.c_str(), "", "HKLM\\" + OneLine(step.place));
        } else {
            findings.AddPath(name.c_str(), step.value.c_str(), "HKLM\\" + OneLine(step.place));
        }
    }
}

void AddSettings(Findings& findings, Context& context, bool bootstrapped) {
    CAutoIni& ini = context.ini;
    bool const direct = ini.m_lage != 0;
    findings.Add("settings mode", std::to_string(ini.m_lage),
                 direct ? "keys go to the INI file" : "keys go through the application object");
    findings.AddPath("INI file", ini.m_iniFil,
                     std::string(ini.m_iniFil.GetString()).find('\\') == std::string::npos
                         ? "none in the main folder: a bare name is Windows' own folder"
                     : context.IniIsReadable() ? "found"
                                               : "cannot be read: what it says does not hold");
    findings.AddPath("main folder", ini.m_huvudKat,
                     bootstrapped                         ? "of the installation"
                     : std::getenv("KVARNBOK") != nullptr ? "KVARNBOK, or --home"
                                                          : "the default");
    bool const cfg = !ini.ReadKey("SYSTEM", "KVARNBOK.CFG").IsEmpty();
    findings.AddPath("CFG folder", ini.m_cfgKat,
                     cfg            ? "key KVARNBOK.CFG"
                     : bootstrapped ? "the user's settings folder"
                                    : "the main folder, or --cfg");
    findings.AddPath("messages", ini.m_medKat, KeySource(ini, "MSG"));
    findings.AddPath("scripts", ini.m_scriptKat, KeySource(ini, "SCRIPTPATH"));
    findings.Add("CAD version", std::to_string(ini.m_acadVer), KeySource(ini, "ACADVER"));
    findings.AddPath("CAD program", ini.m_acadExe, KeySource(ini, "ACADEXE"));
}

ExitStatus Env(Context& context, EnvArguments const& arguments) {
    Findings findings;
    CAutoIni& ini = context.ini;
    ExitStatus status = done;
    bool bootstrapped = false;
    if (CodePage() != 1252) {
        findings.Add("code page", std::to_string(CodePage()),
                     "not 1252: letters outside ASCII will be wrong");
        status = failed;
    }
    if (!arguments.bootstrap.empty()) {
        std::string const program = Text("SUB", arguments.bootstrap[1]);
        std::vector<kvarn::BootstrapStep> steps;
        int const result = kvarn::Bootstrap(ini, WholeNumber("VER", arguments.bootstrap[0]),
                                            program.c_str(), CString(ini.m_huvudKat), steps);
        findings.Add("bootstrap", std::to_string(result), Bootstrapped(result));
        AddSteps(findings, steps);
        if (*ini.InstallPackage() != '\0') {
            findings.Add("package", OneLine(ini.InstallPackage()), "of the installation");
        }
        bootstrapped = result == 0;
        status = result == 0 ? status : failed;
    }
    if (arguments.refresh) {
        int const result = ini.AllUserFileCheck();
        findings.Add("refresh", std::to_string(result),
                     result == 0 ? "newer files are copied"
                                 : "no folder of the user's, or no platform registered");
        status = result == 0 ? status : failed;
    }
    AddSettings(findings, context, bootstrapped);
    findings.Print(context.json);
    return context.IniIsReadable() ? status : notDone;
}

} // namespace

void AddEnvCommand(CommandLine& line) {
    auto const arguments = std::make_shared<EnvArguments>();
    CLI::App& env = line.AddCommand(
        "env", "Show where settings and folders are, and why",
        "--bootstrap makes and fills the user's settings folder at the first start, as programs "
        "do.\nExample: kvarnio env --bootstrap 0 AX --refresh");
    env.add_option("--bootstrap", arguments->bootstrap,
                   "Start as a program does: its release (18 to 20; 0 and 1 for that of the main "
                   "folder) and its name")
        ->type_name("VER SUB")
        ->expected(2);
    env.add_flag("--refresh", arguments->refresh,
                 "Then copy newer files of all users to the user's settings folder");
    line.Run(env, [arguments](Context& context) { return Env(context, *arguments); });
}

} // namespace kvarnio
