// Saving: whatever a caregiver's file holds, one edit of it changes what was edited, what was told
// before, and nothing else but values filled in where none stood.
// An input is the record's whole text; behind a byte 0xFF the edit: its kind, a line, and a text.
#include "Property.h"
#include "audit/saving/Losses.h"
#include "records/RecordText.h"
#include "records/StoredFiles.h"
#include "unit/control_support.h"

#include <map>
#include <memory>

namespace vorandine::fuzz {
namespace {

using namespace control_test;
using namespace widgets;
namespace file = records::training_file;
using Values = std::vector<std::string>;
using File = std::map<int, Values>; // by attribute

constexpr const char* Code = "00012";
constexpr const char* Today = "20060615";
const Values AllActivities = {"A4", "A2", "A3", "A1"}; // by label; that of A4 is empty

std::unique_ptr<Desk> newDesk() {
    const auto answer = [](const Message& message) {
        return message.buttons == Buttons::OK ? Answer::OK : Answer::Yes;
    };
    auto desk = std::make_unique<Desk>(headless::Callbacks{answer, {}, {}, {}, {}});
    desk->putText("ACTIVITES", "A4", "");
    desk->putText("TABLES", "QUALIF", "^]Écoutante]Auxiliaire de vie");
    return desk;
}

const audit::Choices& choicesOf(Desk& desk) {
    static audit::Choices choices;
    for (const char* const table : {records::table::Diplomas, records::table::Qualifications})
        choices.read(table, desk.stored(records::table::File, table));
    return choices;
}

File fileOf(std::string_view text) {
    File values;
    int number = 0;
    for (const std::string_view attribute : split(text, records::AttributeMark))
        if (++number, !attribute.empty()) {
            const auto pieces = split(attribute, records::ValueMark);
            values[number] = {pieces.begin(), pieces.end()};
        }
    return values;
}

std::string textOf(const File& values) {
    records::DBARecord record;
    for (const auto& [attribute, list] : values)
        for (std::size_t i = 0; i < list.size(); ++i)
            record(attribute, static_cast<int>(i) + 1) = list[i];
    return std::as_const(record)();
}

// What stands where nothing did: the control never leaves these empty.
void fill(Values& values, std::size_t size, const char* with) {
    values.resize(size);
    std::replace(values.begin(), values.end(), std::string(), std::string(with));
}

// The file as a save makes it of `before`, by what was told.
File afterSaving(const File& before, const std::vector<audit::Loss>& losses) {
    File after = before;
    for (const audit::Loss& loss : losses) {
        std::string& value =
            after.at(loss.attribute).at(static_cast<std::size_t>(loss.position) - 1);
        hold(!value.empty() && value == loss.value, "what is told stands in the record");
        hold(text::IsPlain(loss.sentence) && !loss.sentence.empty(), "it is told in plain text");
        if (loss.attribute != file::Qualification) // which its field alone erases
            value = loss.becomes;
    }
    for (auto& [attribute, values] : after)
        if (attribute > file::Qualification)
            hold(values == Values(values.size()), "attributes that are dropped are told");
    after.erase(after.upper_bound(file::Qualification), after.end());
    const std::size_t lines = after[file::Training].size();
    for (const int list : file::Line) {
        Values& values = after[list];
        for (std::size_t i = lines; i < values.size(); ++i)
            hold(values[i].empty(), "values beyond the trainings are told");
        const bool filled = list == file::Hours || list == file::CountsForDif;
        fill(values, lines, filled ? "0" : "");
    }
    Values& experience = after[file::Experience];
    for (std::size_t i = 7; i < experience.size(); ++i)
        hold(experience[i].empty(), "experience beyond the seventh is told");
    experience.resize(7);
    Values& activities = after[file::Activities];
    std::erase(activities, "");
    if (before.count(file::Activities) == 0)
        activities = AllActivities;
    for (const auto& [attribute, with] :
         {std::pair(file::StudyType, "D"), {file::EntryDay, Today}, {file::AvailableFrom, Today}})
        if (before.count(attribute) == 0)
            after[attribute] = {with};
    return after;
}

// One edit on the screen, and the same in the file that is expected.
class Edit {
  public:
    Edit(host::CaregiverForm& form, File& expected) : form_(form), expected_(expected) {}

    void make(int kind, std::size_t line, const std::string& text) {
        if (kind >= 4)
            showTab(at<TabContainer>(form_, "Ong_Vorandine"), 1);
        if (kind == 1)
            field("Txt_SpecialAidant", text, expected_[file::Speciality]);
        if (kind == 2 && click(at<OptionButton>(form_, "Opt_Niveau")) == Outcome::Done)
            expected_[file::StudyType] = {"N"};
        if (kind == 3)
            deleteTraining(static_cast<int>(line));
        if (kind == 4)
            field("Txt_ExpProfAidant(" + std::to_string(line % 7) + ")", text,
                  expected_[file::Experience][line % 7]);
        if (kind == 5)
            giveUp(static_cast<int>(line));
        if (kind == 6 && choose(at<ComboBox>(form_, "Cbo_Qualif"), "Écoutante") == Outcome::Done)
            expected_[file::Qualification] = {"Écoutante"};
    }

  private:
    host::CaregiverForm& form_;
    File& expected_;

    void field(const std::string& name, const std::string& text, std::string& value) {
        auto& box = at<TextField>(form_, name);
        const std::string before = box.Text();
        paste(box, text);
        if (box.Text() != before)
            value = box.Text();
    }
    void field(const std::string& name, const std::string& text, Values& values) {
        std::string value;
        const std::string before = at<TextField>(form_, name).Text();
        field(name, text, value);
        if (at<TextField>(form_, name).Text() != before)
            values = {value};
    }
    void deleteTraining(int line) {
        doubleClickLine(at<ListBox>(form_, "Lst_ObsFormAidant"), line);
        if (click(at<CommandButton>(form_, "Cmd_SupprimerForm")) == Outcome::Done)
            for (const int list : file::Line)
                expected_[list].erase(expected_[list].begin() + line);
    }
    void giveUp(int line) {
        Values& chosen = expected_[file::Activities];
        if (mark(at<ListBox>(form_, "Lst_SectSelect"), {line}) != Outcome::Done ||
            click(at<CommandButton>(form_, "Cmd_SuppSect")) != Outcome::Done)
            return;
        chosen.erase(chosen.begin() + line);
    }
};

} // namespace

void check(Input input) {
    const std::string text(input.piece());
    if (!records::isPlainRecord(text))
        return;
    // A new store now and then: the history of each grows.
    static std::unique_ptr<Desk> desk;
    static int runs = 0;
    if (runs++ % 1000 == 0)
        desk = newDesk();
    static const audit::Choices& choices = choicesOf(*desk);
    desk->engine->file(file::File)->write(Code, text);
    File expected = afterSaving(fileOf(text), audit::lossesOfSaving(text, choices));
    const auto form = desk->open(Code);
    Edit edit(*form, expected);
    const int kind = input.byte() % 7;
    const std::size_t line = input.byte();
    edit.make(kind, line, text::IsPlain(input.rest()) ? std::string(input.rest()) : "autre");
    click(at<CommandButton>(*form, "Cmd_OK"));
    if (expected[file::Activities].empty())
        expected[file::Activities] = AllActivities;
    same(desk->stored(file::File, Code), form->form().unloaded() ? textOf(expected) : text,
         "a save changes what was edited and what was told");
    hold(desk->errors.empty(), "nothing fails");
}

} // namespace vorandine::fuzz
