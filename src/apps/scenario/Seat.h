// One seat of a scenario: a person at a screen, with a connection to the store, a form, a front end
// and answers of its own. Its lines are played on a fiber, so that it can be left while a modal
// form is in front and be taken up again, whatever the others do meanwhile.
#pragma once

#include "apps/host/CaregiverForm.h"
#include "apps/host/News.h"
#include "apps/scenario/Expectations.h"
#include "apps/scenario/Fiber.h"
#include "apps/scenario/FrontEnd.h"
#include "apps/scenario/Gestures.h"
#include "apps/scenario/Looking.h"
#include "apps/scenario/Output.h"
#include "apps/scenario/Script.h"
#include "apps/scenario/Stage.h"
#include "components/DateConverter.h"
#include "components/Help.h"
#include "components/Rights.h"
#include "frontends/headless/HeadlessWorld.h"
#include "widgets/named/FormStack.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>

namespace vorandine::scenario {

// Makes a front end, whose world asks the callbacks for what the person does.
using MakeFrontEnd = std::function<std::unique_ptr<FrontEnd>(headless::Callbacks callbacks)>;

class Seat {
  public:
    // The scenario as its seats see it.
    struct Course {
        Output& output;
        // Plays what comes next at this seat; false once the scenario is over.
        std::function<bool(Seat&)> playOn;
        // What does not hold, at the line that is being played or at another.
        std::function<void(const Location&, const std::string&)> fail;
        const Location& here;
    };

    // All of `course` must outlive the seat.
    Seat(Course course, std::unique_ptr<Stage> stage, const MakeFrontEnd& makeFrontEnd);
    Seat(const Seat&) = delete;
    Seat& operator=(const Seat&) = delete;
    ~Seat();

    // Runs a line. Throws LineError and others where that cannot be done.
    void run(const std::string& command, Words& words);
    // Whether steps of the line are still to be played; plays the next of them.
    [[nodiscard]] bool pending() const noexcept { return gestures_.pending(); }
    void playStep();
    // Tells each answer that no message box has asked for.
    void tellAnswersLeft();

    // The course of this seat, which asks Course::playOn for more until there is none.
    [[nodiscard]] Fiber& fiber() noexcept { return fiber_; }
    [[nodiscard]] Stage& stage() noexcept { return *stage_; }
    [[nodiscard]] FrontEnd& frontEnd() noexcept { return *frontEnd_; }

  private:
    struct Reply {
        widgets::Answer answer;
        Location location;
    };

    Course course_;
    std::unique_ptr<Stage> stage_;
    widgets::FormStack forms_;
    std::string detail_; // of the last message box
    Looking looking_;
    Expectations expectations_;
    std::unique_ptr<FrontEnd> frontEnd_;
    Gestures gestures_;
    components::DateConverter dates_;
    components::Help help_;
    std::shared_ptr<components::Rights> rights_;
    std::unique_ptr<host::News> news_; // of the form that is open
    std::unique_ptr<host::CaregiverForm> host_;
    std::deque<Reply> replies_; // what the user will press on the next message boxes
    Fiber fiber_;

    [[nodiscard]] headless::Callbacks callbacks();
    bool runStill(const std::string& command, Words& words);
    void look(const std::string& command, Words& words);
    void open(Words& words);
    void addReplies(Words& words);
    void askForNews();
    void closeHost();

    // What the person does, for the world.
    widgets::Answer answer(const widgets::Message& message);
    void playModal(widgets::Form& form);
};

} // namespace vorandine::scenario
