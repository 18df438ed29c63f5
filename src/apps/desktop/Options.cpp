// Options come as two words or with "=", the store also by itself.
#include "apps/desktop/Options.h"

#include <cstdlib>
#include <iterator>

namespace vorandine::desktop {

const char* const Help =
    "Usage : vorandine [OPTION]... [URL]\n"
    "\n"
    "Ouvre les dossiers de formation des aidants d'une base.\n"
    "\n"
    "URL désigne la base : sqlite:CHEMIN ou postgresql://POSTE@SERVEUR/BASE#SCHEMA. Sans elle,\n"
    "la base de démonstration est ouverte.\n"
    "\n"
    "Options :\n"
    "  --store URL      la base, comme URL\n"
    "  --user LOGIN     l'utilisateur ; sans cette option, le programme le demande\n"
    "  --open CODE      ouvre aussitôt le dossier de cet aidant, sans passer par la liste,\n"
    "                   et se termine avec lui\n"
    "  --help           affiche cette aide\n"
    "  --version        affiche la version\n"
    "\n"
    "Code de retour : 0 tout s'est bien passé, 1 la base, l'utilisateur ou l'aidant n'ont pas pu\n"
    "être ouverts, 2 les arguments sont faux ou il n'y a pas d'écran.\n";

namespace {

void setStore(Options& options, const std::string& url) {
    if (!options.store.empty())
        throw UsageError("une seule base peut être ouverte");
    options.store = url;
}

} // namespace

Options parse(const std::vector<std::string>& arguments) {
    Options options;
    for (auto at = arguments.begin(); at != arguments.end(); ++at) {
        const std::size_t equals = at->starts_with("--") ? at->find('=') : std::string::npos;
        const std::string word = at->substr(0, equals);
        const auto flag = [&](bool& option) {
            if (equals != std::string::npos)
                throw UsageError("l'option " + word + " n'attend pas de valeur");
            option = true;
        };
        const auto value = [&] {
            std::string given;
            if (equals != std::string::npos)
                given = at->substr(equals + 1);
            else if (std::next(at) != arguments.end())
                given = *++at;
            if (given.empty())
                throw UsageError("l'option " + word + " attend une valeur");
            return given;
        };
        if (word == "--help" || word == "-h")
            flag(options.help);
        else if (word == "--version")
            flag(options.version);
        else if (word == "--store")
            setStore(options, value());
        else if (word == "--user")
            options.user = value();
        else if (word == "--open")
            options.open = value();
        else if (word.starts_with("-"))
            throw UsageError("l'option " + word + " est inconnue");
        else
            setStore(options, word);
    }
    return options;
}

std::string demonstrationFile() {
    const auto variable = [](const char* name) {
        const char* const value = std::getenv(name);
        return std::string(value != nullptr ? value : "");
    };
    const std::string folder = variable("XDG_DATA_HOME");
    return (folder.empty() ? variable("HOME") + "/.local/share" : folder) +
           "/vorandine/demonstration.sqlite";
}

} // namespace vorandine::desktop
