// The date object of this system: reads what people type, keeps yyyymmdd, shows dd/mm/yyyy.
// Gregorian calendar, years 1900 to 2099.
#pragma once

#include "ports/DateObject.h"
#include "widgets/World.h"

#include <functional>
#include <string>
#include <string_view>

namespace vorandine::components {

class DateConverter : public ports::DateObject {
  public:
    // `today` is asked whenever a typed date leaves its century or its year open. Must not be
    // empty; what it throws goes through Saisie_Date.
    explicit DateConverter(std::function<widgets::Date()> today);

    // Reads d/m/yy, d/m/yyyy, ddmmyy, ddmmyyyy and d/m (of the current year), day and month between
    // slashes with one or two digits, blanks around ignored, and gives dd/mm/yyyy. Two-digit years
    // fall from 80 years before the current one to 19 years after it. A text that is no date is
    // given back exactly as it stands.
    [[nodiscard]] std::string Saisie_Date(const std::string& text, std::int16_t& option) override;
    // Never: a text that is no date is left to the message of its field.
    [[nodiscard]] bool Erreur_Date() const override { return false; }
    // Takes d/m/yyyy, day and month with one or two digits and the year with four, nothing around.
    [[nodiscard]] std::string Date_Stockee(const std::string& text) const override {
        return stored(text);
    }
    [[nodiscard]] std::string Date_Affichee(const std::string& stored) const override;
    // Date_Stockee for who has no object at hand.
    [[nodiscard]] static std::string stored(std::string_view text);
    // Whether `text` is a date in stored form, which Date_Affichee shows as one.
    [[nodiscard]] static bool isStored(std::string_view text) noexcept;

  private:
    std::function<widgets::Date()> today_;
};

} // namespace vorandine::components
