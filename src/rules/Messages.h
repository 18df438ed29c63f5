// The message boxes of the control: one title for all.
#pragma once

#include "widgets/World.h"

#include <string>

namespace vorandine::rules {

inline constexpr const char* MessageTitle = "Message ORMELAINE";
// The second text of a question that decides over the file alone.
inline constexpr const char* HoursStay =
    "Les heures de D.I.F. déjà enregistrées le restent, quelle que soit votre réponse.";

// A warning with an OK button.
inline void warn(widgets::World& world, const std::string& text,
                 widgets::Icon icon = widgets::Icon::Warning) {
    world.messageBox({.title = MessageTitle,
                      .text = text,
                      .icon = icon,
                      .buttons = widgets::Buttons::OK,
                      .detail = {}});
}

// A question with a warning icon, answered by Yes or No, and a second, smaller text below it.
// Whether the answer was Yes.
[[nodiscard]] inline bool confirm(widgets::World& world, const std::string& text,
                                  const std::string& detail = {}) {
    return world.messageBox({.title = MessageTitle,
                             .text = text,
                             .icon = widgets::Icon::Warning,
                             .buttons = widgets::Buttons::YesNo,
                             .detail = detail}) == widgets::Answer::Yes;
}

} // namespace vorandine::rules
