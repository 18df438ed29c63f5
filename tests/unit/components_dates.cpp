// What people type as a date, what is stored and what is shown again.
#include "components/DateConverter.h"

#include <gtest/gtest.h>

namespace vorandine::components {
namespace {

DateConverter converter(int year) {
    return DateConverter([year] { return widgets::Date{year, 10, 15}; });
}

std::string typed(DateConverter& dates, const std::string& text) {
    std::int16_t option = 0;
    std::string shown = dates.Saisie_Date(text, option);
    EXPECT_FALSE(dates.Erreur_Date()) << text;
    return shown;
}

TEST(Dates, TypedFormsAreRewritten) {
    DateConverter dates = converter(2026);
    const struct {
        const char* typed;
        const char* shown;
    } cases[] = {
        {"1/2/2005", "01/02/2005"},   {"01/02/2005", "01/02/2005"}, {"31/12/05", "31/12/2005"},
        {"1/2/05", "01/02/2005"},     {"010205", "01/02/2005"},     {"01022005", "01/02/2005"},
        {"3/4", "03/04/2026"},        {"31/12", "31/12/2026"},      {"  3/4 ", "03/04/2026"},
        {" 010205  ", "01/02/2005"},  {"29/02/2024", "29/02/2024"}, {"290224", "29/02/2024"},
        {"29/02/2000", "29/02/2000"}, {"1/1/1000", "01/01/1000"},   {"31/12/9999", "31/12/9999"},
    };
    for (const auto& [text, shown] : cases) {
        EXPECT_EQ(typed(dates, text), shown) << text;
        EXPECT_EQ(typed(dates, shown), shown) << "typed again";
    }
}

TEST(Dates, TextThatIsNoDateStaysAsItIsAndHasNoStoredForm) {
    DateConverter dates = converter(2026);
    for (const char* text :
         {"31/02/2005", "29/02/2023", "29/02",     "29/02/1900", "32/01/2005", "0/1/2005",
          "1/0/2005",   "1/13/2005",  "aaa",       "1/2/a5",     "/",          "//",
          "1/",         "/2",         "1//2005",   "1/2/",       "1/2/3/4",    "1/2/5",
          "1/2/205",    "1/2/20055",  "001/2/05",  "1/002/05",   "12",         "0102",
          "01020",      "0102200",    "010220055", "310205",     "1 2 2005",   "1/2/-5",
          "1.2.2005",   "01/01/0999", "١/٢/٢٠٠٥",  " é ",        "   "}) {
        EXPECT_EQ(typed(dates, text), text);
        EXPECT_EQ(dates.Date_Stockee(text), "") << text;
    }
}

TEST(Dates, TwoDigitYearsGoFromEightyBackToNineteenAhead) {
    const struct {
        int current;
        const char* typed;
        const char* shown;
    } cases[] = {
        {2026, "1/1/46", "01/01/1946"},
        {2026, "1/1/45", "01/01/2045"},
        {2026, "1/1/00", "01/01/2000"},
        {2026, "010199", "01/01/1999"},
        {2099, "1/1/19", "01/01/2019"},
        {2099, "1/1/18", "01/01/2118"},
        {2080, "1/1/00", "01/01/2000"},
        {2080, "1/1/99", "01/01/2099"},
        // The day must exist in the year that is meant.
        {2026, "29/2/00", "29/02/2000"},
        {2026, "29/2/45", "29/2/45"},
    };
    for (const auto& [current, text, shown] : cases) {
        DateConverter dates = converter(current);
        EXPECT_EQ(typed(dates, text), shown) << text << " in " << current;
    }
}

TEST(Dates, StoredFormAndShownFormLeadIntoEachOther) {
    const DateConverter dates = converter(2026);
    EXPECT_EQ(dates.Date_Stockee("01/02/2005"), "20050201");
    EXPECT_EQ(dates.Date_Stockee("1/2/2005"), "20050201");
    EXPECT_EQ(dates.Date_Affichee("20050201"), "01/02/2005");
    EXPECT_EQ(dates.Date_Affichee(dates.Date_Stockee("29/02/2024")), "29/02/2024");
    // Only Saisie_Date reads the short forms.
    for (const char* text : {"", "1/2/05", "1/2", "010205", "01022005", " 01/02/2005"})
        EXPECT_EQ(dates.Date_Stockee(text), "") << text;
    for (const char* text :
         {"", "2005", "20050230", "2005020a", "02005021", "200502011", "01/02/20"})
        EXPECT_EQ(dates.Date_Affichee(text), text);
}

} // namespace
} // namespace vorandine::components
