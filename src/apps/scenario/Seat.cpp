// What one person does and sees. Lines come from one place, however deep the modal form that they
// are played in.
#include "apps/scenario/Seat.h"

#include "apps/scenario/LineError.h"

#include <nlohmann/json.hpp>

#include <array>
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

Seat::Seat(Course course, std::unique_ptr<Stage> stage, const MakeFrontEnd& makeFrontEnd)
    : course_(std::move(course)), stage_(std::move(stage)), looking_(forms_, *stage_, detail_),
      expectations_(looking_, forms_, course_.output), frontEnd_(makeFrontEnd(callbacks())),
      gestures_(frontEnd_->hand(), forms_, course_.output),
      dates_([this] { return stage_->today(); }), help_(frontEnd_->world()),
      rights_(std::make_shared<components::Rights>(
          [this](const std::string& key) { return stage_->rights(key); })),
      fiber_([this] {
          while (course_.playOn(*this)) {
          }
      }) {}

Seat::~Seat() {
    if (host_)
        frontEnd_->hide(host_->form());
}

headless::Callbacks Seat::callbacks() {
    headless::Callbacks callbacks;
    callbacks.messageBox = [this](const auto& message) { return answer(message); };
    callbacks.runModal = [this](auto& form) { playModal(form); };
    callbacks.popupMenu = [this](auto& menu) { gestures_.popup(menu); };
    callbacks.showHelp = [this](const auto& help) {
        course_.output.event("help " + toText(help.page) + " " + toText(help.kind) + " " +
                             toText(help.title));
    };
    callbacks.tell = [this](auto& /*form*/, const auto& told) {
        course_.output.event("told " + toText(told.text));
    };
    callbacks.today = [this] { return stage_->today(); };
    return callbacks;
}

void Seat::tellAnswersLeft() {
    for (const Reply& reply : replies_)
        course_.fail(reply.location, std::string("no message box has asked for the answer ") +
                                         nameOf(AnswerNames, reply.answer));
}

void Seat::playStep() {
    askForNews();
    if (const std::optional<std::string> failure = gestures_.playStep())
        course_.fail(course_.here, *failure);
    // Inside a modal form a gesture on the host's form still runs.
    if (host_ && !forms_.modal() && host_->form().unloaded())
        closeHost();
}

void Seat::askForNews() {
    if (!host_)
        return;
    for (const widgets::Told& told : news_->ask())
        frontEnd_->world().tell(host_->form(), told);
}

void Seat::run(const std::string& command, Words& words) {
    if (Gestures::has(command)) {
        if (std::optional<Words> replies = words.cutAt("->"))
            addReplies(*replies);
        gestures_.read(command, words);
    } else if (!stage_->run(command, words) && !runStill(command, words)) {
        look(command, words);
    }
}

// Commands that are neither the user's nor the stage's; false if `command` is none of them.
bool Seat::runStill(const std::string& command, Words& words) {
    if (command == "open") {
        open(words);
    } else if (command == "answer") {
        addReplies(words);
    } else if (command == "capture") {
        const std::string name = words.word("the name");
        words.end();
        if (forms_.front() != nullptr)
            frontEnd_->capture(*forms_.front(), name);
    } else if (command == "expect") {
        for (const std::string& failure : expectations_.check(words))
            course_.fail(course_.here, failure);
    } else {
        return false;
    }
    return true;
}

void Seat::look(const std::string& command, Words& words) {
    if (command == "print") {
        const std::string what = words.word("what to print");
        words.end();
        course_.output.answer(what + " = " + toText(looking_.look(what)));
    } else if (command == "show") {
        const std::string file = words.word("the file");
        const std::string key = words.word("the key");
        words.end();
        course_.output.answer(file + " " + key + " = " + toText(looking_.show(file, key)));
    } else if (command == "journal") {
        words.end();
        course_.output.answer("journal = " + toText(looking_.journal()));
    } else if (command == "rows") {
        const std::string file = words.word("the file");
        const std::string attributes = words.word("the attributes");
        const std::string query = words.word("the query");
        words.end();
        try {
            const nlohmann::json rows = looking_.rows(file, attributes, query);
            course_.output.answer("rows " + std::to_string(rows.size()));
            for (const auto& row : rows)
                course_.output.answer(toText(row));
        } catch (const Error& error) {
            course_.output.answer(errorLine(error));
        }
    } else {
        throw LineError("no command is named " + command);
    }
}

void Seat::open(Words& words) {
    const std::string code = words.word("the code");
    const std::string name = words.word("the name");
    words.end();
    if (host_)
        throw LineError("a control is open already");
    course_.output.beginGesture();
    const auto tell = [this](const Error& error) { course_.output.event(errorLine(error)); };
    try {
        const std::shared_ptr<store::Store> store = stage_->database();
        news_ = std::make_unique<host::News>(store, code);
        host_ = std::make_unique<host::CaregiverForm>(
            host::HostObjects{frontEnd_->world(), dates_, help_,
                              std::make_shared<ports::DBAClient>(), stage_->handedOver(*rights_),
                              rights_},
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

void Seat::closeHost() {
    const int left = host_->control().W_Sortir;
    forms_.pop();
    frontEnd_->hide(host_->form());
    host_.reset();
    course_.output.event("closed W_Sortir=" + std::to_string(left));
}

void Seat::addReplies(Words& words) {
    if (words.atEnd())
        throw LineError("the button is missing at the end of the line");
    for (const std::string& name : words.words())
        replies_.push_back({answerNamed(name), course_.here});
}

Answer Seat::answer(const widgets::Message& message) {
    if (course_.output.muted())
        return headless::lastButton(message.buttons);
    detail_ = message.detail;
    Answer pressed = headless::lastButton(message.buttons);
    const bool choice = message.buttons != Buttons::OK;
    const bool known =
        choice && !replies_.empty() && fits(replies_.front().answer, message.buttons);
    if (known) {
        pressed = replies_.front().answer;
        replies_.pop_front();
    }
    course_.output.event(std::string("message ") + nameOf(IconNames, message.icon) + " " +
                         nameOf(ButtonNames, message.buttons) + " " + toText(message.title) + " " +
                         toText(message.text) + " -> " + nameOf(AnswerNames, pressed));
    if (choice && !known)
        course_.fail(course_.here,
                     "no fitting answer is left for the message box " + toText(message.text));
    return pressed;
}

void Seat::playModal(widgets::Form& form) {
    course_.output.event("form " + form.Name() + " opened");
    forms_.push(form);
    while (!form.unloaded() && course_.playOn(*this)) {
    }
    forms_.pop();
    if (form.unloaded()) {
        course_.output.event("form " + form.Name() + " closed");
        return;
    }
    // The lines have ended inside the form. It goes without a word, and what the control still
    // does on its way out of the gesture leaves no trace.
    course_.output.mute();
    stage_->rehearsal().freeze();
    form.QueryUnload = nullptr;
    form.Unload();
}

} // namespace vorandine::scenario
