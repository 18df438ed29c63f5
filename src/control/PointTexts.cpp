// The names of what the screen shows, and values as it shows them.
#include "control/PointTexts.h"

#include "records/Layout.h"
#include "records/StoredFiles.h"
#include "rules/Numbers.h"
#include "rules/StatementByStatement.h"
#include "text/Decimal.h"
#include "text/Listing.h"

#include <algorithm>
#include <optional>

namespace vorandine::control {
namespace {

namespace attribute = records::training_file;
constexpr const char* Nothing = "rien";
constexpr std::size_t MostShown = 160; // characters of a value
constexpr std::size_t MostOfPiece = 80;

std::string nameOf(const records::Point& point) {
    switch (point.attribute) {
    case attribute::StudyType:
        return "étude";
    case attribute::DiplomaYear:
        return "année du diplôme";
    case attribute::Speciality:
        return "spécialité";
    case attribute::Date:
        return "formation";
    case attribute::Experience:
        return "expérience, ligne " + std::to_string(point.position);
    case attribute::Activities:
        return "activité";
    case attribute::EntryDay:
        return "date de saisie";
    case attribute::AvailableFrom:
        return "disponibilité, du";
    case attribute::AvailableTo:
        return "disponibilité, au";
    case attribute::Qualification:
        return "qualification";
    default:
        return "attribut " + std::to_string(point.attribute);
    }
}

std::string quoted(const std::string& text) {
    return "« " + text::Shortened(text, MostShown) + " »";
}

// The marks of several values in one attribute are none of the user's characters.
std::string readable(std::string text) {
    std::replace(text.begin(), text.end(), records::ValueMark, '/');
    return text;
}

} // namespace

std::string PointTexts::trainingText(const std::vector<std::string>& line) const {
    std::string text;
    const auto add = [&](const std::string& piece) {
        if (!piece.empty())
            text += (text.empty() ? "" : ", ") + text::Shortened(piece, MostOfPiece);
    };
    for (std::size_t i = 0; i < line.size(); ++i) {
        const std::string& value = line[i];
        switch (attribute::Line.at(i)) {
        case attribute::Date:
            add(value.empty() ? "sans date" : Conv_Date_.Date_Affichee(value));
            break;
        case attribute::Training: {
            const std::string* const label = labels_.find(value);
            add(label != nullptr ? *label : value);
            break;
        }
        case attribute::Hours: {
            const std::optional<text::Decimal> hours = text::Decimal::parse(value);
            add(hours ? hours->shifted(-rules::HundredthsPlaces).toText(rules::HundredthsPlaces) +
                            " h"
                      : value);
            break;
        }
        case attribute::CountsForDif:
            add(value == "1" ? "D.I.F. OUI" : "D.I.F. NON");
            break;
        default:
            add(value);
        }
    }
    return text;
}

std::string PointTexts::studyText(const std::vector<std::string>& study) const {
    const std::string kind = study.front() == "D" ? "diplôme" : "niveau";
    const int entries = v_.F_DIPLOMES.DCount(records::table::Codes);
    for (int i = 1; i <= entries; ++i)
        if (v_.F_DIPLOMES(records::table::Codes, i) == study.back())
            return kind + " " + v_.F_DIPLOMES(records::table::Labels, i);
    return study.back().empty() ? kind : kind + " " + study.back();
}

// Whatever cannot be read is told by its code.
std::string PointTexts::activityText(const std::string& code) const {
    std::string label;
    rules::StatementByStatement tries;
    tries([&] {
        if (const auto found = ports::find(*v_.F_ACTIVITES, code))
            label = (*found)(records::activity::Label);
    });
    return label.empty() ? code : label;
}

std::string PointTexts::valueText(int attribute, const std::vector<std::string>& values) const {
    const bool none = std::all_of(values.begin(), values.end(),
                                  [](const std::string& value) { return value.empty(); });
    if (none)
        return Nothing;
    if (attribute == attribute::Date)
        return quoted(readable(trainingText(values)));
    if (attribute == attribute::StudyType)
        return quoted(readable(studyText(values)));
    if (attribute == attribute::Activities)
        return quoted(activityText(values.front()));
    const records::AttributeLayout* const known = records::layout(attribute::File, attribute);
    const bool date = known != nullptr && known->kind == records::Kind::Date;
    return quoted(readable(date ? Conv_Date_.Date_Affichee(values.front()) : values.front()));
}

std::string PointTexts::conflict(const records::Point& point, const std::string& who) const {
    const auto made = [&](const std::string& by, const std::vector<std::string>& values) {
        const bool deleted = point.attribute == attribute::Date && values.empty();
        return deleted ? "supprimée par " + by : by + " " + valueText(point.attribute, values);
    };
    return nameOf(point) + " : " + made("vous", point.mine) + ", " + made(who, point.theirs);
}

std::string PointTexts::change(const records::Point& point) const {
    const bool listed =
        point.attribute == attribute::Date || point.attribute == attribute::Activities;
    if (listed && point.before.empty())
        return nameOf(point) + " ajoutée : " + valueText(point.attribute, point.theirs);
    if (listed && point.theirs.empty())
        return nameOf(point) + " supprimée : " + valueText(point.attribute, point.before);
    return nameOf(point) + (listed ? " modifiée : " : " : ") +
           valueText(point.attribute, point.theirs);
}

} // namespace vorandine::control
