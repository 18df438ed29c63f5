// The table, in the order of the files.
#include "records/Layout.h"

#include "records/StoredFiles.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vorandine::records {
namespace {

constexpr auto Lines = Values::Lines;

// clang-format off
constexpr AttributeLayout Activity[] = {
    {.attribute = activity::Label, .kind = Kind::Text, .meaning = "label"},
};

constexpr AttributeLayout Caregiver[] = {
    {.attribute = caregiver::Name, .kind = Kind::Text, .meaning = "name"},
};

constexpr AttributeLayout Association[] = {
    {.attribute = association::Name, .kind = Kind::Text, .meaning = "name"},
};

constexpr AttributeLayout Household[] = {
    {.attribute = household::Name, .kind = Kind::Text, .meaning = "name"},
    {.attribute = household::FirstName, .kind = Kind::Text, .meaning = "first name"},
};

constexpr AttributeLayout Contract[] = {
    {.attribute = contract::Employer, .kind = Kind::Employer, .meaning = "employer"},
    {.attribute = contract::EmployerName, .kind = Kind::Text, .meaning = "employer's name",
     .dictionaryName = "NomAideContrat"},
    {.attribute = contract::EmployerFirstName, .kind = Kind::Text, .meaning = "employer's first name",
     .dictionaryName = "PrenomAideContrat"},
    {.attribute = contract::FirstDay, .kind = Kind::Date, .meaning = "first day"},
    {.attribute = contract::LastDay, .kind = Kind::Date, .meaning = "last day"},
    {.attribute = contract::ClosingPeriod, .kind = Kind::Period, .meaning = "closing period"},
    {.attribute = contract::LeftOut, .kind = Kind::Text, .meaning = "left out if not empty"},
};

constexpr AttributeLayout Pay[] = {
    {.attribute = pay::Employer, .kind = Kind::Employer, .meaning = "employer",
     .dictionaryName = "CodeAideDetailCalcul"},
    {.attribute = pay::Agreement, .kind = Kind::Text, .meaning = "collective agreement",
     .dictionaryName = "ConvColContratDetailCalcul"},
    {.attribute = pay::CountsForDif, .kind = Kind::Choice, .meaning = "counts for the D.I.F.",
     .dictionaryName = "GestionDroitDif", .choices = "0 1"},
    {.attribute = pay::Period, .kind = Kind::Period, .meaning = "period",
     .dictionaryName = "PeriodeDetailCalcul"},
    {.attribute = pay::Hours, .kind = Kind::Figure, .meaning = "hours"},
    {.attribute = pay::NetPay, .kind = Kind::Figure, .meaning = "net pay"},
};

constexpr AttributeLayout Ledger[] = {
    {.attribute = ledger::Date, .kind = Kind::Date, .meaning = "date",
     .values = Lines, .unit = ledger::Line, .order = Order::Rising},
    {.attribute = ledger::Rights, .kind = Kind::Hours, .meaning = "hours gained",
     .values = Lines, .unit = ledger::Line},
    {.attribute = ledger::Hours, .kind = Kind::Hours, .meaning = "hours used",
     .values = Lines, .unit = ledger::Line},
    {.attribute = ledger::Balance, .kind = Kind::Balance, .meaning = "balance",
     .values = Lines, .unit = ledger::Line},
    {.attribute = ledger::Training, .kind = Kind::Training, .meaning = "training",
     .values = Lines, .unit = ledger::Line},
    {.attribute = ledger::Carried, .kind = Kind::Text, .meaning = "carried along"},
};

constexpr AttributeLayout Right[] = {
    {.attribute = right::Level, .kind = Kind::Whole, .meaning = "level"},
    {.attribute = right::TotalAccess, .kind = Kind::Choice, .meaning = "total access",
     .choices = "0 1"},
    {.attribute = right::Activities, .kind = Kind::Activity, .meaning = "activities that may be chosen",
     .choices = "*", .values = Values::Set},
};

constexpr AttributeLayout TrainingFile[] = {
    {.attribute = training_file::StudyType, .kind = Kind::Choice, .meaning = "diploma or level",
     .choices = "D N", .unit = training_file::Study},
    {.attribute = training_file::StudyCode, .kind = Kind::Study, .meaning = "study",
     .unit = training_file::Study},
    {.attribute = training_file::DiplomaYear, .kind = Kind::Whole, .meaning = "year of the diploma"},
    {.attribute = training_file::Speciality, .kind = Kind::Text, .meaning = "speciality"},
    {.attribute = training_file::Date, .kind = Kind::Date, .meaning = "date of the training",
     .values = Lines, .unit = training_file::Line, .order = Order::Falling, .counter = training_file::Training},
    {.attribute = training_file::Training, .kind = Kind::Training, .meaning = "training",
     .values = Lines, .unit = training_file::Line, .counter = training_file::Training},
    {.attribute = training_file::Hours, .kind = Kind::Hours, .meaning = "hours",
     .values = Lines, .unit = training_file::Line, .counter = training_file::Training},
    {.attribute = training_file::Remarks, .kind = Kind::Text, .meaning = "remarks",
     .values = Lines, .unit = training_file::Line, .counter = training_file::Training},
    {.attribute = training_file::Experience, .kind = Kind::Text, .meaning = "experience",
     .values = Values::Positions},
    {.attribute = training_file::Activities, .kind = Kind::Activity, .meaning = "activities",
     .values = Values::Set},
    {.attribute = training_file::EntryDay, .kind = Kind::Date, .meaning = "day of entry"},
    {.attribute = training_file::AvailableFrom, .kind = Kind::Date, .meaning = "first day of availability"},
    {.attribute = training_file::AvailableTo, .kind = Kind::Date, .meaning = "last day of availability"},
    {.attribute = training_file::CountsForDif, .kind = Kind::Choice, .meaning = "counts for the D.I.F.",
     .choices = "0 1", .values = Lines, .unit = training_file::Line, .counter = training_file::Training},
    {.attribute = training_file::Qualification, .kind = Kind::Qualification, .meaning = "qualification"},
};

constexpr AttributeLayout Table[] = {
    {.attribute = table::Codes, .kind = Kind::Text, .meaning = "codes, or entries",
     .values = Lines, .unit = table::Entry},
    {.attribute = table::Labels, .kind = Kind::Text, .meaning = "labels",
     .values = Lines, .unit = table::Entry},
};

constexpr AttributeLayout User[] = {
    {.attribute = user::Name, .kind = Kind::Text, .meaning = "name"},
};
// clang-format on

constexpr std::array Files{
    FileLayout{.name = activity::File, .attributes = Activity},
    FileLayout{.name = caregiver::File, .attributes = Caregiver},
    FileLayout{.name = association::File, .attributes = Association},
    FileLayout{.name = household::File, .attributes = Household},
    FileLayout{.name = contract::File, .attributes = Contract},
    FileLayout{.name = pay::File, .attributes = Pay},
    FileLayout{.name = ledger::File, .attributes = Ledger},
    FileLayout{.name = right::File, .attributes = Right},
    FileLayout{.name = training_file::File, .attributes = TrainingFile},
    FileLayout{.name = table::File, .attributes = Table},
    FileLayout{.name = user::File, .attributes = User},
};

// Whoever goes through a unit finds each of its attributes in the table, with the same unit.
constexpr bool holdsUnit(const FileLayout& file, const AttributeLayout& one) {
    return std::all_of(one.unit.begin(), one.unit.end(), [&](int member) {
        return std::any_of(file.attributes.begin(), file.attributes.end(),
                           [&](const AttributeLayout& other) {
                               return other.attribute == member && other.values == one.values &&
                                      other.unit.data() == one.unit.data();
                           });
    });
}

constexpr bool sound(const FileLayout& file) {
    int before = 0;
    return std::all_of(
        file.attributes.begin(), file.attributes.end(), [&](const AttributeLayout& one) {
            const bool named =
                std::find(one.unit.begin(), one.unit.end(), one.attribute) != one.unit.end();
            return std::exchange(before, one.attribute) < one.attribute &&
                   named == !one.unit.empty() && holdsUnit(file, one);
        });
}

static_assert(std::all_of(Files.begin(), Files.end(), sound));

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
