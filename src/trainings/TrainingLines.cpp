// Selection, scrolling, and the way of the lines from the record and back.
#include "trainings/TrainingLines.h"

#include "records/StoredFiles.h"
#include "rules/Numbers.h"
#include "text/Characters.h"
#include "text/Error.h"

#include <algorithm>
#include <utility>

namespace vorandine::trainings {
namespace {

namespace attribute = records::training_file;

constexpr int LastLineWithoutBar = 8;

} // namespace

TrainingLines::TrainingLines(TrainingWidgets& widgets, const ports::DateObject& Conv_Date)
    : w_(widgets), Conv_Date_(Conv_Date), lists_{&w_.Lst_DatFormAidant, &w_.Lst_CodFormAidant,
                                                 &w_.Lst_HhFormAidant,  &w_.Lst_ObsFormAidant,
                                                 &w_.Lst_DifFormAidant, &w_.Lst_CodeForm} {
    for (widgets::ListBox* const list :
         {&w_.Lst_DatFormAidant, &w_.Lst_CodFormAidant, &w_.Lst_HhFormAidant})
        list->Click = [this, list] { select(*list, false); };
    for (widgets::ListBox* const list : {&w_.Lst_ObsFormAidant, &w_.Lst_DifFormAidant})
        list->Click = [this, list] { select(*list, true); };
    w_.Bdv_FormAidant.Change = [this] { scroll(); };
}

int TrainingLines::count() const {
    return w_.Lst_CodFormAidant.ListCount();
}

TrainingLine TrainingLines::line(int i) const {
    return {.date = w_.Lst_DatFormAidant.List(i),
            .label = w_.Lst_CodFormAidant.List(i),
            .code = w_.Lst_CodeForm.List(i),
            .hours = w_.Lst_HhFormAidant.List(i),
            .observations = w_.Lst_ObsFormAidant.List(i),
            .dif = w_.Lst_DifFormAidant.List(i),
            .origin = origins_.at(static_cast<std::size_t>(i))};
}

int TrainingLines::W_LigneForm() const {
    return w_.Lst_DatFormAidant.ListIndex();
}

void TrainingLines::deselect() {
    for (widgets::ListBox* const list :
         {&w_.Lst_DatFormAidant, &w_.Lst_CodFormAidant, &w_.Lst_CodeForm, &w_.Lst_HhFormAidant,
          &w_.Lst_ObsFormAidant, &w_.Lst_DifFormAidant})
        list->ListIndex(-1);
}

void TrainingLines::onOpen(const std::function<void()>& open) {
    for (widgets::ListBox* const list : lists_)
        if (list != &w_.Lst_CodeForm)
            list->DblClick = open;
}

void TrainingLines::range(int max) {
    w_.Bdv_FormAidant.Max(max);
    w_.Bdv_FormAidant.Visible(w_.Bdv_FormAidant.Max() > LastLineWithoutBar);
}

// One click is spread to the other five lists, whose own clicks must then not move the bar, nor the
// bar in its turn the selection.
void TrainingLines::select(const widgets::ListBox& clicked, bool movesBar) {
    if (spreading_)
        return;
    struct Spreading {
        bool& flag;
        explicit Spreading(bool& f) : flag(f) { flag = true; }
        Spreading(const Spreading&) = delete;
        Spreading& operator=(const Spreading&) = delete;
        ~Spreading() { flag = false; }
    } const spreading(spreading_);
    for (widgets::ListBox* const list : lists_)
        list->ListIndex(clicked.ListIndex());
    if (movesBar && clicked.ListIndex() != -1)
        w_.Bdv_FormAidant.Value(clicked.ListIndex());
}

// The bar moves the selected line; a range that reaches past the lines does no harm. The first list
// set spreads its click to the others.
void TrainingLines::scroll() {
    const int value = w_.Bdv_FormAidant.Value();
    if (spreading_ || value >= w_.Lst_DatFormAidant.ListCount())
        return;
    for (widgets::ListBox* const list : lists_)
        list->ListIndex(value);
}

void TrainingLines::put(TrainingLine line, int i) {
    w_.Lst_DatFormAidant.AddItem(std::move(line.date), i);
    w_.Lst_CodFormAidant.AddItem(std::move(line.label), i);
    w_.Lst_CodeForm.AddItem(std::move(line.code), i);
    w_.Lst_HhFormAidant.AddItem(std::move(line.hours), i);
    w_.Lst_ObsFormAidant.AddItem(std::move(line.observations), i);
    w_.Lst_DifFormAidant.AddItem(std::move(line.dif), i);
    origins_.insert(origins_.begin() + i, line.origin);
}

void TrainingLines::requireRoom() const {
    if (count() >= widgets::MaxLines)
        throw Error(errors::TooManyLines, "Le dossier compte déjà " +
                                              std::to_string(widgets::MaxLines) +
                                              " formations : aucune ne peut être ajoutée.");
}

// Stored dates compare as texts, "" before everything.
int TrainingLines::placeOf(const std::string& date) const {
    const std::string typed = Conv_Date_.Date_Stockee(date);
    int place = 0;
    while (place < count()) {
        const std::string here = w_.Lst_DatFormAidant.List(place);
        if (here.empty() || typed >= Conv_Date_.Date_Stockee(here))
            break;
        ++place;
    }
    return place;
}

void TrainingLines::insert(TrainingLine line) {
    const int place = placeOf(line.date);
    put(std::move(line), place);
    range(count() - 1);
}

void TrainingLines::remove(int i) {
    for (widgets::ListBox* const list : lists_)
        list->RemoveItem(i);
    origins_.erase(origins_.begin() + i);
    w_.Bdv_FormAidant.Visible(w_.Bdv_FormAidant.Max() > LastLineWithoutBar);
}

TrainingLine TrainingLines::read(const records::DBARecord& rec,
                                 const records::TrainingLabels& labels, int i,
                                 rules::StatementByStatement& tries) const {
    TrainingLine line;
    line.origin = i;
    tries([&] {
        const std::string stored = rec(attribute::Date, i);
        line.date = stored.empty() ? stored : Conv_Date_.Date_Affichee(stored);
    });
    line.code = rec(attribute::Training, i);
    if (const std::string* const label = labels.find(line.code))
        line.label = *label;
    tries([&] { line.hours = rules::shownHours(rec(attribute::Hours, i)); });
    line.observations = rec(attribute::Remarks, i);
    line.dif = rec(attribute::CountsForDif, i) == "1" ? "OUI" : "NON";
    return line;
}

void TrainingLines::show(const records::DBARecord& rec, const records::DBARecord& F_FORMPRO,
                         rules::StatementByStatement& tries) {
    const int lines = std::min(rec.DCount(attribute::Training), widgets::MaxLines - count());
    const records::TrainingLabels labels(F_FORMPRO);
    for (int i = 1; i <= lines; ++i)
        tries([&] { put(read(rec, labels, i, tries), count()); });
    tries([&] { range(std::min(rec.DCount(attribute::Date), widgets::MaxLines)); });
}

void TrainingLines::compose(records::DBARecord& rec) {
    for (int i = 0; i < count(); ++i) {
        if (w_.Lst_HhFormAidant.List(i).empty())
            w_.Lst_HhFormAidant.List(i, "0");
        const TrainingLine shown = line(i);
        rec.Insert(attribute::Date, i + 1) = Conv_Date_.Date_Stockee(shown.date);
        rec.Insert(attribute::Training, i + 1) = text::Left(shown.code, CodeLength);
        rec.Insert(attribute::Hours, i + 1) = rules::storedHours(shown.hours);
        rec.Insert(attribute::Remarks, i + 1) = shown.observations;
        rec.Insert(attribute::CountsForDif, i + 1) = shown.dif == "NON" ? "0" : "1";
    }
}

} // namespace vorandine::trainings
