// The course of a scenario. Each seat's lines run on the seat's own stack: the one whose turn it is
// plays on, the others wait where they are, be it inside a modal form.
#include "apps/scenario/Player.h"

#include "apps/scenario/LineError.h"
#include "text/Characters.h"

#include <utility>

namespace vorandine::scenario {
namespace {

constexpr const char* First = "1";

// What is printed at a seat begins so.
std::string speaker(const std::string& seat) {
    return seat == First ? std::string() : seat + ": ";
}

} // namespace

Player::Player(Script script, const std::string& url, MakeFrontEnd makeFrontEnd,
               std::ostream& output, std::ostream& failures)
    : output_(output), failures_(failures), script_(std::move(script)),
      makeFrontEnd_(std::move(makeFrontEnd)), current_(&add(First, openStore(url))) {}

Seat& Player::add(const std::string& name, std::shared_ptr<store::Engine> engine) {
    auto stage = std::make_unique<Stage>(std::move(engine), common_,
                                         name == First ? std::string() : " (" + name + ")", name);
    Seat::Course course{output_, [this](Seat& seat) { return playOn(seat); },
                        [this](const Location& at, const std::string& text) { fail(at, text); },
                        here_};
    auto seat = std::make_unique<Seat>(std::move(course), std::move(stage), makeFrontEnd_);
    return *seats_.emplace(name, std::move(seat)).first->second;
}

bool Player::play() {
    while (!over_)
        current_->fiber().resume();
    // Those that wait inside a modal form come out of it.
    for (const auto& [name, seat] : seats_)
        if (!seat->fiber().ended())
            seat->fiber().resume();
    if (!stopped_)
        for (const auto& [name, seat] : seats_)
            seat->tellAnswersLeft();
    return !failed_;
}

bool Player::playOn(Seat& seat) {
    while (current_ != &seat && !over_)
        seat.fiber().pause();
    if (!over_)
        playNext();
    return !over_;
}

void Player::playNext() {
    try {
        if (current_->pending()) {
            current_->playStep();
        } else if (const std::optional<Line> line = script_.next()) {
            here_ = line->location;
            run(line->text);
        } else {
            over_ = true;
        }
        return;
    } catch (const Error& error) {
        fail(here_, errorLine(error));
    } catch (const std::exception& error) {
        fail(here_, error.what());
    }
    stopped_ = over_ = true;
}

void Player::run(const std::string& text) {
    Words words(text);
    const std::string command = words.word("the command");
    if (command == "seat") {
        const std::string name = words.word("the seat");
        words.end();
        sit(name);
    } else if (command == "include") {
        const std::string path = words.word("the path");
        words.end();
        script_.include(path);
    } else {
        current_->run(command, words);
    }
}

void Player::sit(const std::string& name) {
    text::RequirePlain(name, "Le nom du poste");
    const auto found = seats_.find(name);
    Seat& seat = found != seats_.end() ? *found->second
                                       : add(name, seats_.at(First)->stage().anotherConnection());
    if (&seat == current_)
        return;
    current_->frontEnd().leave();
    current_ = &seat;
    output_.speaker(speaker(name));
    current_->frontEnd().enter();
}

void Player::fail(const Location& location, const std::string& text) {
    failed_ = true;
    failures_ << text::Printable(location.file) << ':' << location.line << ": "
              << text::Printable(text) << '\n'
              << std::flush;
}

} // namespace vorandine::scenario
