// The table, in the order of the files.
#include "records/Layout.h"

#include <algorithm>
#include <array>

namespace vorandine::records {
namespace {

constexpr auto One = Values::One;
constexpr auto Many = Values::Many;

constexpr std::array<AttributeLayout, 1> Label{{{1, Kind::Text, One, "label"}}};
constexpr std::array<AttributeLayout, 1> Name{{{1, Kind::Text, One, "name"}}};

constexpr std::array<AttributeLayout, 2> Household{{
    {2, Kind::Text, One, "name"},
    {3, Kind::Text, One, "first name"},
}};

constexpr std::array<AttributeLayout, 7> Contract{{
    {3, Kind::Employer, One, "employer"},
    {4, Kind::Text, One, "employer's name", "NomAideContrat"},
    {5, Kind::Text, One, "employer's first name", "PrenomAideContrat"},
    {7, Kind::Date, One, "first day"},
    {8, Kind::Date, One, "last day"},
    {63, Kind::Period, One, "closing period"},
    {65, Kind::Text, One, "left out if not empty"},
}};

constexpr std::array<AttributeLayout, 6> Pay{{
    {1, Kind::Employer, One, "employer", "CodeAideDetailCalcul"},
    {2, Kind::Text, One, "collective agreement", "ConvColContratDetailCalcul"},
    {3, Kind::Choice, One, "counts for the D.I.F.", "GestionDroitDif", 0, "0 1"},
    {4, Kind::Period, One, "period", "PeriodeDetailCalcul"},
    {6, Kind::Figure, One, "hours"},
    {16, Kind::Figure, One, "net pay"},
}};

constexpr std::array<AttributeLayout, 6> Ledger{{
    {1, Kind::Date, Many, "date", "", 0, {}, Order::Rising},
    {2, Kind::Hours, Many, "hours gained", "", 1},
    {3, Kind::Hours, Many, "hours used", "", 1},
    {4, Kind::Balance, Many, "balance", "", 1},
    {5, Kind::Training, Many, "training", "", 1},
    {6, Kind::Text, One, "carried along"},
}};

constexpr std::array<AttributeLayout, 3> Right{{
    {1, Kind::Whole, One, "level"},
    {2, Kind::Choice, One, "total access", "", 0, "0 1"},
    {3, Kind::Activity, Many, "activities that may be chosen", "", 0, "*"},
}};

constexpr std::array<AttributeLayout, 15> TrainingFile{{
    {1, Kind::Choice, One, "diploma or level", "", 0, "D N"},
    {2, Kind::Study, One, "study"},
    {3, Kind::Whole, One, "year of the diploma"},
    {4, Kind::Text, One, "speciality"},
    {5, Kind::Date, Many, "date of the training", "", 0, {}, Order::Falling},
    {6, Kind::Training, Many, "training", "", 5},
    {7, Kind::Hours, Many, "hours", "", 5},
    {8, Kind::Text, Many, "remarks", "", 5},
    {9, Kind::Text, Many, "experience"},
    {10, Kind::Activity, Many, "activities"},
    {11, Kind::Date, One, "day of entry"},
    {12, Kind::Date, One, "first day of availability"},
    {13, Kind::Date, One, "last day of availability"},
    {14, Kind::Choice, Many, "counts for the D.I.F.", "", 5, "0 1"},
    {15, Kind::Qualification, One, "qualification"},
}};

constexpr std::array<AttributeLayout, 2> Lists{{
    {2, Kind::Text, Many, "codes, or entries"},
    {3, Kind::Text, Many, "labels", "", 2},
}};

constexpr std::array<FileLayout, 11> Files{{
    {"ACTIVITES", Label},
    {"AIDANT", Name},
    {"ASSOCIATION", Name},
    {"CIVILAIDE", Household},
    {"CONTRAT", Contract},
    {"DETAILCALCUL", Pay},
    {"DIFAIDANT", Ledger},
    {"DROITS", Right},
    {"FORMVORANDINE", TrainingFile},
    {"TABLES", Lists},
    {"UTILISATEURS", Name},
}};

} // namespace

std::span<const FileLayout> files() noexcept {
    return Files;
}

std::span<const AttributeLayout> layout(std::string_view file) noexcept {
    const auto found = std::find_if(Files.begin(), Files.end(),
                                    [&](const FileLayout& one) { return one.name == file; });
    return found == Files.end() ? std::span<const AttributeLayout>() : found->attributes;
}

const AttributeLayout* layout(std::string_view file, int attribute) noexcept {
    for (const AttributeLayout& one : layout(file))
        if (one.attribute == attribute)
            return &one;
    return nullptr;
}

std::optional<int> dictionaryAttribute(std::string_view file, std::string_view name) noexcept {
    for (const AttributeLayout& one : layout(file))
        if (!name.empty() && one.dictionaryName == name)
            return one.attribute;
    return std::nullopt;
}

std::string headOf(std::string_view file, int attribute) {
    const AttributeLayout* const known = layout(file, attribute);
    return known == nullptr || known->dictionaryName.empty() ? std::to_string(attribute)
                                                             : std::string(known->dictionaryName);
}

} // namespace vorandine::records
