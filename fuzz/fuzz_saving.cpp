// Saving: whatever a caregiver's file holds, one edit of it changes what was edited, what was told
// before, and nothing else but values filled in where none stood.
// An input is the record's whole text; behind a byte 0xFF the edit: its kind, a line, and a text.
#include "Property.h"
#include "audit/saving/Losses.h"
#include "records/RecordText.h"
#include "records/StoredFiles.h"
#include "unit/control_support.h"

namespace vorandine::fuzz {
namespace {

using namespace control_test;
using namespace widgets;
namespace file = records::training_file;
namespace table = records::table;

using Values = std::vector<std::string>;

constexpr const char* Code = "00012";
constexpr const char* Today = "20060615";
const Values AllActivities = {"A4", "A2", "A3", "A1"}; // by label; that of A4 is empty

Content contentOf(std::string_view text) {
    Content content;
    int number = 0;
    for (const std::string_view attribute : split(text, records::AttributeMark))
        if (++number, !attribute.empty()) {
            const auto values = split(attribute, records::ValueMark);
            content[number] = {values.begin(), values.end()};
        }
    return content;
}

// Cut to a size, of which nothing is lost that was not told, and filled where there is nothing.
void shape(Values& values, std::size_t size, const char* with = "") {
    for (std::size_t i = size; i < values.size(); ++i)
        hold(values[i].empty(), "what is dropped is told");
    values.resize(size);
    std::replace(values.begin(), values.end(), std::string(), std::string(with));
}

// What a save should make of `before`, by what was told.
Content afterSaving(const Content& before, const std::vector<audit::Loss>& losses) {
    Content after = before;
    for (const audit::Loss& loss : losses) {
        std::string& value =
            after.at(loss.attribute).at(static_cast<std::size_t>(loss.position) - 1);
        hold(!value.empty() && value == loss.value, "what is told stands in the record");
        if (loss.attribute != file::Qualification) // which its field alone erases
            value = loss.becomes;
    }
    for (auto& [attribute, values] : after)
        if (attribute > file::Qualification)
            shape(values, 0);
    const std::size_t lines = after[file::Training].size();
    for (const int list : file::Line)
        shape(after[list], lines, list == file::Hours || list == file::CountsForDif ? "0" : "");
    shape(after[file::Experience], 7);
    std::erase(after[file::Activities], "");
    const auto fill = [&](int attribute, const Values& values) {
        if (before.count(attribute) == 0)
            after[attribute] = values;
    };
    fill(file::StudyType, {"D"});
    fill(file::EntryDay, {Today});
    fill(file::AvailableFrom, {Today});
    fill(file::Activities, AllActivities);
    return after;
}

// One edit on the screen, and the same in what is expected.
void edit(host::CaregiverForm& form, Content& expected, int kind, int line,
          const std::string& text) {
    const auto press = [&](const char* name) {
        return click(at<CommandButton>(form, name)) == Outcome::Done;
    };
    if (kind >= 4)
        showTab(at<TabContainer>(form, "Ong_Vorandine"), 1);
    auto& field = at<TextField>(form, "Txt_SpecialAidant");
    if (const std::string before = field.Text(); kind == 1)
        if (paste(field, text); field.Text() != before)
            expected[file::Speciality] = {field.Text()};
    if (kind == 2 && click(at<OptionButton>(form, "Opt_Niveau")) == Outcome::Done)
        expected[file::StudyType] = {"N"};
    if (kind == 3 &&
        doubleClickLine(at<ListBox>(form, "Lst_ObsFormAidant"), line) == Outcome::Done &&
        press("Cmd_SupprimerForm"))
        for (const int list : file::Line)
            expected[list].erase(expected[list].begin() + line);
    if (kind == 4 && mark(at<ListBox>(form, "Lst_SectSelect"), {line}) == Outcome::Done &&
        press("Cmd_SuppSect"))
        expected[file::Activities].erase(expected[file::Activities].begin() + line);
    if (kind == 5 && choose(at<ComboBox>(form, "Cbo_Qualif"), "Écoutante") == Outcome::Done)
        expected[file::Qualification] = {"Écoutante"};
}

} // namespace

void check(Input input) {
    const std::string text(input.piece());
    if (!records::isPlainRecord(text))
        return;
    Desk desk({.messageBox = [](const Message&) { return Answer::Yes; }});
    desk.putText("ACTIVITES", "A4", "");
    desk.putText(table::File, table::Qualifications, "^]Écoutante]Auxiliaire de vie");
    desk.engine->file(file::File)->write(Code, text);
    audit::Choices choices;
    for (const char* const name : {table::Diplomas, table::Qualifications})
        choices.read(name, desk.stored(table::File, name));
    const auto losses = audit::lossesOfSaving(text, choices);
    hold(text::IsPlain(audit::lossNotice(losses)), "they are told in plain text");
    Content expected = afterSaving(contentOf(text), losses);
    const auto form = desk.open(Code);
    const int kind = input.number(5);
    const int line = input.byte();
    edit(*form, expected, kind, line,
         text::IsPlain(input.rest()) ? std::string(input.rest()) : "autre");
    click(at<CommandButton>(*form, "Cmd_OK"));
    if (expected[file::Activities].empty())
        expected[file::Activities] = AllActivities;
    desk.put(file::File, "expected", expected);
    // Dates that do not follow each other are refused.
    same(desk.stored(file::File, Code),
         form->form().unloaded() ? desk.stored(file::File, "expected") : text,
         "a save changes what was edited and what was told");
    hold(desk.errors.empty(), "nothing fails");
}

} // namespace vorandine::fuzz
