// The comparison is the store's: what it finds is put together here, and compared again by the
// write.
#include "control/SaveMerge.h"

#include "control/PointTexts.h"
#include "control/Screen.h"
#include "records/StoredFiles.h"
#include "rules/Messages.h"
#include "text/Listing.h"

#include <optional>
#include <utility>

namespace vorandine::control {
namespace {

namespace attribute = records::training_file;
constexpr std::size_t MostTold = 10;

std::string savedAt(const records::ChangedMeanwhile::Maker& maker) {
    return maker.when.empty() ? "" : "Enregistré le " + maker.when + ".";
}

} // namespace

std::optional<records::ChangedMeanwhile>
SaveMerge::written(const std::function<void()>& write) const {
    try {
        write();
        return std::nullopt;
    } catch (const records::ChangedMeanwhile& changed) {
        return changed;
    }
}

bool SaveMerge::store(const Save& save) {
    auto met = written([this] { v_.Rec_Dossier.DBWrite(); });
    return !met || meet(*std::move(met), save);
}

void SaveMerge::storeUnasked(const Save& save) {
    auto met = written([this] { v_.Rec_Dossier.DBWrite(); });
    if (met && met->stored())
        static_cast<void>(meet(*std::move(met), save));
}

// What a save without a change makes of the record is what the screen makes of it: shown on a
// screen of its own that nobody sees.
std::string SaveMerge::composedUntouched(const std::string& read) const {
    records::DBARecord before;
    before() = read;
    widgets::UserControl surface;
    Screen screen(surface);
    experience::Studies studies(screen, screen.Cbo_CodFormAidant, v_, world_);
    trainings::TrainingLines trainings(screen, Conv_Date_);
    experience::Activities activities(screen, v_, W_Params_, module_, world_);
    experience::Availability availability(screen, screen.Ong_Vorandine, Conv_Date_, world_);
    const Subjects subjects{studies, trainings, activities, availability};
    studies.Remplir_Diplome();
    subjects.show(before, v_.F_FORMPRO);
    records::DBARecord composed;
    subjects.compose(composed);
    return std::as_const(composed)();
}

bool SaveMerge::meet(records::ChangedMeanwhile met, const Save& save) {
    const std::string mine = std::as_const(v_.Rec_Dossier)();
    const std::string untouched = save.untouched ? *save.untouched : composedUntouched(save.read);
    for (;;) {
        records::Merged merged{.text = mine, .conflicts = {}, .theirs = {}};
        widgets::Answer answer = widgets::Answer::Yes;
        if (!met.stored()) {
            answer = askDeleted(met.maker());
        } else {
            const records::MergeInput input{.file = attribute::File,
                                            .read = save.read,
                                            .untouched = untouched,
                                            .mine = mine,
                                            .stored = *met.stored(),
                                            .origins = save.origins,
                                            .filled = save.filled};
            merged = records::merge(input, records::Prefer::Mine);
            if (!merged.conflicts.empty())
                answer = ask(merged.conflicts, met.maker(), save.hoursStored);
            if (answer == widgets::Answer::No)
                merged = records::merge(input, records::Prefer::Theirs);
        }
        if (answer == widgets::Answer::Cancel)
            return false;
        const bool deleted = !met.stored() && answer == widgets::Answer::No;
        if (deleted || merged.text == met.stored())
            return true;
        v_.Rec_Dossier() = merged.text;
        auto again = written([&] { v_.Rec_Dossier.DBWriteOver(met.stored()); });
        if (!again) {
            // Who did not mean to save has nothing to be told of it.
            if (!save.untouched)
                tell(met.stored()
                         ? " a enregistré ce dossier entre-temps ; " + joined(merged, answer)
                         : " a supprimé ce dossier entre-temps ; il est de nouveau "
                           "enregistré, tel qu'il était à l'écran.",
                     met.maker());
            return true;
        }
        met = *std::move(again);
    }
}

widgets::Answer SaveMerge::ask(const std::vector<records::Point>& conflicts,
                               const records::ChangedMeanwhile::Maker& maker,
                               bool hoursStored) const {
    const PointTexts texts(v_, Conv_Date_);
    std::vector<std::string> points;
    points.reserve(conflicts.size());
    for (const records::Point& point : conflicts)
        points.push_back(texts.conflict(point, maker.oneOf()));
    return world_.messageBox(
        {.title = rules::MessageTitle,
         .text = maker.names() +
                 " a enregistré ce dossier entre-temps, et l'a changé là où vous l'avez changé :"
                 "\r\n" +
                 text::Listed(points, MostTold, "\r\n", "\r\n") +
                 "\r\nVoulez-vous garder vos saisies sur ces points (Oui), celles de l'autre poste "
                 "(Non), ou revenir au dossier (Annuler) ?",
         .icon = widgets::Icon::Question,
         .buttons = widgets::Buttons::YesNoCancel,
         .detail = savedAt(maker) + (hoursStored ? " " + std::string(rules::HoursStay) : ""),
         .preset = widgets::Answer::Cancel});
}

// Nothing is stored any more that the save could be put together with.
widgets::Answer SaveMerge::askDeleted(const records::ChangedMeanwhile::Maker& maker) const {
    return world_.messageBox(
        {.title = rules::MessageTitle,
         .text = maker.name() + " a supprimé ce dossier entre-temps.\r\nVoulez-vous l'enregistrer "
                                "tel qu'il est à l'écran (Oui), le laisser supprimé (Non), ou "
                                "revenir au dossier (Annuler) ?",
         .icon = widgets::Icon::Question,
         .buttons = widgets::Buttons::YesNoCancel,
         .detail = savedAt(maker),
         .preset = widgets::Answer::Cancel});
}

void SaveMerge::tell(const std::string& made, const records::ChangedMeanwhile::Maker& maker) {
    if (widgets::Form* const form = control_.form())
        world_.tell(*form, {.text = maker.names() + made, .when = maker.when});
}

std::string SaveMerge::joined(const records::Merged& merged, widgets::Answer answer) const {
    if (merged.theirs.empty() && !merged.conflicts.empty())
        return answer == widgets::Answer::No ? "ses saisies sont gardées sur ces points."
                                             : "les vôtres sont gardées sur ces points.";
    const PointTexts texts(v_, Conv_Date_);
    std::vector<std::string> changes;
    changes.reserve(merged.theirs.size());
    for (const records::Point& point : merged.theirs)
        changes.push_back(texts.change(point));
    return "vos saisies et les siennes sont réunies" +
           (changes.empty() ? "."
                            : ". Viennent de l'autre poste : " +
                                  text::Listed(changes, MostTold, " ; ", " ; ") + ".");
}

} // namespace vorandine::control
