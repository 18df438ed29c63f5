// The three dates of tab 1: date of entry, start and end of availability.
#pragma once

#include "experience/SeveralValues.h"
#include "ports/DateObject.h"
#include "records/DBARecord.h"
#include "rules/StatementByStatement.h"
#include "widgets/Form.h"
#include "widgets/TextField.h"
#include "widgets/World.h"

#include <string>

namespace vorandine::experience {

struct AvailabilityWidgets {
    widgets::TextBox Txt_DatSaisieAidant;
    widgets::TextBox Txt_DatDispoAidant;
    widgets::TextBox Txt_DatFinDispoAidant;
};

// Gives its fields their rules. All that is handed over must outlive it.
class Availability {
  public:
    // `Ong_Vorandine` is brought to the dates when one is refused.
    Availability(AvailabilityWidgets& widgets, widgets::TabContainer& Ong_Vorandine,
                 ports::DateObject& Conv_Date, widgets::World& world);
    Availability(const Availability&) = delete;
    Availability& operator=(const Availability&) = delete;
    ~Availability() = default;

    // Shows the dates of `rec`.
    void show(const records::DBARecord& rec, rules::StatementByStatement& tries);
    // Puts them into `rec`. Without a start there is no end.
    void compose(records::DBARecord& rec) const;

    // Today stands in for a date of entry or a start that is missing.
    void fillWithToday();
    // Whether the dates follow each other. If not, the user has been told, and the focus is on the
    // date at fault.
    [[nodiscard]] bool check();

  private:
    AvailabilityWidgets& w_;
    widgets::TabContainer& Ong_Vorandine_;
    ports::DateObject& Conv_Date_;
    widgets::World& world_;
    SeveralValues several_;

    [[nodiscard]] std::string stored(const widgets::TextBox& field) const;
    [[nodiscard]] bool refuse(const char* message, widgets::TextBox& field);
};

} // namespace vorandine::experience
