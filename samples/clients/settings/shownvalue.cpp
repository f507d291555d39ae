#include "shownvalue.h"

#include <algorithm>

#include <resources/settingspages.h>

namespace {

constexpr char const* dash = " \x96 ";

std::string Words(kvarn::SettingsWords const& row, PageLanguage language) {
    return language == PageLanguage::swedish ? row.swedish : row.norwegian;
}

int PowerOf(int control) {
    for (kvarn::SettingsUnit const& row : kvarn::settingsUnits) {
        if (row.control == control) {
            return row.power;
        }
    }
    return 0;
}

bool IsDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

bool AreDigits(std::string const& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

struct Number {
    explicit Number(std::string const& text) {
        std::size_t const start = !text.empty() && text[0] == '-' ? 1 : 0;
        std::size_t const point = text.find('.');
        sign = text.substr(0, start);
        whole = text.substr(start, point == std::string::npos ? point : point - start);
        hasPoint = point != std::string::npos;
        decimals = hasPoint ? text.substr(point + 1) : "";
    }
    bool IsOne() const { return AreDigits(whole) && (!hasPoint || AreDigits(decimals)); }

    std::string sign;
    std::string whole;
    std::string decimals;
    bool hasPoint;
};

void MovePointRight(Number& number) {
    number.whole += number.decimals.empty() ? '0' : number.decimals[0];
    number.decimals.erase(0, 1);
}

void MovePointLeft(Number& number) {
    number.decimals.insert(0, 1, number.whole.empty() ? '0' : number.whole.back());
    number.whole = number.whole.substr(0, number.whole.empty() ? 0 : number.whole.size() - 1);
}

std::string Text(Number const& number) {
    std::size_t const first = number.whole.find_first_not_of('0');
    std::size_t const last = number.decimals.find_last_not_of('0');
    std::string const whole = first == std::string::npos ? "0" : number.whole.substr(first);
    std::string const decimals =
        last == std::string::npos ? "" : '.' + number.decimals.substr(0, last + 1);
    return number.sign + whole + decimals;
}

std::string Shifted(std::string const& text, int power) {
    Number number(text);
    if (power == 0 || !number.IsOne()) {
        return text;
    }
    for (; power > 0; --power) {
        MovePointRight(number);
    }
    for (; power < 0; ++power) {
        MovePointLeft(number);
    }
    return Text(number);
}

} // namespace

std::string WithWords(std::string const& code, PageLanguage language) {
    for (kvarn::SettingsWords const& row : kvarn::settingsWords) {
        if (code == row.code) {
            return code + dash + Words(row, language);
        }
    }
    return code;
}

std::string WithoutWords(std::string const& shown) {
    for (kvarn::SettingsWords const& row : kvarn::settingsWords) {
        for (PageLanguage const language : {PageLanguage::swedish, PageLanguage::norwegian}) {
            if (shown == row.code + (dash + Words(row, language))) {
                return row.code;
            }
        }
    }
    return shown;
}

std::string InUsersUnit(int control, std::string const& value) {
    return Shifted(value, PowerOf(control));
}

std::string InFilesUnit(int control, std::string const& shown) {
    return Shifted(shown, -PowerOf(control));
}

bool IsNumber(std::string const& text) {
    return Number(text).IsOne();
}
