// Attribute by attribute, what becomes of a value that is shown and composed again untouched.
#include "audit/saving/Losses.h"

#include "components/DateConverter.h"
#include "dif/LedgerRecord.h"
#include "records/DBARecord.h"
#include "records/RecordText.h"
#include "records/StoredFiles.h"
#include "rules/Numbers.h"
#include "text/Characters.h"
#include "text/Listing.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vorandine::audit {
namespace {

namespace file = records::training_file;
namespace ledger = records::ledger;
namespace table = records::table;
using components::DateConverter;

constexpr std::size_t StudyLength = 2; // characters that are stored of a code
constexpr std::size_t TrainingLength = 3;
constexpr int ExperienceLines = 7;
constexpr std::size_t MostTold = 10;
constexpr std::size_t MostShown = 60; // characters of a value

int count(std::string_view attribute) {
    return attribute.empty() ? 0
                             : 1 + static_cast<int>(std::count(attribute.begin(), attribute.end(),
                                                               records::ValueMark));
}

// Calls `look` with the position and the text of each value that is not empty.
template <typename Look>
void eachValue(std::string_view attribute, const Look& look) {
    for (int position = 1; !attribute.empty(); ++position) {
        const std::size_t end = std::min(attribute.find(records::ValueMark), attribute.size());
        if (end > 0)
            look(position, attribute.substr(0, end));
        attribute.remove_prefix(std::min(end + 1, attribute.size()));
    }
}

std::string quoted(std::string_view value) {
    return "« " + text::Shortened(std::string(value), MostShown) + " »";
}

// What stays as it is, asked before what it becomes: most values are so.
bool isType(std::string_view type) {
    return type == "D" || type == "N";
}
bool isAnswer(std::string_view answer) {
    return answer == "0" || answer == "1";
}
bool isWhole(std::string_view figure) {
    return (figure.front() != '0' || figure.size() == 1) &&
           std::all_of(figure.begin(), figure.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string nothing(std::string_view /*value*/) {
    return {};
}

// What a list is of, in the three places where a sentence says it.
struct LineWords {
    const char* of;     // a line
    const char* beyond; // the last one
    const char* none;
};
constexpr LineWords TrainingWords{" de la formation n° ", ", au-delà de la dernière formation (",
                                  ", sans formation"};
constexpr LineWords LedgerWords{" de la ligne n° ", ", au-delà de la dernière ligne (",
                                ", sans ligne"};

class Search {
  public:
    Search(std::string_view record, const LineWords& words) : record_(record), words_(words) {}

    std::vector<Loss> ofLedger() {
        const int lines = count(attribute(ledger::Date));
        const auto stays = [](auto) { return true; };
        const auto figure = [](std::string_view value) {
            return dif::rewrittenFigure(std::string(value));
        };
        list(ledger::Date, "la date du D.I.F.", lines, DateConverter::isStored,
             [](std::string_view value) {
                 const DateConverter dates([] { return widgets::Date{}; }); // none is typed
                 return dif::rewrittenDate(std::string(value), dates);
             });
        list(ledger::Rights, "les droits du D.I.F.", lines, isWhole, figure, "");
        list(ledger::Hours, "les heures du D.I.F.", lines, isWhole, figure, "");
        list(ledger::Balance, "le solde du D.I.F.", lines, stays, nothing);
        list(ledger::Training, "le code du D.I.F.", lines, stays, nothing);
        return std::move(losses_);
    }

    std::vector<Loss> ofTrainingFile(const Choices& choices) {
        const int lines = count(attribute(file::Training));
        single(file::StudyType, "le type d'étude", "", isType, [](auto) { return "D"; });
        single(
            file::StudyCode, "l'étude", ", qui n'est pas dans sa table",
            [&](std::string_view code) { return choices.hasStudy(code); }, nothing);
        list(file::Date, "la date", lines, DateConverter::isStored, DateConverter::stored);
        list(
            file::Training, "le code", lines,
            [](std::string_view code) { return code.size() <= TrainingLength; },
            [](std::string_view code) { return text::Left(code, TrainingLength); });
        list(file::Hours, "les heures", lines, isWhole,
             [](std::string_view hours) { return rules::storedHours(rules::shownHours(hours)); });
        list(
            file::Remarks, "les observations", lines, [](auto) { return true; }, nothing);
        eachValue(attribute(file::Experience), [&](int position, std::string_view value) {
            if (position > ExperienceLines)
                add(file::Experience, position, value, "",
                    "l'expérience n° " + std::to_string(position) + " " + quoted(value));
        });
        for (const auto& [number, name] : {std::pair(file::EntryDay, "la date de saisie"),
                                           {file::AvailableFrom, "le début de disponibilité"},
                                           {file::AvailableTo, "la fin de disponibilité"}})
            single(number, name, NoDate, DateConverter::isStored, DateConverter::stored);
        list(file::CountsForDif, "la réponse D.I.F.", lines, isAnswer, [](auto) { return "0"; });
        single(
            file::Qualification, "la qualification",
            ", qui n'est pas dans sa table, dès que l'on passe par son champ",
            [&](std::string_view entry) { return choices.hasQualification(entry); }, nothing);
        beyond();
        return std::move(losses_);
    }

  private:
    static constexpr const char* NoDate = ", qui n'est pas une date";

    std::string_view record_;
    records::AttributeCursor cursor_{record_};
    const LineWords& words_;
    std::vector<Loss> losses_;

    std::string_view attribute(int number) { return cursor_.text(number); }

    void add(int number, int position, std::string_view value, std::string becomes,
             std::string sentence) {
        losses_.push_back(
            {number, position, std::string(value), std::move(becomes), std::move(sentence)});
    }

    void lose(int number, int position, std::string_view value, std::string becomes,
              std::string sentence, const std::string& why) {
        if (becomes == value)
            return;
        sentence += becomes.empty() ? why : ", que remplacera " + quoted(becomes);
        add(number, position, value, std::move(becomes), std::move(sentence));
    }

    // Several values where one is read are stored back as they are.
    template <typename Stays, typename After>
    void single(int number, const char* name, const char* why, const Stays& stays,
                const After& after) {
        const std::string_view value = attribute(number);
        if (!value.empty() && value.find(records::ValueMark) == std::string_view::npos &&
            !stays(value))
            lose(number, 1, value, after(value), name + (" " + quoted(value)), why);
    }

    template <typename Stays, typename After>
    void list(int number, const char* name, int lines, const Stays& stays, const After& after,
              const char* why = NoDate) {
        eachValue(attribute(number), [&](int position, std::string_view value) {
            if (position <= lines && stays(value))
                return;
            const std::string what = name + (" " + quoted(value));
            if (position <= lines)
                lose(number, position, value, after(value),
                     what + words_.of + std::to_string(position), why);
            else
                add(number, position, value, "",
                    what + " en position " + std::to_string(position) +
                        (lines == 0 ? words_.none : words_.beyond + std::to_string(lines) + ")"));
        });
    }

    // The control knows no attribute behind the last of its own.
    void beyond() {
        const auto attributes =
            1 + std::count(record_.begin(), record_.end(), records::AttributeMark);
        for (int number = file::Qualification + 1; number <= attributes; ++number)
            eachValue(attribute(number), [&](int position, std::string_view value) {
                add(number, position, value, "",
                    "l'attribut " + std::to_string(number) + " " + quoted(value));
            });
    }
};

} // namespace

void Choices::read(std::string_view name, std::string_view text) {
    const std::string_view codes = records::attributeText(text, table::Codes);
    if (name == table::Qualifications)
        eachValue(codes, [&](int, std::string_view entry) { qualifications_.add(entry); });
    if (name != table::Diplomas)
        return;
    const records::DBARecord record(nullptr, {}, std::string(text));
    for (int i = 1; i <= count(codes); ++i)
        studies_.add(
            text::Left(record(table::Codes, i) + " " + record(table::Labels, i), StudyLength));
}

std::vector<Loss> lossesOfSaving(std::string_view record, const Choices& choices) {
    return Search(record, TrainingWords).ofTrainingFile(choices);
}

std::vector<Loss> lossesOfLedger(std::string_view record) {
    return Search(record, LedgerWords).ofLedger();
}

std::string lossNotice(const std::vector<Loss>& losses) {
    if (losses.empty())
        return {};
    std::vector<std::string> sentences;
    sentences.reserve(losses.size());
    for (const Loss& loss : losses)
        sentences.push_back(loss.sentence);
    return "Un enregistrement effacera : " + text::Listed(sentences, MostTold, " ; ", " ; ") + ".";
}

} // namespace vorandine::audit
