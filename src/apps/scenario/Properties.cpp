// Values as JSON, and the members of the control that its host reads.
#include "apps/scenario/Properties.h"

#include "apps/scenario/LineError.h"
#include "control/Ctr_Vorandine.h"
#include "widgets/named/Properties.h"

#include <nlohmann/json.hpp>

#include <variant>

namespace vorandine::scenario {
namespace {

using nlohmann::json;

json toJson(const widgets::PropertyValue& value) {
    return std::visit([](const auto& plain) { return json(plain); }, value);
}

} // namespace

json property(const widgets::Control& control, const std::string& name) {
    for (const widgets::Property& property : widgets::properties(control))
        if (property.name == name)
            return toJson(property.read());
    // No kind of control, but what this host has placed.
    if (const auto* const hosted = dynamic_cast<const control::Ctr_Vorandine*>(&control)) {
        if (name == "W_Sortir")
            return hosted->W_Sortir;
        if (name == "W_Code")
            return hosted->W_Code;
        if (name == "W_NomPrenom")
            return hosted->W_NomPrenom;
    }
    throw LineError(control.fullName() + " has no property " + name);
}

} // namespace vorandine::scenario
