// Normalising and checking numbers. All lengths count every character, blanks and sign included.
#include "rules/Numbers.h"

#include "rules/Messages.h"
#include "text/Characters.h"

#include <optional>

namespace vorandine::rules {
namespace {

constexpr std::int16_t HoursDecimals = 2;

} // namespace

std::string Format_Numerique(std::string_view W_Texte, std::int16_t W_NbEntiers,
                             std::int16_t W_NbDecimales, bool W_Signe) {
    return Format_Numerique(text::Decimal::require(W_Texte), W_NbEntiers, W_NbDecimales, W_Signe);
}

std::string Format_Numerique(const text::Decimal& value, std::int16_t W_NbEntiers,
                             std::int16_t W_NbDecimales, bool W_Signe) {
    const auto floorLength = static_cast<int>(value.floorText().size());
    int blanks = W_NbEntiers > floorLength ? W_NbEntiers - floorLength : 0;
    if (W_Signe && !value.negative())
        ++blanks;
    return std::string(static_cast<std::size_t>(blanks), ' ') + value.toText(W_NbDecimales);
}

std::string Controle_Numerique(widgets::TextField& W_Zone, std::int16_t& W_NbEntiers,
                               const std::int16_t& W_NbDecimales, widgets::World& world) {
    const std::string typed = W_Zone.Text();
    const auto refuse = [&](const char* message) {
        warn(world, message, widgets::Icon::None);
        W_Zone.SetFocus();
        return typed;
    };
    const std::int16_t unsignedWidth = W_NbEntiers;
    if (typed.find('-') != std::string::npos)
        ++W_NbEntiers;
    const auto length = static_cast<int>(text::Len(typed));
    const std::size_t comma = typed.find(',');
    const bool hasComma = comma != std::string::npos;
    const int before = hasComma ? static_cast<int>(text::Len(typed.substr(0, comma))) : 0;
    if (hasComma && before > W_NbEntiers)
        return refuse("Trop de chiffres avant la virgule");
    if (!hasComma && length > W_NbEntiers)
        return refuse("Zone numerique trop longue");
    if (hasComma && length - before - 1 > W_NbDecimales)
        return refuse("Trop de chiffres après la virgule");
    const std::optional<text::Decimal> value = text::Decimal::parse(typed);
    if (!value)
        return refuse("La zone doit contenir un nombre, par exemple 7,50");
    if (hasComma && static_cast<int>(value->floorText().size()) > W_NbEntiers)
        return refuse("Trop de chiffres avant la virgule");
    // "-0" loses its sign, and the place of the sign with it: wider, it would be refused next time.
    return Format_Numerique(*value, value->negative() ? W_NbEntiers : unsignedWidth, W_NbDecimales,
                            false);
}

std::string shownHours(std::string_view stored) {
    const std::optional<text::Decimal> hundredths = text::Decimal::parse(stored);
    return hundredths ? Format_Numerique(hundredths->shifted(-HundredthsPlaces), HoursDigits,
                                         HoursDecimals, false)
                      : std::string(stored);
}

std::string storedHours(std::string_view shown) {
    const std::optional<text::Decimal> hours = text::Decimal::parse(shown);
    return hours ? hours->shifted(HundredthsPlaces).toText() : std::string(shown);
}

} // namespace vorandine::rules
