// The world of callbacks, and what happens where one is not given.
#include "frontends/headless/HeadlessWorld.h"

#include "widgets/Form.h"

#include <ctime>
#include <utility>

namespace vorandine::headless {

widgets::Date machineDate() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday};
}

widgets::Answer lastButton(widgets::Buttons buttons) noexcept {
    switch (buttons) {
    case widgets::Buttons::YesNo:
        return widgets::Answer::No;
    case widgets::Buttons::YesNoCancel:
        return widgets::Answer::Cancel;
    default:
        return widgets::Answer::OK;
    }
}

HeadlessWorld::HeadlessWorld(Callbacks callbacks) : callbacks_(std::move(callbacks)) {}

widgets::Answer HeadlessWorld::messageBox(const widgets::Message& message) {
    return callbacks_.messageBox ? callbacks_.messageBox(message) : lastButton(message.buttons);
}

void HeadlessWorld::runModal(widgets::Form& form) {
    if (form.focus() == nullptr)
        form.focusFirst();
    if (callbacks_.runModal)
        callbacks_.runModal(form);
    else
        form.Unload();
}

void HeadlessWorld::popupMenu(widgets::Menu& menu) {
    if (callbacks_.popupMenu)
        callbacks_.popupMenu(menu);
}

void HeadlessWorld::tell(widgets::Form& form, const widgets::Told& told) {
    if (callbacks_.tell)
        callbacks_.tell(form, told);
}

void HeadlessWorld::showHelp(const widgets::HelpPage& help) {
    if (callbacks_.showHelp)
        callbacks_.showHelp(help);
}

widgets::Date HeadlessWorld::today() {
    return callbacks_.today ? callbacks_.today() : machineDate();
}

} // namespace vorandine::headless
