// The screen of the parameters control, and what its buttons do.
#include "components/Parameters.h"

#include "components/ParameterTable.h"
#include "records/StoredFiles.h"
#include "text/Characters.h"
#include "text/Error.h"
#include "text/Search.h"
#include "widgets/Form.h"
#include "widgets/Inventory.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vorandine::components {
namespace {

struct Change {
    bool added; // else the label was changed
    Parameter entry;
    std::string was; // the label that it was changed from

    [[nodiscard]] std::optional<Refusal> make(ParameterTable& table) const {
        return added ? table.add(entry) : table.change(entry, was);
    }
};

// A change that no longer goes, and why.
struct Refused {
    Parameter entry;
    Refusal refusal;
};

class Parameters : public widgets::UserControl, public ports::ParametersControl {
  public:
    explicit Parameters(ports::ParametersHost& host);

    [[nodiscard]] widgets::UserControl& surface() noexcept override { return *this; }
    void Init_Param() override;

  private:
    widgets::Label Etq_TitreParam;
    widgets::Label Etq_RechercheParam;
    widgets::TextBox Txt_RechercheParam;
    widgets::ListBox Lst_Param;
    widgets::Label Etq_CodeParam;
    widgets::TextBox Txt_CodeParam;
    widgets::Label Etq_LibelleParam;
    widgets::TextBox Txt_LibelleParam;
    widgets::CommandButton Cmd_AjouterParam;
    widgets::CommandButton Cmd_ModifierParam;
    widgets::CommandButton Cmd_RetourParam;

    ports::ParametersHost& host_;
    ParameterTable table_;         // with the changes made in it
    std::vector<Change> changes_;  // in the order made, not stored yet
    std::vector<Parameter> shown_; // the lines of Lst_Param
    bool storingFailed_ = false;

    [[nodiscard]] records::DBARecord read() const;
    void fill();
    void showLine();
    void make(bool added);
    void refuse(const Refusal& refusal);
    void leave();
    bool store();
    [[nodiscard]] std::optional<Refused> repeat(ParameterTable& stored) const;
    void lookAgain(ParameterTable stored, Refused refused);
};

Parameters::Parameters(ports::ParametersHost& host) : host_(host) {
    using enum widgets::Trait;
    place({120, 120, 6975, 5010});
    // clang-format off
    widgets::furnish(*this, {
        {Etq_TitreParam, {.name = "Etq_TitreParam", .order = 7, .place = {0, 0, 6975, 195}}},
        {Etq_RechercheParam, {.name = "Etq_RechercheParam", .caption = "Rechercher", .order = 8, .place = {0, 360, 1095, 195}}},
        {Txt_RechercheParam, {.name = "Txt_RechercheParam", .order = 0, .place = {1200, 360, 5775, 288}}},
        {Lst_Param, {.name = "Lst_Param", .traits = FixedPitch, .order = 1, .place = {0, 780, 6975, 2790}}},
        {Etq_CodeParam, {.name = "Etq_CodeParam", .caption = "Code", .order = 9, .place = {0, 3720, 735, 195}}},
        {Etq_LibelleParam, {.name = "Etq_LibelleParam", .caption = "Libellé", .order = 10, .place = {960, 3720, 735, 195}}},
        {Txt_CodeParam, {.name = "Txt_CodeParam", .traits = FixedPitch, .order = 2, .place = {0, 3960, 855, 330}}},
        {Txt_LibelleParam, {.name = "Txt_LibelleParam", .traits = FixedPitch, .order = 3, .place = {960, 3960, 6015, 330}}},
        {Cmd_AjouterParam, {.name = "Cmd_AjouterParam", .caption = "Ajouter", .mnemonic = 'A', .order = 4, .place = {0, 4590, 1095, 375}}},
        {Cmd_ModifierParam, {.name = "Cmd_ModifierParam", .caption = "Modifier", .mnemonic = 'M', .order = 5, .place = {1200, 4590, 1095, 375}}},
        {Cmd_RetourParam, {.name = "Cmd_RetourParam", .caption = "Retour", .mnemonic = 'R', .order = 6, .place = {5880, 4590, 1095, 375}}},
    });
    // clang-format on
    Cmd_RetourParam.cancelRank(1);

    Txt_RechercheParam.Change = [this] { fill(); };
    Lst_Param.Click = [this] { showLine(); };
    Lst_Param.DblClick = [this] { Txt_LibelleParam.SetFocus(); };
    Cmd_AjouterParam.Click = [this] { make(true); };
    Cmd_ModifierParam.Click = [this] { make(false); };
    Cmd_RetourParam.Click = [this] { leave(); };
}

void Parameters::Init_Param() {
    host_.AdapteExe(form()->Caption());
    Etq_TitreParam.Caption(Titre_Param);
    Lst_Param.hint(Titre_Param);
    const bool writes = DroitsParam->Droits("PARAMETRES")->Niveau() == ports::WritingLevel;
    Txt_CodeParam.Enabled(writes);
    Txt_LibelleParam.Enabled(writes);
    Cmd_AjouterParam.Visible(writes);
    Cmd_ModifierParam.Visible(writes);
    table_ = ParameterTable(read());
    fill();
}

// A table that is not there yet is an empty one.
records::DBARecord Parameters::read() const {
    const auto file = TheDatabase->OpenFile(records::table::File);
    std::optional<records::DBARecord> found = ports::find(*file, Table_Param);
    return found ? *std::move(found) : file->NewRecord(Table_Param);
}

void Parameters::fill() {
    const text::Search search(Txt_RechercheParam.Text());
    Lst_Param.Clear();
    shown_.clear();
    for (Parameter& entry : table_.entries()) {
        if (!search.finds(text::Search::folded({entry.code, entry.label})))
            continue;
        Lst_Param.AddItem(entry.code + " " + entry.label);
        shown_.push_back(std::move(entry));
    }
}

void Parameters::showLine() {
    if (Lst_Param.ListIndex() < 0)
        return;
    const Parameter& entry = shown_[static_cast<std::size_t>(Lst_Param.ListIndex())];
    Txt_CodeParam.Text(entry.code);
    Txt_LibelleParam.Text(entry.label);
}

// Afterwards the line shows, selected, whatever was searched for, and the fields are free.
void Parameters::make(bool added) {
    Change change{.added = added,
                  .entry = {.code = text::Trim(Txt_CodeParam.Text()),
                            .label = text::Trim(Txt_LibelleParam.Text())},
                  .was = {}};
    change.was = table_.labelOf(change.entry.code);
    const bool asItIs = !added && table_.holds(change.entry);
    if (const auto refusal = change.make(table_)) {
        refuse(*refusal);
        return;
    }
    if (!asItIs)
        changes_.push_back(change);
    Txt_RechercheParam.Text("");
    fill();
    const auto line = std::find_if(shown_.begin(), shown_.end(), [&](const Parameter& entry) {
        return entry.code == change.entry.code;
    });
    Lst_Param.ListIndex(static_cast<int>(line - shown_.begin()));
    Txt_CodeParam.Text("");
    Txt_LibelleParam.Text("");
    if (added)
        Txt_CodeParam.SetFocus();
    else
        Lst_Param.SetFocus();
}

void Parameters::refuse(const Refusal& refusal) {
    host_.refuse(refusal.text);
    (refusal.of == Refusal::Of::Code ? Txt_CodeParam : Txt_LibelleParam).SetFocus();
}

void Parameters::leave() {
    if (!changes_.empty() && !store())
        return;
    Sortie_Param = true;
    form()->Unload();
}

// False where the user must look again.
bool Parameters::store() {
    ParameterTable stored;
    std::optional<Refused> refused;
    try {
        TheDatabase->atomically([&] {
            stored = ParameterTable(read());
            refused = repeat(stored);
            if (!refused)
                stored.write();
        });
    } catch (const Error&) {
        // Once the host has told of it, there must be a way out while the disk stays full.
        if (!std::exchange(storingFailed_, true) ||
            !host_.confirm("Les modifications n'ont pas pu être enregistrées. "
                           "Voulez-vous quitter sans les enregistrer ?"))
            throw;
    }
    if (!refused)
        return true;
    lookAgain(std::move(stored), *std::move(refused));
    return false;
}

// Makes all changes again in the table as it is now stored. The first one that no longer goes;
// nothing if all go, or where another user has brought about the same.
std::optional<Refused> Parameters::repeat(ParameterTable& stored) const {
    std::optional<Refused> first;
    std::vector<std::string> refused;
    const auto typedLast = [&](const std::string& code) {
        return std::find_if(changes_.rbegin(), changes_.rend(),
                            [&](const Change& change) { return change.entry.code == code; })
            ->entry;
    };
    for (const Change& change : changes_) {
        const bool before =
            std::find(refused.begin(), refused.end(), change.entry.code) != refused.end();
        if (before || stored.holds(change.entry))
            continue;
        if (const auto refusal = change.make(stored)) {
            refused.push_back(change.entry.code);
            if (!first && !stored.holds(typedLast(change.entry.code)))
                first = Refused{change.entry, *refusal};
        }
    }
    return first;
}

// The user gets the change back that no longer goes, and sees the table as it is stored; the other
// changes wait for the next time.
void Parameters::lookAgain(ParameterTable stored, Refused refused) {
    table_ = std::move(stored);
    fill();
    for (const Change& change : changes_)
        if (change.entry.code == refused.entry.code) {
            Txt_CodeParam.Text(change.entry.code);
            Txt_LibelleParam.Text(change.entry.label);
        }
    std::erase_if(changes_,
                  [&](const Change& change) { return change.entry.code == refused.entry.code; });
    refused.refusal.text =
        "Un autre utilisateur vient de modifier la table. " + refused.refusal.text;
    refuse(refused.refusal);
}

} // namespace

std::unique_ptr<ports::ParametersControl> makeParameters(ports::ParametersHost& host) {
    return std::make_unique<Parameters>(host);
}

} // namespace vorandine::components
