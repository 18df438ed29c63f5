// vorandine-scenario: plays scenario files, as a user would work in the control.
#include "apps/scenario/HeadlessHand.h"
#include "apps/scenario/Player.h"
#include "apps/scenario/Script.h"

#include <exception>
#include <iostream>
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
    "  --front headless  the front end to play on (the default)\n"
    "  --store URL       the store: memory: (the default; new and empty for each FILE) or\n"
    "                    sqlite:PATH, used as it stands\n"
    "  --captures DIR    the folder for pictures; none are taken without it\n"
    "  --screens         draws each capture as text on standard output\n"
    "  --help            show this text\n"
    "  --version         show the version\n"
    "\n"
    "Exit status: 0 all held, 1 an expectation failed or a line could not be run,\n"
    "2 wrong arguments or an unreadable file.\n";

struct Options {
    std::string front = "headless";
    std::string store = "memory:";
    std::string captures;
    bool screens = false;
    std::vector<std::string> files;
};

Options parse(const std::vector<std::string>& words) {
    Options options;
    for (auto word = words.begin(); word != words.end(); ++word) {
        const auto value = [&]() -> const std::string& {
            if (std::next(word) == words.end())
                throw std::invalid_argument(*word + " needs a value");
            return *++word;
        };
        if (*word == "--front")
            options.front = value();
        else if (*word == "--store")
            options.store = value();
        else if (*word == "--captures")
            options.captures = value();
        else if (*word == "--screens")
            options.screens = true;
        else if (word->rfind("--", 0) == 0)
            throw std::invalid_argument("unknown option " + *word);
        else
            options.files.push_back(*word);
    }
    if (options.front != "headless")
        throw std::invalid_argument("the front end " + options.front +
                                    " is not part of this program; --front headless is");
    if (options.files.empty())
        throw std::invalid_argument("no FILE given");
    return options;
}

int run(const std::vector<std::string>& words) {
    for (const std::string& word : words) {
        if (word == "--help") {
            std::cout << Help;
            return Held;
        }
        if (word == "--version") {
            std::cout << "vorandine-scenario " << VORANDINE_VERSION << '\n';
            return Held;
        }
    }
    const Options options = parse(words);
    const MakeHand makeHand = [&](headless::Callbacks callbacks) -> std::unique_ptr<Hand> {
        return std::make_unique<HeadlessHand>(std::move(callbacks),
                                              options.screens ? &std::cout : nullptr);
    };
    // All files are read before the first line is played.
    std::vector<Script> scripts;
    for (const std::string& file : options.files)
        scripts.emplace_back(file);
    int status = Held;
    for (Script& script : scripts) {
        Player player(std::move(script), options.store, makeHand, std::cout, std::cerr);
        if (!player.play())
            status = Failed;
    }
    return status;
}

} // namespace
} // namespace vorandine::scenario

int main(int argc, char** argv) {
    using namespace vorandine::scenario;
    try {
        return run({argv + 1, argv + argc});
    } catch (const std::invalid_argument& error) {
        std::cerr << "vorandine-scenario: " << error.what() << "; see vorandine-scenario --help\n";
    } catch (const std::exception& error) {
        std::cerr << "vorandine-scenario: " << error.what() << '\n';
    }
    return CannotRun;
}
