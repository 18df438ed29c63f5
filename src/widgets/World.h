// The outside world of forms and controls: everything that needs a person, a screen or a clock.
// Each front end implements it once; no other code reads the clock, opens a window or waits.
#pragma once

#include <optional>
#include <string>

namespace vorandine::widgets {

class Form;
class Menu;

enum class Icon { None, Information, Question, Warning };
enum class Buttons { OK, YesNo, YesNoCancel };
enum class Answer { OK, Yes, No, Cancel };

struct Message {
    std::string title;
    std::string text;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::OK;
    std::string detail; // a second, smaller text; "" if there is none
    // What Enter presses, one of the buttons; without it, the first.
    std::optional<Answer> preset = std::nullopt;
};

struct Date {
    int year = 0;
    int month = 0;
    int day = 0;
};

// A page of the user's help.
struct HelpPage {
    std::string page; // its file name
    std::string kind; // "S": a summary
    std::string title;
};

// Something that the user is to know of the file on a form, and need not answer: what another seat
// did. Times stand apart, so that the text tells the same whenever it happened.
struct Told {
    std::string text;
    std::string when; // in the user's time, for the eye; "" if it says nothing
};

// As dd/mm/yyyy. Years have at most four digits.
[[nodiscard]] std::string displayed(const Date& date);

class World {
  public:
    World() = default;
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    virtual ~World() = default;

    // Shows a modal message box and gives the button pressed, one of those asked for.
    virtual Answer messageBox(const Message& message) = 0;
    // Tells the user something of `form`, or of what was on it if it is about to go. Comes back at
    // once and never takes the focus.
    virtual void tell(Form& form, const Told& told) = 0;
    // Shows `form` in front of all others and returns when it has been unloaded.
    virtual void runModal(Form& form) = 0;
    // Opens the menu at the pointer; what is picked comes as the entry's Click, later or at once.
    virtual void popupMenu(Menu& menu) = 0;
    // Shows a page of the help beside the forms and comes back at once: the user goes on working in
    // them. Throws Error(HelpMissing) if there is no such page.
    virtual void showHelp(const HelpPage& help) = 0;
    // The current date.
    [[nodiscard]] virtual Date today() = 0;
    // Lets waiting events through, so that the screen shows what has happened so far.
    virtual void letEventsThrough() = 0;
};

} // namespace vorandine::widgets
