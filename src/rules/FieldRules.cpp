// The rules themselves, as handlers of the field's events.
#include "rules/FieldRules.h"

#include "rules/Messages.h"
#include "rules/Numbers.h"
#include "text/Characters.h"

#include <cstdint>
#include <utility>

namespace vorandine::rules {
namespace {

constexpr std::int16_t Decimals = 2;
constexpr std::int16_t DifDigits = 7;

bool digitOrBackspace(char32_t key) {
    return (key >= U'0' && key <= U'9') || key == widgets::BackspaceKey;
}

void numberKeys(widgets::TextField& field) {
    field.KeyPress = [&field](char32_t& key) {
        if (key == U'.')
            key = U',';
        if (!digitOrBackspace(key) && key != U',')
            key = 0;
        // Also where the comma in the field is selected and would be replaced.
        if (key == U',' && field.Text().find(',') != std::string::npos)
            key = 0;
    };
}

} // namespace

void yearRule(widgets::TextField& field) {
    field.KeyPress = [](char32_t& key) {
        if (!digitOrBackspace(key))
            key = 0;
    };
}

void dateRule(widgets::TextField& field, ports::DateObject& Conv_Date, widgets::World& world,
              const std::string& message) {
    field.KeyPress = [](char32_t& key) {
        if (!digitOrBackspace(key))
            key = U'/';
    };
    field.LostFocus = [&field, &Conv_Date, &world, message] {
        if (field.empty())
            return;
        std::int16_t option = 0;
        field.Text(Conv_Date.Saisie_Date(field.Text(), option));
        if (Conv_Date.Erreur_Date()) {
            field.SetFocus();
            return;
        }
        if (Conv_Date.Date_Stockee(field.Text()).empty()) {
            warn(world, message);
            field.SetFocus();
        }
    };
}

void hoursRule(widgets::TextField& field, widgets::World& world) {
    numberKeys(field);
    field.LostFocus = [&field, &world] {
        if (field.empty())
            return;
        const std::string typed = field.Text();
        if (typed.size() <= 5 && text::Trim(typed).empty()) {
            field.SetFocus();
            return;
        }
        std::int16_t digits = HoursDigits;
        field.Text(Controle_Numerique(field, digits, Decimals, world));
    };
}

void difNumberRule(widgets::TextField& field, widgets::World& world) {
    numberKeys(field);
    field.LostFocus = [&field, &world] {
        if (field.empty())
            return;
        std::int16_t digits = DifDigits;
        field.Text(text::Trim(Controle_Numerique(field, digits, Decimals, world)));
    };
}

void addEntry(widgets::ComboBox& combo, std::string entry) {
    if (!entry.empty())
        combo.AddItem(std::move(entry));
}

void entryRule(widgets::ComboBox& combo, widgets::World& world, const std::string& message) {
    combo.LostFocus = [&combo, &world, message] {
        if (combo.empty() || combo.ListIndex() != -1)
            return;
        warn(world, message);
        combo.Text("");
        combo.SetFocus();
    };
}

} // namespace vorandine::rules
