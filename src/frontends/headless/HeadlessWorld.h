// The outside world without a window: whoever plays the person at the screen says what the person
// sees and does. For scenarios, tests and hosts that only compute.
#pragma once

#include "widgets/World.h"

#include <functional>

namespace vorandine::headless {

// The date of the machine, in its time zone.
[[nodiscard]] widgets::Date machineDate();

// Each may be left empty; what then happens stands beside it. They may throw: it goes through the
// call of World.
struct Callbacks {
    // Gives one of the buttons that the box has. Empty: the last of them.
    std::function<widgets::Answer(const widgets::Message&)> messageBox;
    // Works in the form until it is unloaded. Empty: the form is unloaded at once.
    std::function<void(widgets::Form&)> runModal;
    // Empty: nobody picks an entry.
    std::function<void(widgets::Menu&)> popupMenu;
    // Empty: nobody reads it, whether there is such a page or not.
    std::function<void(const widgets::HelpPage&)> showHelp;
    // Empty: machineDate().
    std::function<widgets::Date()> today;
    // Empty: nobody hears of it.
    std::function<void(widgets::Form&, const widgets::Told&)> tell;
};

// The last button of a box: No, Cancel, or its only one.
[[nodiscard]] widgets::Answer lastButton(widgets::Buttons buttons) noexcept;

class HeadlessWorld : public widgets::World {
  public:
    explicit HeadlessWorld(Callbacks callbacks = {});

    widgets::Answer messageBox(const widgets::Message& message) override;
    void tell(widgets::Form& form, const widgets::Told& told) override;
    // The first control of the form has the focus, unless its maker chose one. A form that refuses
    // to unload where nobody works in it is left as it is.
    void runModal(widgets::Form& form) override;
    void popupMenu(widgets::Menu& menu) override;
    void showHelp(const widgets::HelpPage& help) override;
    [[nodiscard]] widgets::Date today() override;
    // No event waits: gestures come one by one.
    void letEventsThrough() override {}

  private:
    Callbacks callbacks_;
};

} // namespace vorandine::headless
