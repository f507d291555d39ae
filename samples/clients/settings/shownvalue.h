// What a user sees for the values of the settings files: words beside codes, one unit for a
// quantity. The files keep the code and their own unit.
#pragma once

#include <string>

enum class PageLanguage { swedish, norwegian };

// "MAX" with what it stands for; any other value as it is.
std::string WithWords(std::string const& code, PageLanguage language);

// The code of such a text, in whichever language; any other text as it is.
std::string WithoutWords(std::string const& shown);

// A control's number in the unit that users see, and in the file's again, digit by digit; what is
// no number stays as it is.
std::string InUsersUnit(int control, std::string const& value);
std::string InFilesUnit(int control, std::string const& shown);

// Whether it is a number as the files have them: digits, with a decimal point.
bool IsNumber(std::string const& text);
