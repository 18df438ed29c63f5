// Key rules and leaving rules of the fields in which a number, a date or an entry of a table is
// typed. Each function gives a field its rule; the objects handed over must outlive the field.
#pragma once

#include "ports/DateObject.h"
#include "widgets/TextField.h"
#include "widgets/World.h"

#include <string>

namespace vorandine::rules {

// Digits alone.
void yearRule(widgets::TextField& field);

// Any key but a digit types "/"; on leaving, the text is rewritten as a date, or `message` refuses
// it.
void dateRule(widgets::TextField& field, ports::DateObject& Conv_Date, widgets::World& world,
              const std::string& message);

// Digits and one comma, which the point types too; on leaving, the number is put in its fixed form
// of 4 integer digits and 2 decimals. One to five blanks keep the focus without a word.
void hoursRule(widgets::TextField& field, widgets::World& world);

// The same keys; on leaving, 7 integer digits and 2 decimals, without the leading blanks.
void difNumberRule(widgets::TextField& field, widgets::World& world);

// Offers an entry of a table. An empty one is none: nobody could choose it.
void addEntry(widgets::ComboBox& combo, std::string entry);

// On leaving, a text that is no entry of the box, letter for letter, is refused with `message` and
// emptied.
void entryRule(widgets::ComboBox& combo, widgets::World& world, const std::string& message);

} // namespace vorandine::rules
