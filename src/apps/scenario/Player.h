// Plays one scenario file: reads its lines and has each done at the seat that it belongs to.
#pragma once

#include "apps/scenario/Output.h"
#include "apps/scenario/Script.h"
#include "apps/scenario/Seat.h"
#include "apps/scenario/Stage.h"

#include <map>
#include <memory>
#include <ostream>
#include <string>

namespace vorandine::scenario {

class Player {
  public:
    // `script` is played on the store at `url`. Prints on `output`, tells failures on `failures`;
    // both must outlive the player. Throws Error if the store cannot be opened.
    Player(Script script, const std::string& url, MakeFrontEnd makeFrontEnd, std::ostream& output,
           std::ostream& failures);
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    // Plays all lines, once. Whether every line could be run and every expectation held. Forms
    // still open at the end are discarded.
    bool play();

  private:
    Output output_;
    std::ostream& failures_;
    Script script_;
    MakeFrontEnd makeFrontEnd_;
    Common common_;
    Location here_; // of the line that is being run
    std::map<std::string, std::unique_ptr<Seat>> seats_;
    Seat* current_; // where the lines are done
    bool failed_ = false;
    bool stopped_ = false; // at a line that could not be run
    bool over_ = false;    // no line is played any more

    Seat& add(const std::string& name, std::shared_ptr<store::Engine> engine);
    // Plays on at that seat, which waits for its turn first; false when no line is left.
    bool playOn(Seat& seat);
    // The next step of the line, or else the next line.
    void playNext();
    void run(const std::string& text);
    void sit(const std::string& name);
    void fail(const Location& location, const std::string& text);
};

} // namespace vorandine::scenario
