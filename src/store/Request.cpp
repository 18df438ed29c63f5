// One function a production of the grammar:
//   query       = "SSELECT" file [ "AVEC" condition { "AND" "AVEC" condition } ] { "PAR" attribute
//   } condition   = attribute operator value { "OR" "=" value }
// with one or more blanks between any two words.
#include "store/Request.h"

#include "records/Layout.h"
#include "records/RecordText.h"
#include "text/Characters.h"
#include "text/Error.h"

#include <algorithm>
#include <optional>

namespace vorandine::store {
namespace {

[[noreturn]] void refuse(const std::string& where, const std::string& why) {
    throw Error(errors::RequestRefused, "Requête refusée, " + where + " : " + why);
}

bool isNumber(std::string_view word) {
    return !word.empty() &&
           std::all_of(word.begin(), word.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// The attribute that `digits` names; none beyond the last one that may be named.
std::optional<int> attributeNumber(std::string_view digits) {
    int number = 0;
    for (const char digit : digits) {
        number = number * 10 + (digit - '0');
        if (number > records::LastAttribute)
            return std::nullopt;
    }
    return number;
}

std::string tooHigh() {
    return "un numéro d'attribut va de 0 à " + std::to_string(records::LastAttribute) + ".";
}

class QueryParser {
  public:
    explicit QueryParser(std::string_view query) : query_(query) {}

    // Fills all but the wanted attributes; `expectedFile` is the file that the request names.
    void parse(Request& request, std::string_view expectedFile) {
        requirePlain();
        request.conditions.reserve(4);
        request.order.reserve(4);
        expect("SSELECT");
        file(request, expectedFile);
        if (accept("AVEC")) {
            request.conditions.push_back(condition());
            while (accept("AND")) {
                expect("AVEC");
                request.conditions.push_back(condition());
            }
        }
        while (accept("PAR"))
            request.order.push_back(attribute());
        if (!peek().empty())
            refuseHere(request.order.empty() ? request.conditions.empty()
                                                   ? "AVEC, PAR ou la fin de la requête attendus."
                                                   : "OR =, AND AVEC, PAR ou la fin de la "
                                                     "requête attendus."
                                             : "PAR ou la fin de la requête attendus.");
    }

  private:
    std::string_view query_;
    std::size_t at_ = 0; // of the next word, or of the blanks before it
    std::string_view file_;

    [[noreturn]] void refuseAt(std::size_t at, const std::string& why) const {
        refuse("caractère " + std::to_string(text::Len(query_.substr(0, at)) + 1), why);
    }
    [[noreturn]] void refuseHere(const std::string& why) { refuseAt(start(), why); }

    void requirePlain() const {
        if (text::IsPlain(query_))
            return;
        std::size_t at = 0;
        for (std::string one; at < query_.size(); at += one.size()) {
            one = text::Left(query_.substr(at), 1);
            if (!text::IsPlain(one))
                break;
        }
        refuseAt(at, "ce caractère n'est pas permis.");
    }

    // Where the next word begins.
    [[nodiscard]] std::size_t start() {
        while (at_ < query_.size() && query_[at_] == ' ')
            ++at_;
        return at_;
    }

    [[nodiscard]] std::string_view peek() {
        const std::size_t from = start();
        std::size_t to = from;
        while (to < query_.size() && query_[to] != ' ')
            ++to;
        return query_.substr(from, to - from);
    }

    std::string_view word() {
        const std::string_view next = peek();
        at_ += next.size();
        return next;
    }

    bool accept(std::string_view keyword) {
        if (peek() != keyword)
            return false;
        at_ += keyword.size();
        return true;
    }

    void expect(std::string_view keyword) {
        if (!accept(keyword))
            refuseHere(std::string(keyword) + " attendu.");
    }

    void file(Request& request, std::string_view expected) {
        const std::size_t at = start();
        file_ = word();
        if (file_.empty())
            refuseAt(at, "nom de fichier attendu.");
        if (file_ != expected)
            refuseAt(at, "ce fichier n'est pas celui que nomme l'attribut 2 de la demande.");
        request.file = file_;
    }

    int attribute() {
        const std::size_t at = start();
        const std::string_view name = word();
        if (name.empty())
            refuseAt(at, "attribut attendu : un numéro ou un nom du dictionnaire.");
        if (isNumber(name)) {
            const std::optional<int> number = attributeNumber(name);
            if (!number)
                refuseAt(at, tooHigh());
            return *number;
        }
        const std::optional<int> number = records::dictionaryAttribute(file_, name);
        if (!number)
            refuseAt(at, "« " + std::string(name) +
                             " » n'est ni un numéro ni un nom du dictionnaire de « " +
                             std::string(file_) + " ».");
        return *number;
    }

    Operator comparison() {
        const std::size_t at = start();
        const std::string_view op = word();
        if (op == "=")
            return Operator::Equal;
        if (op == "<>")
            return Operator::NotEqual;
        if (op == ">=")
            return Operator::AtLeast;
        if (op == "<=")
            return Operator::AtMost;
        refuseAt(at, "opérateur attendu : =, <>, >= ou <=.");
    }

    Alternative value(Operator op) {
        const std::size_t open = start();
        if (open == query_.size() || query_[open] != '"')
            refuseAt(open, "valeur entre guillemets attendue.");
        const std::size_t close = query_.find('"', open + 1);
        if (close == std::string_view::npos)
            refuseAt(open, "ce guillemet n'est pas fermé.");
        at_ = close + 1;
        if (at_ < query_.size() && query_[at_] != ' ')
            refuseAt(at_, "blanc attendu après une valeur, qui ne peut pas contenir de guillemet.");
        Alternative alternative{op, std::string(query_.substr(open + 1, close - open - 1)), false};
        if (alternative.value.ends_with(']')) {
            if (op != Operator::Equal && op != Operator::NotEqual)
                refuseAt(close - 1, "« commence par » ne va qu'avec = et <>.");
            alternative.value.pop_back();
            alternative.beginsWith = true;
        }
        return alternative;
    }

    Condition condition() {
        Condition read;
        read.alternatives.reserve(2);
        read.attribute = attribute();
        read.alternatives.push_back(value(comparison()));
        while (accept("OR")) {
            expect("=");
            read.alternatives.push_back(value(Operator::Equal));
        }
        return read;
    }
};

std::vector<int> wantedAttributes(std::string_view list) {
    std::vector<int> wanted;
    wanted.reserve(4);
    for (std::size_t at = 0; at < list.size();) {
        if (list[at] == ' ') {
            ++at;
            continue;
        }
        const std::size_t end = std::min(list.find(' ', at), list.size());
        const std::string_view word = list.substr(at, end - at);
        const auto refuseWord = [&](const std::string& why) {
            refuse("attributs demandés, caractère " +
                       std::to_string(text::Len(list.substr(0, at)) + 1),
                   why);
        };
        if (!isNumber(word))
            refuseWord("numéro d'attribut attendu.");
        const std::optional<int> number = attributeNumber(word);
        if (!number)
            refuseWord(tooHigh());
        wanted.push_back(*number);
        at = end;
    }
    if (wanted.empty())
        refuse("attributs demandés", "il en faut au moins un.");
    return wanted;
}

} // namespace

Request parseRequest(std::string_view request) {
    Request parsed;
    QueryParser(records::attributeText(request, 1))
        .parse(parsed, records::attributeText(request, 2));
    parsed.wanted = wantedAttributes(records::attributeText(request, 3));
    return parsed;
}

} // namespace vorandine::store
