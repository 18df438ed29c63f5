// The front end of real windows, and its hand: each gesture is made of the events that a person's
// mouse and keyboard bring, at the place of the native widget.
#pragma once

#include "apps/scenario/FrontEnd.h"
#include "frontends/headless/HeadlessWorld.h"
#include "frontends/qt/QtWorld.h"

#include <QPoint>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace vorandine::qt {
class FormWindow;
}

namespace vorandine::scenario {

// How the windows are shown and pictures of them are taken.
struct Stills {
    std::string folder; // for pictures; "": none are taken
    double zoom = 1.0;  // of each window
};

// Needs a QApplication.
class QtHand : public FrontEnd, public widgets::Hand {
  public:
    // `callbacks` say what the person does, as they do for the headless world.
    QtHand(headless::Callbacks callbacks, Stills stills);
    ~QtHand() override;

    [[nodiscard]] widgets::Hand& hand() override { return *this; }
    [[nodiscard]] widgets::World& world() override { return world_; }
    void show(widgets::Form& form) override;
    void hide(widgets::Form& form) override;
    void leave() override { world_.putAside(); }
    void enter() override { world_.takeUp(); }

    widgets::Outcome focusField(widgets::TextField& field) override;
    widgets::Outcome typeText(widgets::TextField& field, const std::string& text) override;
    widgets::Outcome erase(widgets::TextField& field) override;
    widgets::Outcome paste(widgets::TextField& field, const std::string& text) override;
    widgets::Outcome pressKey(widgets::Form& form, widgets::Key key) override;
    widgets::Outcome click(widgets::CommandButton& button) override;
    widgets::Outcome click(widgets::OptionButton& option) override;
    widgets::Outcome clickLine(widgets::ListBox& list, int line) override;
    widgets::Outcome doubleClickLine(widgets::ListBox& list, int line) override;
    widgets::Outcome mark(widgets::ListBox& list, const std::vector<int>& lines) override;
    widgets::Outcome choose(widgets::ComboBox& combo, const std::string& entry) override;
    widgets::Outcome scrollTo(widgets::ScrollBar& bar, int value) override;
    widgets::Outcome showTab(widgets::TabContainer& tabs, int tab) override;
    widgets::Outcome drag(widgets::ListBox& source, widgets::Control& target) override;
    widgets::Outcome rightClick(widgets::Control& surface) override;
    widgets::Outcome pick(widgets::Form& form, widgets::Menu& entry) override;
    widgets::Outcome closeForm(widgets::Form& form) override;

    void capture(widgets::Form& form, const std::string& name) override;

  private:
    headless::Callbacks callbacks_;
    Stills stills_;
    qt::QtWorld world_;
    std::unique_ptr<qt::FormWindow> host_;

    [[nodiscard]] qt::Hooks hooks();
    // Closes a menu that is still open, then makes the gesture on the window in front, and gives
    // what came of it. Refused if nothing of it arrived.
    widgets::Outcome act(const std::function<void(qt::FormWindow&)>& gesture);
    // A place of the control's widget that nothing covers, as the eye finds it: a few are tried.
    [[nodiscard]] std::optional<QPoint> freePlace(const widgets::Control& control) const;
    // The native widget of a control in the front window, if a person could press on it; else null.
    [[nodiscard]] QWidget* within(widgets::Control& control) const;
    // Gives the field the focus, and works in it if it has got it.
    widgets::Outcome inField(widgets::TextField& field, bool types,
                             const std::function<void(qt::FormWindow&)>& work);
    [[nodiscard]] bool comesTo(const widgets::ListBox& list, qt::FormWindow& window) const;
    // The native widget on which the line stands at `at`, scrolled into view; null if it cannot be
    // pressed.
    [[nodiscard]] QWidget* lineShown(widgets::ListBox& list, int line, QPoint& at) const;
};

} // namespace vorandine::scenario
