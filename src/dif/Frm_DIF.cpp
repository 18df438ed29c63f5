// Listing, typing and storing of the hours charged.
#include "dif/Frm_DIF.h"

#include "dif/Columns.h"
#include "dif/Employers.h"
#include "dif/Hours.h"
#include "ports/Query.h"
#include "records/StoredFiles.h"
#include "rules/Messages.h"
#include "rules/Numbers.h"
#include "rules/StatementByStatement.h"
#include "text/Characters.h"
#include "widgets/Inventory.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace vorandine::dif {
namespace {

namespace contract = records::contract;
using text::Decimal;
using text::Fixed4;

constexpr std::int16_t ChargeDigits = 10;
// A ledger's columns hold no more: a longer number would shut the ledger for good.
constexpr std::size_t MostDigits = 7;

// The hours typed, as they will be stored: a thousandth of an hour is none. Nothing for a text that
// is no number.
std::optional<Decimal> rounded(const std::string& typed) {
    const std::optional<Decimal> hours = Decimal::parse(typed);
    return hours ? Decimal::parse(hours->toText(Decimals)) : hours;
}

// Why these hours cannot be charged; null if they can.
const char* refusal(const std::optional<Decimal>& hours) {
    if (!hours)
        return "La consommation doit être un nombre, par exemple 7,50.";
    if (hours->negative() || hours->zero())
        return "La consommation doit être supérieure à 0.";
    if (hours->floorText().size() > MostDigits)
        return "La consommation a trop de chiffres avant la virgule : 7 au plus.";
    return nullptr;
}

std::string named(const std::string& employer, Fixed4 hours) {
    return employer + " (" + plainHours(hours) + ")";
}

void enumerate(std::string& list, const std::string& item) {
    list += (list.empty() ? "" : ", ") + item;
}

} // namespace

Frm_DIF::Frm_DIF(ports::Variables& variables, Ledgers& ledgers, widgets::World& world)
    : ButtonClosedForm("FORMDIF"), v_(variables), ledgers_(ledgers), world_(world) {
    furnish();
    Lst_Dif.DblClick = [this] { Lst_Dif_DblClick(); };
    Txt_Conso.Change = [this] { tellShare(); };
    Cmd_OKDif.Click = [this] { Cmd_OkDif_Click(); };
    Cmd_AnnuleDif.Click = [this] { closeLine(); };
    Cmd_RetourDif.Click = [this] { Cmd_RetourDif_Click(); };
}

void Frm_DIF::furnish() {
    using enum widgets::Trait;
    identify("Frm_DIF");
    Caption("Prise en compte au titre du D.I.F.");
    place({0, 0, 8355, 4830});
    // clang-format off
    widgets::furnish(*this, {
        {Etq_AidantDif, {.name = "Etq_AidantDif", .caption = "Aidant :", .order = 6, .place = {240, 120, 630, 195}}},
        {Etq_CodeDif, {.name = "Etq_CodeDif", .order = 7, .place = {960, 120, 1095, 255}}},
        {Etq_NomDif, {.name = "Etq_NomDif", .order = 8, .place = {2160, 120, 5955, 255}}},
        {Label2, {.name = "Label2", .caption = "Employeur", .order = 9, .place = {1920, 480, 855, 195}}},
        {Label3, {.name = "Label3", .caption = "Droits en heures", .order = 10, .place = {4980, 480, 1335, 195}}},
        {Label4, {.name = "Label4", .caption = "Consommation", .order = 11, .place = {6420, 480, 1215, 195}}},
        {Lst_Dif, {.name = "Lst_Dif", .traits = FixedPitch, .order = 5, .place = {240, 720, 7875, 1950}}},
        {Lst_CodeEmpl, {.name = "Lst_CodeEmpl", .traits = Hidden, .order = 12, .place = {7200, 720, 375, 1035}}},
        {Etq_RepartitionDif, {.name = "Etq_RepartitionDif", .order = 13, .place = {240, 2760, 7875, 705}}},
        {Txt_Employeur, {.name = "Txt_Employeur", .traits = FixedPitch, .order = 4, .place = {240, 3630, 6060, 330}}},
        {Txt_Conso, {.name = "Txt_Conso", .traits = FixedPitch, .order = 3, .place = {6360, 3630, 1755, 330}}},
        {Cmd_OKDif, {.name = "Cmd_OKDif", .caption = "Ok", .mnemonic = 'K', .order = 1, .place = {4980, 4230, 975, 375}}},
        {Cmd_AnnuleDif, {.name = "Cmd_AnnuleDif", .caption = "Annuler", .mnemonic = 'N', .order = 2, .place = {6060, 4230, 975, 375}}},
        {Cmd_RetourDif, {.name = "Cmd_RetourDif", .caption = "Retour", .mnemonic = 'R', .order = 0, .place = {7140, 4230, 975, 375}}},
    });
    // clang-format on
    // Under the heads.
    const auto& [employer, balance, hours] = ChargeLine::Columns;
    const auto shown = [](const Piece& piece, int left, int right, bool figure) {
        return widgets::ListColumn{.first = piece.column,
                                   .length = piece.width,
                                   .left = left,
                                   .right = right,
                                   .figure = figure};
    };
    Lst_Dif.columns({shown(employer, 60, 5010, false), shown(balance, 5010, 5940, true),
                     shown(hours, 6180, 7260, true)});
    Cmd_AnnuleDif.cancelRank(2);
    Cmd_RetourDif.cancelRank(3);
}

void Frm_DIF::Init() {
    Remplir_Liste();
    Cmd_AnnuleDif.Enabled(false);
    tellShare();
}

void Frm_DIF::Remplir_Liste() {
    rules::StatementByStatement tries;
    records::DBARecord rows;
    tries([&] {
        rows = ports::select(*v_.TheDatabase,
                             ports::Query(contract::File)
                                 .with(contract::LeftOut, "=", "")
                                 .with(records::Key, "=", Etq_CodeDif.Caption() + "]")
                                 .with(contract::FirstDay, "<=", W_DateFormation)
                                 .with(contract::LastDay, ">=", W_DateFormation)
                                 .orEqual("")
                                 .by(contract::EmployerName)
                                 .by(contract::EmployerFirstName),
                             {records::Key, contract::Employer});
    });
    const int count = rows.DCount();
    for (int i = 1; i <= count; ++i)
        tries([&] { addEmployer(std::as_const(rows)(i, 2)); });
}

// An employer without a ledger, or without a balance, or with one too wide for its columns, can be
// charged nothing: reading or showing it throws, or there is nothing to show.
void Frm_DIF::addEmployer(const std::string& stored) {
    const std::string code = employerCode(stored);
    readLedger(v_, Etq_CodeDif.Caption() + code);
    const records::DBARecord& ledger = v_.Rec_DIFAIDANT;
    const std::string balance =
        ledger(records::ledger::Balance, ledger.DCount(records::ledger::Balance));
    if (balance.empty())
        return;
    ledgers_.shown(Etq_CodeDif.Caption() + code);
    Lst_Dif.AddItem(
        ChargeLine::head(employerNameOrCode(v_, code),
                         figureText(Decimal::require(balance).shifted(-HundredthsPlaces))));
    Lst_CodeEmpl.AddItem(code);
}

bool Frm_DIF::lineOpen() const {
    return !Lst_Dif.Enabled();
}

void Frm_DIF::enable(bool lineOpen) {
    Lst_Dif.Enabled(!lineOpen);
    Txt_Employeur.Enabled(false);
    Txt_Conso.Enabled(lineOpen);
    Cmd_RetourDif.Enabled(!lineOpen);
    Cmd_AnnuleDif.Enabled(lineOpen);
}

void Frm_DIF::Lst_Dif_DblClick() {
    const int line = Lst_Dif.ListIndex();
    if (line == -1)
        return;
    Lst_CodeEmpl.ListIndex(line);
    enable(true);
    const std::string text = Lst_Dif.List(line);
    Txt_Employeur.Text(ChargeLine::headOf(text));
    Txt_Conso.Text(ChargeLine::touched(text) ? ChargeLine::parse(text).hours
                                             : text::Trim(W_NbreHre));
    tellShare();
}

void Frm_DIF::closeLine() {
    enable(false);
    Txt_Employeur.Text("");
    Txt_Conso.Text("");
    tellShare();
}

void Frm_DIF::confirmLine() {
    const std::string head = Txt_Employeur.Text();
    std::string line = ChargeLine::cleared(head);
    if (!Txt_Conso.empty()) {
        const std::optional<Decimal> hours = rounded(Txt_Conso.Text());
        if (const char* const message = refusal(hours)) {
            rules::warn(world_, message);
            Txt_Conso.SetFocus();
            return;
        }
        line = head + rules::Format_Numerique(*hours, ChargeDigits, Decimals, false);
    }
    Lst_Dif.List(Lst_Dif.ListIndex(), std::move(line));
    closeLine();
}

void Frm_DIF::Cmd_OkDif_Click() {
    if (lineOpen())
        return confirmLine();
    if (!Txt_Employeur.empty())
        return closeLine();
    Test_Zero();
    if (W_TotalConso_ != Fixed4() && !MAJ())
        return;
    endWithAnswer();
}

void Frm_DIF::Cmd_RetourDif_Click() {
    Test_Zero();
    if (W_TotalConso_ != Fixed4()) {
        const widgets::Answer answer =
            world_.messageBox({.title = rules::MessageTitle,
                               .text = "Voulez-vous enregistrer les modifications ?",
                               .icon = widgets::Icon::Question,
                               .buttons = widgets::Buttons::YesNo,
                               .detail = {}});
        if (answer == widgets::Answer::Yes && !MAJ())
            return;
    }
    endWithAnswer();
}

void Frm_DIF::endWithAnswer() {
    v_.W_DifRetenu = retained() ? "OUI" : "NON";
    end();
}

void Frm_DIF::Test_Zero() {
    W_TotalConso_ = Fixed4();
    for (int i = 0; i < Lst_Dif.ListCount(); ++i)
        W_TotalConso_ += hoursOr0(ChargeLine::parse(Lst_Dif.List(i)).hours);
}

bool Frm_DIF::MAJ() {
    const ChargedTraining training{.date = W_DateFormation, .code = W_CodeForm};
    std::vector<int> lines;
    std::vector<Ledgers::Charge> charges;
    for (int i = 0; i < Lst_Dif.ListCount(); ++i) {
        const std::string hours = ChargeLine::parse(Lst_Dif.List(i)).hours;
        if (hours.empty())
            continue;
        lines.push_back(i);
        charges.push_back(
            {.key = Etq_CodeDif.Caption() + Lst_CodeEmpl.List(i), .hours = hoursOr0(hours)});
    }
    const Charged charged = ledgers_.charge(Etq_CodeDif.Caption(), charges, training);
    const std::vector<Stored>& outcomes = charged.outcomes;
    // What this form itself has charged did not stand there before.
    if (stored_ == Fixed4())
        standing_ = charged.standing;
    others_ += (others_.empty() || charged.others.empty() ? "" : " ") + charged.others;
    std::string stored;
    std::string left;
    for (std::size_t k = 0; k < lines.size(); ++k) {
        const Fixed4 hours = charges[k].hours;
        const std::string line = named(ChargeLine::parse(Lst_Dif.List(lines[k])).employer, hours);
        if (outcomes[k] != Stored::Done) {
            enumerate(left, line);
            continue;
        }
        stored_ += hours;
        enumerate(stored, line);
        takeOff(lines[k], hours);
    }
    if (left.empty())
        return true;
    tellShare();
    rules::warn(world_, "Des heures n'ont pas pu être enregistrées : " + left + "." +
                            (stored.empty() ? "" : " Enregistrées : " + stored + ".") +
                            " Réessayez par « Ok », ou quittez par « Retour ».");
    return false;
}

// What is stored leaves the list, so that confirming again charges nobody twice; the balance that
// is left shows on all lines of the employer.
void Frm_DIF::takeOff(int line, Fixed4 hours) {
    Lst_Dif.List(line, ChargeLine::cleared(ChargeLine::headOf(Lst_Dif.List(line))));
    rules::StatementByStatement tries;
    for (int i = 0; i < Lst_Dif.ListCount(); ++i) {
        if (Lst_CodeEmpl.List(i) != Lst_CodeEmpl.List(line))
            continue;
        tries([&] {
            const std::string shown = Lst_Dif.List(i);
            const Fixed4 balance = hoursOr0(ChargeLine::parse(shown).balance) - hours;
            Lst_Dif.List(i, ChargeLine::withBalance(shown, figureText(balance.toDecimal())));
        });
    }
}

// The line being typed counts as it stands, as soon as it could be confirmed. Two contracts of one
// employer share its ledger.
void Frm_DIF::tellShare() {
    struct Account {
        std::string code;
        std::string employer;
        Fixed4 balance;
        Fixed4 hours;
    };
    std::vector<Account> accounts;
    Fixed4 charged = stored_;
    rules::StatementByStatement tries;
    tries([&] {
        for (int i = 0; i < Lst_Dif.ListCount(); ++i) {
            const ChargeLine line = ChargeLine::parse(Lst_Dif.List(i));
            const bool open = lineOpen() && i == Lst_Dif.ListIndex();
            const std::optional<Decimal> typed = rounded(open ? Txt_Conso.Text() : line.hours);
            const Fixed4 hours = refusal(typed) == nullptr ? Fixed4(*typed) : Fixed4();
            charged += hours;
            const std::string code = Lst_CodeEmpl.List(i);
            auto account = std::find_if(accounts.begin(), accounts.end(),
                                        [&](const Account& one) { return one.code == code; });
            if (account == accounts.end())
                account = accounts.insert(account, {.code = code,
                                                    .employer = line.employer,
                                                    .balance = hoursOr0(line.balance),
                                                    .hours = Fixed4()});
            account->hours += hours;
        }
        std::string below;
        for (const Account& one : accounts)
            if (one.hours > Fixed4() && one.balance < one.hours)
                enumerate(below, named(one.employer, one.balance - one.hours));
        // A field of hours takes negative ones too: there is then nothing to charge.
        const Fixed4 length = std::max(hoursOr0(W_NbreHre), Fixed4());
        std::string text = plainHours(charged) + " h imputées sur " + plainHours(length) + " h, ";
        text += charged > length ? "soit " + plainHours(charged - length) + " h de trop."
                                 : "il en reste " + plainHours(length - charged) + " h.";
        if (!below.empty())
            text += " Solde au-dessous de zéro : " + below + ".";
        Etq_RepartitionDif.Caption(text);
    });
}

} // namespace vorandine::dif
