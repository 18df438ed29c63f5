// vorandine-scenario: plays scenario files, as a user would work in the control.
#include "apps/scenario/HeadlessFrontEnd.h"
#include "apps/scenario/Player.h"
#include "apps/scenario/QtHand.h"
#include "apps/scenario/Script.h"
#include "store/WriteSignals.h"
#include "text/Characters.h"

#include <QApplication>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorandine::scenario {
namespace {

constexpr int Held = 0;
constexpr int Failed = 1;
constexpr int CannotRun = 2;

constexpr const char* Help =
    "Usage: vorandine-scenario [OPTION]... FILE...\n"
    "\n"
    "Plays scenario files on the control, each on its own, and prints what a user sees.\n"
    "\n"
    "Options:\n"
    "  --front NAME      the front end to play on: headless (the default) or qt, with real events\n"
    "                    on real windows\n"
    "  --store URL       the store: memory: (the default; new and empty for each FILE) or\n"
    "                    sqlite:PATH or postgresql://USER@HOST/BASE#SCHEMA, used as it stands\n"
    "  --captures DIR    the folder for pictures (qt), made if missing; none are taken without it\n"
    "  --zoom PERCENT    the size of the windows (qt), 100 by default\n"
    "  --screens         draws each capture as text on standard output (headless)\n"
    "  --help            show this text\n"
    "  --version         show the version\n"
    "\n"
    "Lines of a FILE, one command each; a word with blanks or quotes in it is a JSON string:\n"
    "  # ...             a remark\n"
    "  today DD/MM/YYYY, put FILE KEY JSON, remove FILE KEY, rights JSON, guard,\n"
    "  include PATH, fail FILE [KEY], fail read FILE, fail none, open CODE NAME\n"
    "                    the stage: what stands ready, and what fails from there on\n"
    "  seat NAME, user LOGIN\n"
    "                    who acts from there on: seat 1 at first. Each has a connection, a form,\n"
    "                    rights, answers and failures of its own, and begins what it prints with\n"
    "                    NAME: (which expect output and expect printed may leave out there); its\n"
    "                    user in the history from the next open on\n"
    "  focus FIELD, type FIELD TEXT, erase FIELD, paste FIELD TEXT, retype FIELD TEXT...,\n"
    "  click CONTROL [LINE], dblclick LIST LINE, mark LIST LINE..., drag LIST CONTROL,\n"
    "  choose COMBO TEXT, scroll BAR VALUE, tab N, key NAME..., tabs CONTROL..., rightclick "
    "CONTROL,\n"
    "  menu ENTRY, close\n"
    "                    gestures. A line of several (key, tabs, retype) is one gesture to expect\n"
    "                    printed, error and silence; it ends where one of them is refused or a\n"
    "                    field keeps the focus. tabs expects the focus at each CONTROL in turn\n"
    "  answer BUTTON...  what the user will press on the next messages: OK, Yes, No, Cancel; also "
    "at\n"
    "                    the end of a gesture: click Cmd_Retour -> No\n"
    "  print CONTROL.PROPERTY, print Focus, print Form, print Detail, show FILE KEY,\n"
    "  rows FILE ATTRIBUTES QUERY, journal, capture NAME.png\n"
    "                    looking\n"
    "  expect ...        the same (print left out) with the JSON value that it must have, and\n"
    "                    expect CONTROL {\"PROPERTY\":JSON,...}, expect each PROPERTY "
    "{\"CONTROL\":JSON,...},\n"
    "                    expect enabled CONTROL..., expect disabled CONTROL..., expect output "
    "TEXT,\n"
    "                    expect printed TEXT, expect error, expect silence\n"
    "\n"
    "Exit status: 0 all held, 1 an expectation failed or a line could not be run,\n"
    "2 wrong arguments, an unreadable file, or an output that cannot be written.\n";

struct Options {
    std::string front = "headless";
    std::string store = "memory:";
    std::string captures;
    int zoom = 100;
    bool screens = false;
    std::vector<std::string> files;
};

int percent(const std::string& word) {
    constexpr int Smallest = 50;
    constexpr int Largest = 500;
    char* end = nullptr;
    const long value = std::strtol(word.c_str(), &end, 10);
    if (word.empty() || *end != '\0' || value < Smallest || value > Largest)
        throw std::invalid_argument("--zoom takes a number from 50 to 500");
    return static_cast<int>(value);
}

Options parse(const std::vector<std::string>& words) {
    Options options;
    for (auto at = words.begin(); at != words.end(); ++at) {
        const std::size_t equals = at->starts_with("--") ? at->find('=') : std::string::npos;
        const std::string word = at->substr(0, equals);
        const auto value = [&]() -> std::string {
            if (equals != std::string::npos)
                return at->substr(equals + 1);
            if (std::next(at) == words.end())
                throw std::invalid_argument(word + " needs a value");
            return *++at;
        };
        if (word == "--front")
            options.front = value();
        else if (word == "--store")
            options.store = value();
        else if (word == "--captures")
            options.captures = value();
        else if (word == "--zoom")
            options.zoom = percent(value());
        else if (*at == "--screens")
            options.screens = true;
        else if (word.starts_with("--"))
            throw std::invalid_argument("unknown option " + *at);
        else
            options.files.push_back(*at);
    }
    if (options.front != "headless" && options.front != "qt")
        throw std::invalid_argument("there is no front end " + options.front);
    if (options.files.empty())
        throw std::invalid_argument("no FILE given");
    return options;
}

// Platforms that have no screen say so at every window.
void withoutPlatformNoise(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (!text.startsWith(QLatin1String("This plugin does not support")) &&
        !text.startsWith(QLatin1String("QStandardPaths")))
        std::cerr << qFormatLogMessage(type, context, text).toStdString() << '\n';
}

// Where there is no display, windows are drawn all the same, where nobody sees them.
std::unique_ptr<QApplication> application(int& argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && !qEnvironmentVariableIsSet("DISPLAY") &&
        !qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(withoutPlatformNoise);
    auto made = std::make_unique<QApplication>(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return made;
}

MakeFrontEnd frontEndMaker(const Options& options) {
    return [options](headless::Callbacks callbacks) -> std::unique_ptr<FrontEnd> {
        constexpr double Percent = 100.0;
        if (options.front == "qt")
            return std::make_unique<QtHand>(std::move(callbacks),
                                            Stills{options.captures, options.zoom / Percent});
        return std::make_unique<HeadlessFrontEnd>(std::move(callbacks),
                                                  options.screens ? &std::cout : nullptr);
    };
}

int run(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    for (const std::string& word : words) {
        if (word == "--help" || word == "-h") {
            std::cout << Help;
            return Held;
        }
        if (word == "--version") {
            std::cout << "vorandine-scenario " << VORANDINE_VERSION << '\n';
            return Held;
        }
    }
    const Options options = parse(words);
    // All files are read before the first line is played.
    std::vector<Script> scripts;
    for (const std::string& file : options.files)
        scripts.emplace_back(file);
    int ownArguments = 1;
    const auto windows =
        options.front == "qt" ? application(ownArguments, argv) : std::unique_ptr<QApplication>();
    int status = Held;
    for (Script& script : scripts) {
        Player player(std::move(script), options.store, frontEndMaker(options), std::cout,
                      std::cerr);
        if (!player.play())
            status = Failed;
    }
    return status;
}

} // namespace
} // namespace vorandine::scenario

int main(int argc, char** argv) {
    using namespace vorandine::scenario;
    vorandine::store::ignoreWriteSignals();
    try {
        const int status = run(argc, argv);
        if (std::cout.flush())
            return status;
        std::cerr << "vorandine-scenario: the output could not be written to its end\n";
    } catch (const std::invalid_argument& error) {
        std::cerr << "vorandine-scenario: " << vorandine::text::Printable(error.what())
                  << "; see vorandine-scenario --help\n";
    } catch (const std::exception& error) {
        std::cerr << "vorandine-scenario: " << vorandine::text::Printable(error.what()) << '\n';
    }
    return CannotRun;
}
