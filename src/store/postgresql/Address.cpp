// libpq reads the URL but for its fragment, which it does not know.
#include "store/postgresql/Address.h"

#include "text/Characters.h"
#include "text/Error.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <libpq-fe.h>
#include <memory>
#include <string_view>

namespace vorandine::store::postgresql {
namespace {

constexpr const char* UsualSchema = "vorandine";
constexpr std::size_t LongestName = 63; // the server cuts longer ones short
constexpr std::array<std::string_view, 2> Secrets{"password", "sslpassword"};

[[noreturn]] void refuse(const std::string& why) {
    throw Error(errors::UrlRefused, "L'adresse de la base n'est pas acceptée : " + why);
}

void requireNoSecret(const std::string& server) {
    const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> options(
        PQconninfoParse(server.c_str(), nullptr), &PQconninfoFree);
    // What libpq says would quote it.
    if (!options)
        refuse("elle s'écrit postgresql://POSTE@SERVEUR/BASE#SCHEMA, les caractères spéciaux sous "
               "la forme %XX.");
    for (const PQconninfoOption* option = options.get(); option->keyword != nullptr; ++option)
        if (option->val != nullptr && *option->val != '\0' &&
            std::find(Secrets.begin(), Secrets.end(), option->keyword) != Secrets.end())
            refuse("elle contient un mot de passe, que d'autres pourraient y lire. Écrivez-le dans "
                   "le fichier ~/.pgpass (une ligne SERVEUR:PORT:BASE:POSTE:MOTDEPASSE, chmod 600) "
                   "ou dans un fichier de service, et retirez-le de l'adresse.");
}

std::string withoutEscapes(std::string_view text) {
    constexpr int Hexadecimal = 16;
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string digits(text.substr(std::min(i + 1, text.size()), 2));
        if (text[i] != '%') {
            plain += text[i];
        } else if (digits.size() == 2 &&
                   digits.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos) {
            plain += static_cast<char>(std::strtol(digits.c_str(), nullptr, Hexadecimal));
            i += 2;
        } else {
            refuse("« % » y est suivi de deux chiffres hexadécimaux.");
        }
    }
    return plain;
}

std::string quoted(const std::string& text, char quote) {
    std::string all(1, quote);
    for (const char c : text)
        all += c == quote ? std::string(2, c) : std::string(1, c);
    return all + quote;
}

} // namespace

Address parseAddress(const std::string& url) {
    const std::size_t mark = std::min(url.find('#'), url.size());
    Address address;
    address.server = url.substr(0, mark);
    requireNoSecret(address.server);
    address.schema = mark == url.size() ? UsualSchema : withoutEscapes(url.substr(mark + 1));
    if (address.schema.empty() || address.schema.size() > LongestName ||
        !text::IsPlain(address.schema))
        refuse("le nom du schéma, après « # », a de 1 à 63 caractères.");
    address.shown = url.substr(0, url.find_first_of("?#")) + '#' + address.schema;
    return address;
}

std::string quotedName(const std::string& name) {
    return quoted(name, '"');
}

// With standard_conforming_strings, which the server has had on since its version 9.1.
std::string quotedText(const std::string& text) {
    return quoted(text, '\'');
}

} // namespace vorandine::store::postgresql
