// Plays one scenario file: reads its lines, runs each, and answers for the person at the screen
// when the control shows a message or a modal form.
#pragma once

#include "apps/host/CaregiverForm.h"
#include "apps/scenario/Expectations.h"
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
#include <ostream>
#include <string>

namespace vorandine::scenario {

// Makes a front end, whose world asks the callbacks for what the person does.
using MakeFrontEnd = std::function<std::unique_ptr<FrontEnd>(headless::Callbacks callbacks)>;

class Player {
  public:
    // `script` is played on the store at `url`. Prints on `output`, tells failures on `failures`;
    // both must outlive the player. Throws Error if the store cannot be opened.
    Player(Script script, const std::string& url, const MakeFrontEnd& makeFrontEnd,
           std::ostream& output, std::ostream& failures);
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;
    ~Player();

    // Plays all lines, once. Whether every line could be run and every expectation held. Forms
    // still open at the end are discarded.
    bool play();

  private:
    struct Reply {
        widgets::Answer answer;
        Location location;
    };

    Output output_;
    std::ostream& failures_;
    Script script_;
    Stage stage_;
    widgets::FormStack forms_;
    std::string detail_; // of the last message box
    Looking looking_;
    Expectations expectations_;
    std::unique_ptr<FrontEnd> frontEnd_;
    Gestures gestures_;
    components::DateConverter dates_;
    components::Help help_;
    std::shared_ptr<components::Rights> rights_;
    std::unique_ptr<host::CaregiverForm> host_;
    std::deque<Reply> replies_; // what the user will press on the next message boxes
    Location here_;             // of the line that is being run
    bool failed_ = false;
    bool stopped_ = false; // at a line that could not be run

    [[nodiscard]] headless::Callbacks callbacks();
    // The next step of the line, or else the next line; false at the end, or once stopped.
    bool playNext();
    void playStep();
    void run(const std::string& text);
    bool runStill(const std::string& command, Words& words);
    void look(const std::string& command, Words& words);
    void open(Words& words);
    void addReplies(Words& words);
    void closeHost();
    void fail(const Location& location, const std::string& text);

    // What the person does, for the world.
    widgets::Answer answer(const widgets::Message& message);
    void playModal(widgets::Form& form);
};

} // namespace vorandine::scenario
