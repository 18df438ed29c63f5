// The date object `Conv_Date`: the only place that knows both faces of a date, dd/mm/yyyy on screen
// and the stored form.
#pragma once

#include <cstdint>
#include <string>

namespace vorandine::ports {

// A stored date is a whole number of eight digits (yyyymmdd), greater for a later date, so that two
// compare alike as numbers and as texts.
class DateObject {
  public:
    DateObject() = default;
    DateObject(const DateObject&) = delete;
    DateObject& operator=(const DateObject&) = delete;
    virtual ~DateObject() = default;

    // The typed text rewritten dd/mm/yyyy where it can be read as a date, else as it stands.
    // `option` is given as 0 and not read afterwards.
    [[nodiscard]] virtual std::string Saisie_Date(const std::string& text,
                                                  std::int16_t& option) = 0;
    // Read right after Saisie_Date: true refuses the text without a word.
    [[nodiscard]] virtual bool Erreur_Date() const = 0;
    // The stored form of dd/mm/yyyy; "" for an empty text and for one that is no date.
    [[nodiscard]] virtual std::string Date_Stockee(const std::string& text) const = 0;
    // dd/mm/yyyy of a stored date; a text that is no stored date is given back as it stands.
    [[nodiscard]] virtual std::string Date_Affichee(const std::string& stored) const = 0;
};

} // namespace vorandine::ports
