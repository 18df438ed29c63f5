// The states of the frame, and what its buttons do.
#include "dif/DetailArea.h"

#include "dif/Columns.h"
#include "dif/Hours.h"
#include "rules/FieldRules.h"
#include "rules/LongTask.h"
#include "rules/Messages.h"
#include "rules/StatementByStatement.h"
#include "text/Characters.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace vorandine::dif {
namespace {

// What is no number was stored so, in the field that is not the user's to change, or has not been
// touched: it stays.
std::string inFixedForm(const std::string& figure) {
    const std::optional<text::Decimal> value = text::Decimal::parse(figure);
    return value ? figureText(*value) : figure;
}

bool isBlank(const std::string& text) {
    return text::Trim(text).empty();
}

// A line as a sentence, for whoever has to type it again.
std::string told(const DetailLine& line) {
    std::string text = line.date;
    if (!line.rights.empty())
        text += ", droits " + line.rights;
    if (!isBlank(line.label))
        text += ", " + text::Trim(line.label);
    if (!line.hours.empty())
        text += ", heures " + line.hours;
    return text + ".";
}

} // namespace

DetailArea::DetailArea(DetailWidgets& widgets, EmployerWidgets& employers,
                       const DetailCollaborators& with)
    : w_(widgets), e_(employers), with_(with) {
    rules::dateRule(w_.Txt_DateDif, with_.Conv_Date, with_.world,
                    "Erreur de saisie dans la date, veuillez la ressaisir.");
    rules::difNumberRule(w_.Txt_DroitDif, with_.world);
    rules::difNumberRule(w_.Txt_HreDif, with_.world);
    e_.Lst_DifEmpl.Click = [this] { close(); };
    e_.Lst_DifEmpl.DblClick = [this] { Lst_DifEmpl_DblClick(); };
    w_.Lst_DetailDif.DblClick = [this] { Lst_DetailDif_DblClick(); };
    w_.Cmd_AjoutDif.Click = [this] { Cmd_AjoutDif_Click(); };
    w_.Cmd_OkDif.Click = [this] { Cmd_OkDif_Click(); };
    w_.Cmd_SupprDif.Click = [this] { Cmd_SupprDif_Click(); };
    w_.Cmd_AnnuleDif.Click = [this] { Cmd_AnnuleDif_Click(); };
}

void DetailArea::close() {
    W_CleDif_ = "";
    with_.notice.ofDetail("");
    w_.Lst_DetailDif.Clear();
    w_.Lst_CodeFormDif.Clear();
    set(State::Closed);
}

void DetailArea::set(State state) {
    const bool employerOpen = state == State::EmployerOpen;
    const bool creating = state == State::Creating;
    const bool modifying = state == State::Modifying;
    const bool lineOpen = creating || modifying;
    const bool rightsLine = isBlank(w_.Txt_FormDif.Text());
    w_.Cdr_DetailDif.Enabled(state != State::Closed);
    w_.Lst_DetailDif.Enabled(employerOpen);
    w_.Txt_DateDif.Enabled(creating);
    w_.Txt_DroitDif.Enabled(creating || (modifying && rightsLine));
    w_.Txt_FormDif.Enabled(false);
    w_.Txt_HreDif.Enabled(modifying && !rightsLine);
    w_.Txt_SoldeDif.Enabled(false);
    w_.Cmd_AjoutDif.Enabled(employerOpen);
    w_.Cmd_SupprDif.Enabled(modifying);
    w_.Cmd_OkDif.Enabled(lineOpen);
    w_.Cmd_AnnuleDif.Enabled(lineOpen);
    w_.Cmd_CalculDif.Enabled(employerOpen);
    if (lineOpen)
        with_.lock.openWaysOut(false);
}

void DetailArea::Lst_DifEmpl_DblClick() {
    const int line = e_.Lst_DifEmpl.ListIndex();
    if (line == -1)
        return;
    rules::LongTask task(with_.control, with_.world);
    w_.Lst_DetailDif.Clear();
    w_.Lst_CodeFormDif.Clear();
    e_.Lst_CodeEmplDif.ListIndex(line);
    e_.Lst_ContratDif.ListIndex(line);
    set(State::EmployerOpen);
    showLedger();
    task.letEventsThrough();
}

// A ledger that cannot be shown whole must not be rewritten from what is shown.
void DetailArea::showLedger() {
    const std::string key = with_.caregiver.Etq_CodeAidant.Caption() +
                            e_.Lst_CodeEmplDif.List(e_.Lst_DifEmpl.ListIndex());
    W_CleDif_ = key;
    if (const std::string last = std::exchange(lastKey_, key); !last.empty() && last != key)
        with_.notice.ofOthers("");
    shown_ = records::DBARecord();
    with_.notice.ofDetail("");
    const auto keep = [this](const std::string& why) {
        W_CleDif_ = "";
        with_.notice.ofDetail(why);
    };
    ports::Variables& v = with_.variables;
    bool found = false;
    rules::StatementByStatement tries;
    if (!tries([&] { found = readLedger(v, key); }))
        keep("Le détail n'a pas pu être lu. Double-cliquez à nouveau sur l'employeur.");
    if (!found)
        return;
    const records::DBARecord& record = v.Rec_DIFAIDANT;
    shown_() = record();
    with_.ledgers.shown(key);
    const int lines = record.DCount(records::ledger::Date);
    if (lines > widgets::MaxLines)
        keep("Le détail compte " + std::to_string(lines) +
             " lignes : il ne peut pas être modifié ici.");
    const records::TrainingLabels labels(v.F_FORMPRO);
    for (int i = 1; i <= std::min(lines, widgets::MaxLines); ++i) {
        ShownLine line = shownLine(record, i, with_.Conv_Date, labels);
        w_.Lst_DetailDif.AddItem(std::move(line.text));
        w_.Lst_CodeFormDif.AddItem(std::move(line.code));
    }
}

void DetailArea::Lst_DetailDif_DblClick() {
    const int line = w_.Lst_DetailDif.ListIndex();
    if (line == -1)
        return;
    W_CreationDif_ = 0;
    const DetailLine pieces = DetailLine::parse(w_.Lst_DetailDif.List(line));
    w_.Txt_DateDif.Text(pieces.date);
    w_.Txt_DroitDif.Text(pieces.rights);
    w_.Txt_FormDif.Text(pieces.label);
    w_.Txt_HreDif.Text(pieces.hours);
    w_.Txt_SoldeDif.Text(pieces.balance);
    set(State::Modifying);
}

void DetailArea::Cmd_AjoutDif_Click() {
    W_CreationDif_ = 1;
    set(State::Creating);
}

void DetailArea::Effacer_Donnees_Dif() {
    for (widgets::TextBox* const field :
         {&w_.Txt_DateDif, &w_.Txt_DroitDif, &w_.Txt_FormDif, &w_.Txt_HreDif, &w_.Txt_SoldeDif})
        field->Text("");
    set(State::EmployerOpen);
    with_.lock.openWaysOut(true);
}

bool DetailArea::check() {
    const auto refuse = [&](const char* message, widgets::TextBox& field) {
        rules::warn(with_.world, message);
        field.SetFocus();
        return false;
    };
    if (w_.Txt_DateDif.Text().empty())
        return refuse("La date est obligatoire.", w_.Txt_DateDif);
    const bool rightsLine = isBlank(w_.Txt_FormDif.Text());
    if (rightsLine && w_.Txt_DroitDif.Text().empty())
        return refuse("Les droits sont obligatoires.", w_.Txt_DroitDif);
    if (!rightsLine && w_.Txt_HreDif.Text().empty())
        return refuse("Les heures de formation sont obligatoires.", w_.Txt_HreDif);
    return true;
}

DetailLine DetailArea::typed() const {
    return {.date = w_.Txt_DateDif.Text(),
            .rights = w_.Txt_DroitDif.Text(),
            .label = w_.Txt_FormDif.Text(),
            .hours = w_.Txt_HreDif.Text(),
            .balance = {}};
}

void DetailArea::Cmd_OkDif_Click() {
    if (!check())
        return;
    rules::LongTask task(with_.control, with_.world);
    DetailLine pieces = typed();
    const std::string lost = "À ressaisir : " + told(pieces);
    pieces.rights = inFixedForm(pieces.rights);
    pieces.hours = inFixedForm(pieces.hours);
    std::string line = pieces.toText();
    LineChange change{
        .kind = LineChange::Kind::Added, .line = 0, .typed = {line, ""}, .date = pieces.date};
    if (W_CreationDif_ == 1) {
        Recherche_Place();
        w_.Lst_DetailDif.AddItem(std::move(line), W_PlaceDif_);
        w_.Lst_CodeFormDif.AddItem("", W_PlaceDif_);
    } else {
        const int current = w_.Lst_DetailDif.ListIndex();
        // Where it is out of its columns, the fields hold pieces cut at the wrong places.
        DetailLine::requireInColumns(DetailLine::withBalance(w_.Lst_DetailDif.List(current), ""));
        change.kind = LineChange::Kind::Changed;
        change.line = static_cast<std::size_t>(current);
        change.typed.code = w_.Lst_CodeFormDif.List(current);
        w_.Lst_DetailDif.List(current, std::move(line));
    }
    finish(change, lost);
    task.letEventsThrough();
}

void DetailArea::Cmd_SupprDif_Click() {
    const int line = w_.Lst_DetailDif.ListIndex();
    if (line == -1 ||
        !rules::confirm(with_.world, "Etes-vous sûr de vouloir supprimer cette ligne ?"))
        return;
    const DetailLine pieces = DetailLine::parse(w_.Lst_DetailDif.List(line));
    w_.Lst_CodeFormDif.RemoveItem(line);
    w_.Lst_DetailDif.RemoveItem(line);
    rules::LongTask task(with_.control, with_.world);
    finish({.kind = LineChange::Kind::Deleted,
            .line = static_cast<std::size_t>(line),
            .typed = {},
            .date = {}},
           "À supprimer : " + told(pieces));
    task.letEventsThrough();
}

void DetailArea::Cmd_AnnuleDif_Click() {
    if (W_CreationDif_ == 0 ||
        rules::confirm(with_.world, "Etes-vous sûr de vouloir quitter cette création ?"))
        Effacer_Donnees_Dif();
}

void DetailArea::finish(const LineChange& change, const std::string& lost) {
    int W_LigneEmpl = e_.Lst_DifEmpl.ListIndex();
    const std::string employer = e_.Lst_CodeEmplDif.List(W_LigneEmpl);
    Effacer_Donnees_Dif();
    const auto reopen = [&] {
        e_.Lst_DifEmpl.ListIndex(W_LigneEmpl);
        Lst_DifEmpl_DblClick();
    };
    try {
        Calcul_MV_Dif();
    } catch (...) {
        with_.notice.tell(Stored::NotWritten, lost);
        reopen();
        throw;
    }
    std::string others;
    const Stored outcome = with_.ledgers.change(W_CleDif_, shown_, lines(), change, others);
    W_CleDif_ = "";
    with_.notice.tell(outcome, lost, others);
    try {
        with_.employers.Select_DifAidant();
    } catch (...) {
        close();
        throw;
    }
    // Contracts that came or went meanwhile have moved the line.
    if (e_.Lst_CodeEmplDif.List(W_LigneEmpl) != employer)
        W_LigneEmpl = lineOf(employer);
    if (W_LigneEmpl == -1)
        close();
    else
        reopen();
}

// The first line of an employer in the list; -1 if it has none.
int DetailArea::lineOf(const std::string& employer) const {
    for (int line = 0; line < e_.Lst_CodeEmplDif.ListCount(); ++line)
        if (e_.Lst_CodeEmplDif.List(line) == employer)
            return line;
    return -1;
}

std::vector<ShownLine> DetailArea::lines() const {
    const int count = w_.Lst_DetailDif.ListCount();
    std::vector<ShownLine> lines;
    lines.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        lines.push_back({.text = w_.Lst_DetailDif.List(i), .code = w_.Lst_CodeFormDif.List(i)});
    return lines;
}

void DetailArea::Recherche_Place() {
    W_PlaceDif_ =
        static_cast<std::int16_t>(placeOf(w_.Txt_DateDif.Text(), lines(), with_.Conv_Date));
}

void DetailArea::Calcul_MV_Dif() {
    std::vector<ShownLine> recomputed = lines();
    recompute(recomputed);
    for (std::size_t i = 0; i < recomputed.size(); ++i)
        w_.Lst_DetailDif.List(static_cast<int>(i), std::move(recomputed[i].text));
}

void DetailArea::Maj_DifAidant() {
    const Stored outcome = with_.ledgers.rewrite(W_CleDif_, lines());
    W_CleDif_ = "";
    with_.notice.tell(outcome, "Rouvrez le détail, puis recommencez.");
    rules::StatementByStatement tries;
    tries([&] { with_.employers.Select_DifAidant(); });
}

} // namespace vorandine::dif
