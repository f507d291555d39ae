// The program's own texts, in the language of the pages and in code page 1252.
#pragma once

#include "shownvalue.h"

struct Texts {
    char const* program;
    char const* projectMenu;
    char const* settingsCommand;
    char const* closeCommand;
    char const* project;
    char const* heightScale;
    char const* lengthScale;
    char const* badLine; // file, number, line
    char const* settings;
    char const* cancel;
    char const* apply;
    char const* notSaved;
    char const* notANumber; // field, text, an example
};

inline Texts const& TextsOf(PageLanguage language) {
    static constexpr Texts swedish = {
        "Ritprogrammet",
        "&Projekt",
        "&Inst\xE4llningar...",
        "&Avsluta",
        "Projekt:",
        "H\xF6jdskala 1:",
        "L\xE4ngdskala 1:",
        "%s, rad %d: %s",
        "Inst\xE4llningar",
        "Avbryt",
        "&Verkst\xE4ll",
        "Alla v\xE4rden kunde inte sparas.",
        "%s: \"%s\" \xE4r inget tal.\nSkriv ett tal med decimalpunkt,\ntill exempel %s.",
    };
    static constexpr Texts norwegian = {
        "Tegneprogrammet",
        "&Prosjekt",
        "&Innstillinger...",
        "&Avslutt",
        "Prosjekt:",
        "H\xF8ydeskala 1:",
        "Lengdeskala 1:",
        "%s, linje %d: %s",
        "Innstillinger",
        "Avbryt",
        "&Bruk",
        "Alle verdiene kunne ikke lagres.",
        "%s: \"%s\" er ikke et tall.\nSkriv et tall med desimalpunktum,\nfor eksempel %s.",
    };
    return language == PageLanguage::swedish ? swedish : norwegian;
}
