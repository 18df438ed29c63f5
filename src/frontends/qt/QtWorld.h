// The outside world in real windows: message boxes in French, modal forms, popup menus at the
// pointer, the help beside the forms, the clock of the machine.
#pragma once

#include "widgets/World.h"

#include <QMenu>
#include <QPoint>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QAbstractButton;
class QMessageBox;

namespace vorandine::qt {

class FormWindow;
class HelpWindow;

// For whoever plays the person at the screen: each is called beside what is really shown. Empty:
// a person sits there.
struct Hooks {
    // The box is shown; its event loop runs until one of its buttons is pressed (buttonFor).
    std::function<void(const widgets::Message& message, QMessageBox& box)> boxShown;
    // The form's window is shown. Comes back when the form was unloaded, or never will be.
    std::function<void(widgets::Form& form, FormWindow& window)> modalShown;
    // The menu is open.
    std::function<void(widgets::Menu& menu, QMenu& popup)> menuShown;
    // The window of the help shows the page.
    std::function<void(const widgets::HelpPage& help)> helpShown;
};

// The button of a message box that gives `answer`; null if the box has none.
[[nodiscard]] QAbstractButton* buttonFor(const QMessageBox& box, widgets::Answer answer);
// The entry of an open menu; null if it shows none of that name.
[[nodiscard]] QAction* actionFor(const QMenu& popup, const widgets::Menu& entry);

// Lives longer than every FormWindow that shows forms of its control. Needs a QApplication, and
// must be used from its thread alone.
class QtWorld : public widgets::World {
  public:
    // `today` gives the current date; empty: the machine's, in its time zone.
    explicit QtWorld(std::function<widgets::Date()> today = {});
    ~QtWorld() override;

    // A box that is answered without a press (the program is ending) gives its last button.
    widgets::Answer messageBox(const widgets::Message& message) override;
    // Left to the host, which says where by tellBy(): no window of the control has a place for it.
    void tell(widgets::Form& form, const widgets::Told& told) override;
    void runModal(widgets::Form& form) override;
    void popupMenu(widgets::Menu& menu) override;
    // One window for all forms; it goes with this world.
    void showHelp(const widgets::HelpPage& help) override;
    [[nodiscard]] widgets::Date today() override;
    void letEventsThrough() override;

    // Empty: nobody hears what is told.
    using Teller = std::function<void(widgets::Form& form, const widgets::Told& told)>;
    void tellBy(Teller teller) { teller_ = std::move(teller); }
    void hooks(Hooks hooks) { hooks_ = std::move(hooks); }

    // The window in front: the modal one opened last, else the one in which a gesture is under way,
    // else the active one, else the last opened. Null if there is none.
    [[nodiscard]] FormWindow* front() const;
    // The menu that is open; null if none is.
    [[nodiscard]] QMenu* openMenu() const { return menu_; }
    // For whoever plays several persons, each in a world of its own: leaves this one and comes
    // back. A menu stays open, but not in the way of the others: it would take the mouse from all
    // windows.
    void putAside();
    void takeUp();
    // Where the next menu opens; empty: at the pointer.
    void menuAt(std::optional<QPoint> place) { menuPlace_ = place; }

  private:
    friend class FormWindow;
    void enter(FormWindow& window);
    // A gesture in the window begins and ends.
    void begin(FormWindow& window) { working_.push_back(&window); }
    void end(FormWindow& /*window*/) { working_.pop_back(); }
    void leave(FormWindow& window);
    void syncAll();
    // Brings the front window back to the front: not every platform does after a box was closed.
    void activateFront();

    std::function<widgets::Date()> today_;
    Hooks hooks_;
    Teller teller_;
    std::vector<FormWindow*> windows_; // in the order opened
    std::vector<FormWindow*> modal_;
    std::vector<FormWindow*> working_; // with a gesture under way, the last one begun last
    QPointer<QMenu> menu_;
    bool menuAside_ = false; // open, but put aside
    std::optional<QPoint> menuPlace_;
    std::unique_ptr<HelpWindow> help_; // made when it is first asked for
};

} // namespace vorandine::qt
