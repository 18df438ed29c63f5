// The course of a scenario. Lines are taken from one place, however deep the modal form that they
// are played in.
#include "apps/scenario/Player.h"

#include "apps/scenario/LineError.h"
#include "text/Characters.h"

#include <nlohmann/json.hpp>

#include <array>
#include <map>
#include <utility>

namespace vorandine::scenario {
namespace {

using widgets::Answer;
using widgets::Buttons;

constexpr std::array AnswerNames{"OK", "Yes", "No", "Cancel"};
constexpr std::array IconNames{"none", "information", "question", "warning"};
constexpr std::array ButtonNames{"OK", "YesNo", "YesNoCancel"};

template <typename Names, typename Value>
const char* nameOf(const Names& names, Value value) {
    return names.at(static_cast<std::size_t>(value));
}

Answer answerNamed(const std::string& name) {
    for (std::size_t i = 0; i < AnswerNames.size(); ++i)
        if (name == AnswerNames.at(i))
            return static_cast<Answer>(i);
    throw LineError("no button is named " + name);
}

bool fits(Answer answer, Buttons buttons) {
    if (buttons == Buttons::OK)
        return answer == Answer::OK;
    return answer == Answer::Yes || answer == Answer::No ||
           (answer == Answer::Cancel && buttons == Buttons::YesNoCancel);
}

} // namespace

Player::Player(Script script, const std::string& url, const MakeFrontEnd& makeFrontEnd,
               std::ostream& output, std::ostream& failures)
    : output_(output), failures_(failures), script_(std::move(script)), stage_(url),
      looking_(forms_, stage_, detail_), expectations_(looking_, forms_, output_),
      frontEnd_(makeFrontEnd(callbacks())), gestures_(frontEnd_->hand(), forms_, output_),
      dates_([this] { return stage_.today(); }), help_(frontEnd_->world()),
      rights_(std::make_shared<components::Rights>(
          [this](const std::string& key) { return stage_.rights(key); })) {}

Player::~Player() {
    if (host_)
        frontEnd_->hide(host_->form());
}

headless::Callbacks Player::callbacks() {
    headless::Callbacks callbacks;
    callbacks.messageBox = [this](const auto& message) { return answer(message); };
    callbacks.runModal = [this](auto& form) { playModal(form); };
    callbacks.popupMenu = [this](auto& menu) { gestures_.popup(menu); };
    callbacks.showHelp = [this](const auto& help) {
        output_.event("help " + toText(help.page) + " " + toText(help.kind) + " " +
                      toText(help.title));
    };
    callbacks.today = [this] { return stage_.today(); };
    return callbacks;
}

bool Player::play() {
    while (playNext()) {
    }
    if (!stopped_)
        for (const Reply& reply : replies_)
            fail(reply.location, std::string("no message box has asked for the answer ") +
                                     nameOf(AnswerNames, reply.answer));
    return !failed_;
}

bool Player::playNext() {
    if (stopped_)
        return false;
    try {
        if (gestures_.pending()) {
            playStep();
            return true;
        }
        const std::optional<Line> line = script_.next();
        if (!line)
            return false;
        here_ = line->location;
        run(line->text);
        return true;
    } catch (const Error& error) {
        fail(here_, errorLine(error));
    } catch (const std::exception& error) {
        fail(here_, error.what());
    }
    stopped_ = true;
    return false;
}

void Player::playStep() {
    if (const std::optional<std::string> failure = gestures_.playStep())
        fail(here_, *failure);
    // Inside a modal form a gesture on the host's form still runs.
    if (host_ && !forms_.modal() && host_->form().unloaded())
        closeHost();
}

void Player::run(const std::string& text) {
    Words words(text);
    const std::string command = words.word("the command");
    if (Gestures::has(command)) {
        if (std::optional<Words> replies = words.cutAt("->"))
            addReplies(*replies);
        gestures_.read(command, words);
    } else if (!stage_.run(command, words) && !runStill(command, words)) {
        look(command, words);
    }
}

// Commands that are neither the user's nor the stage's; false if `command` is none of them.
bool Player::runStill(const std::string& command, Words& words) {
    if (command == "open") {
        open(words);
    } else if (command == "answer") {
        addReplies(words);
    } else if (command == "include") {
        const std::string path = words.word("the path");
        words.end();
        script_.include(path);
    } else if (command == "capture") {
        const std::string name = words.word("the name");
        words.end();
        if (forms_.front() != nullptr)
            frontEnd_->capture(*forms_.front(), name);
    } else if (command == "expect") {
        for (const std::string& failure : expectations_.check(words))
            fail(here_, failure);
    } else {
        return false;
    }
    return true;
}

void Player::look(const std::string& command, Words& words) {
    if (command == "print") {
        const std::string what = words.word("what to print");
        words.end();
        output_.answer(what + " = " + toText(looking_.look(what)));
    } else if (command == "show") {
        const std::string file = words.word("the file");
        const std::string key = words.word("the key");
        words.end();
        output_.answer(file + " " + key + " = " + toText(looking_.show(file, key)));
    } else if (command == "journal") {
        words.end();
        output_.answer("journal = " + toText(looking_.journal()));
    } else if (command == "rows") {
        const std::string file = words.word("the file");
        const std::string attributes = words.word("the attributes");
        const std::string query = words.word("the query");
        words.end();
        try {
            const nlohmann::json rows = looking_.rows(file, attributes, query);
            output_.answer("rows " + std::to_string(rows.size()));
            for (const auto& row : rows)
                output_.answer(toText(row));
        } catch (const Error& error) {
            output_.answer(errorLine(error));
        }
    } else {
        throw LineError("no command is named " + command);
    }
}

void Player::open(Words& words) {
    const std::string code = words.word("the code");
    const std::string name = words.word("the name");
    words.end();
    if (host_)
        throw LineError("a control is open already");
    output_.beginGesture();
    const auto tell = [this](const Error& error) { output_.event(errorLine(error)); };
    try {
        host_ = std::make_unique<host::CaregiverForm>(
            host::HostObjects{frontEnd_->world(), dates_, help_,
                              std::make_shared<ports::DBAClient>(), stage_.database(), rights_},
            code, name, tell);
    } catch (const Error& error) {
        tell(error);
        return;
    } catch (const std::exception& error) {
        tell(Error(errors::Unexpected, error.what()));
        return;
    }
    forms_.push(host_->form());
    frontEnd_->show(host_->form());
}

void Player::closeHost() {
    const int left = host_->control().W_Sortir;
    forms_.pop();
    frontEnd_->hide(host_->form());
    host_.reset();
    output_.event("closed W_Sortir=" + std::to_string(left));
}

void Player::addReplies(Words& words) {
    if (words.atEnd())
        throw LineError("the button is missing at the end of the line");
    for (const std::string& name : words.words())
        replies_.push_back({answerNamed(name), here_});
}

void Player::fail(const Location& location, const std::string& text) {
    failed_ = true;
    failures_ << text::Printable(location.file) << ':' << location.line << ": "
              << text::Printable(text) << '\n'
              << std::flush;
}

Answer Player::answer(const widgets::Message& message) {
    detail_ = message.detail;
    Answer pressed = headless::lastButton(message.buttons);
    const bool choice = message.buttons != Buttons::OK;
    const bool known =
        choice && !replies_.empty() && fits(replies_.front().answer, message.buttons);
    if (known) {
        pressed = replies_.front().answer;
        replies_.pop_front();
    }
    output_.event(std::string("message ") + nameOf(IconNames, message.icon) + " " +
                  nameOf(ButtonNames, message.buttons) + " " + toText(message.title) + " " +
                  toText(message.text) + " -> " + nameOf(AnswerNames, pressed));
    if (choice && !known && !output_.muted())
        fail(here_, "no fitting answer is left for the message box " + toText(message.text));
    return pressed;
}

void Player::playModal(widgets::Form& form) {
    output_.event("form " + form.Name() + " opened");
    forms_.push(form);
    while (!form.unloaded() && playNext()) {
    }
    forms_.pop();
    if (form.unloaded()) {
        output_.event("form " + form.Name() + " closed");
        return;
    }
    // The lines have ended inside the form. It goes without a word, and what the control still
    // does on its way out of the gesture leaves no trace.
    output_.mute();
    stage_.rehearsal().freeze();
    form.QueryUnload = nullptr;
    form.Unload();
}

} // namespace vorandine::scenario
