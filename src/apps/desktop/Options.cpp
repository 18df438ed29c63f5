// Options come as two words or with "=", the store also by itself.
#include "apps/desktop/Options.h"

#include <cstdlib>

namespace vorandine::desktop {

const char* const Help =
    "Usage : vorandine [OPTION]... [URL]\n"
    "\n"
    "Ouvre les dossiers de formation des aidants d'une base.\n"
    "\n"
    "URL désigne la base : sqlite:CHEMIN. Sans elle, la base de démonstration est ouverte.\n"
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

// The words one by one; an option may carry its value behind "=".
class Words {
  public:
    explicit Words(const std::vector<std::string>& words) : words_(words) {}

    [[nodiscard]] bool next() {
        if (at_ == words_.size())
            return false;
        word_ = words_[at_++];
        value_.reset();
        const std::size_t equals = word_.find('=');
        if (word_.starts_with("--") && equals != std::string::npos) {
            value_ = word_.substr(equals + 1);
            word_.resize(equals);
        }
        return true;
    }
    [[nodiscard]] const std::string& word() const noexcept { return word_; }

    // What the option is given.
    [[nodiscard]] std::string value() {
        if (!value_ && at_ < words_.size())
            value_ = words_[at_++];
        if (!value_ || value_->empty())
            throw UsageError("l'option " + word_ + " attend une valeur");
        return *value_;
    }
    void noValue() const {
        if (value_)
            throw UsageError("l'option " + word_ + " n'attend pas de valeur");
    }

  private:
    const std::vector<std::string>& words_;
    std::size_t at_ = 0;
    std::string word_;
    std::optional<std::string> value_;
};

void setStore(Options& options, const std::string& url) {
    if (!options.store.empty())
        throw UsageError("une seule base peut être ouverte");
    options.store = url;
}

} // namespace

Options parse(const std::vector<std::string>& arguments) {
    Options options;
    Words words(arguments);
    while (words.next()) {
        const std::string& word = words.word();
        if (word == "--help" || word == "-h") {
            words.noValue();
            options.help = true;
        } else if (word == "--version") {
            words.noValue();
            options.version = true;
        } else if (word == "--store") {
            setStore(options, words.value());
        } else if (word == "--user") {
            options.user = words.value();
        } else if (word == "--open") {
            options.open = words.value();
        } else if (word.starts_with("-")) {
            throw UsageError("l'option " + word + " est inconnue");
        } else {
            setStore(options, word);
        }
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
