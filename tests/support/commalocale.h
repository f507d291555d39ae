// A process whose numbers have a decimal comma, while one of these lives.
#pragma once

#include <clocale>
#include <cstring>

#include <gtest/gtest.h>

class CommaLocale {
  public:
    CommaLocale() {
        for (char const* name : {"sv_SE.UTF-8", "Swedish"}) {
            if (std::setlocale(LC_NUMERIC, name) != nullptr) {
                break;
            }
        }
        EXPECT_STREQ(std::localeconv()->decimal_point, ",") << "no locale with a comma here";
    }
    ~CommaLocale() { std::setlocale(LC_NUMERIC, "C"); }
    CommaLocale(CommaLocale const&) = delete;
    CommaLocale& operator=(CommaLocale const&) = delete;
};
