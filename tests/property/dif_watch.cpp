// What holds of ledgers, worked out here anew, in whole hundredths.
#include "property/dif_watch.h"

#include "dif/Columns.h"
#include "text/Characters.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

namespace vorandine::control_test {
namespace {

using widgets::Control;
using widgets::ListBox;
using widgets::TabContainer;

constexpr int Lists = 5;

const std::set<std::string> Frame = {"Cdr_DetailDif", "Lst_DetailDif", "Txt_DateDif",
                                     "Txt_DroitDif",  "Txt_FormDif",   "Txt_HreDif",
                                     "Txt_SoldeDif",  "Cmd_AjoutDif",  "Cmd_AnnuleDif",
                                     "Cmd_SupprDif",  "Cmd_OkDif",     "Cmd_CalculDif"};

// In hundredths; the walk stores whole numbers alone. 0 for what is no number.
long hundredths(const std::string& stored) {
    return std::strtol(stored.c_str(), nullptr, 10);
}

// Of a figure on the screen, "7,50".
long shownHundredths(std::string shown) {
    shown = text::Trim(shown);
    const std::size_t comma = shown.find(',');
    if (comma == std::string::npos)
        return 0;
    return hundredths(shown.erase(comma, 1));
}

// Date, rights, hours and training of each line.
std::vector<std::string> linesOf(const records::DBARecord& ledger) {
    std::vector<std::string> lines;
    for (int i = 1; i <= ledger.DCount(1); ++i)
        lines.push_back(ledger(1, i) + '|' + ledger(2, i) + '|' + ledger(3, i) + '|' +
                        ledger(5, i));
    return lines;
}

// Whether one line was added, removed or changed at most, and no other one.
bool oneLineApart(std::vector<std::string> a, std::vector<std::string> b) {
    while (!a.empty() && !b.empty() && a.back() == b.back()) {
        a.pop_back();
        b.pop_back();
    }
    const auto [inA, inB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    return a.end() - inA <= 1 && b.end() - inB <= 1;
}

std::string column(const std::string& line, const dif::Piece& piece) {
    return text::Mid(line, piece.column, piece.width);
}

} // namespace

DifWatch::DifWatch(Desk& desk)
    : below_(desk.engine), rehearsal_(std::make_shared<scenario::RehearsalEngine>(below_)) {
    desk.engine = rehearsal_;
    const auto put = [&](const std::string& file, const std::string& key, const Content& content) {
        desk.put(file, key, content);
    };
    put("ASSOCIATION", "ADM", {{1, {"Aide à domicile en Cévennes"}}});
    put("CIVILAIDE", "P0007", {{2, {"Léa"}}, {3, {"MÉNARD"}}});
    for (const std::string caregiver : {"00000", "00002", "00003"}) {
        put("CONTRAT", caregiver + "-1", {{3, {"ADM"}}, {4, {"A"}}, {7, {"20000101"}}});
        put("CONTRAT", caregiver + "-2",
            {{3, {"P0007"}}, {4, {"B"}}, {7, {"20000101"}}, {8, {"20071231"}}});
        put("CONTRAT", caregiver + "-3", {{3, {"GON"}}, {4, {"C"}}, {7, {"20000101"}}});
        put("CONTRAT", caregiver + "-4", {{3, {"ADM"}}, {4, {"D"}}, {7, {"20060101"}}});
    }
    for (const std::string caregiver : {"00000", "00002"}) {
        put("DIFAIDANT", caregiver + "ADM",
            {{1, {"20040312", "20050601", "20060110"}},
             {2, {"2000", "", "300"}},
             {3, {"", "500", ""}},
             {4, {"2000", "1500", "1800"}},
             {5, {"", "MAN", ""}},
             {6, {"six"}}});
        // A first line of hours, one of a code without label, lists of different lengths.
        put("DIFAIDANT", caregiver + "GON",
            {{1, {"20050101", "20050101", "20050102"}},
             {2, {"", "1000"}},
             {3, {"500", "", "250"}},
             {4, {"0", "1000"}},
             {5, {"HYG", "", "ZZZ"}}});
    }
}

void DifWatch::fail(Failing failing) {
    failing_ = failing;
    rehearsal_->failNothing();
    if (failing == Failing::Writes)
        rehearsal_->failWrites("DIFAIDANT");
    else if (failing == Failing::Reads)
        rehearsal_->failReads("DIFAIDANT");
}

DifState DifWatch::state(host::CaregiverForm& form) {
    const auto on = [&](const char* name) { return at<Control>(form, name).Enabled(); };
    if (!on("Cdr_DetailDif"))
        return DifState::Closed;
    if (!on("Cmd_OkDif"))
        return DifState::EmployerOpen;
    if (on("Cmd_AjoutDif"))
        return DifState::Freed;
    if (on("Txt_DateDif"))
        return DifState::NewLine;
    return on("Txt_DroitDif") ? DifState::RightsLine : DifState::HoursLine;
}

bool DifWatch::lineOpen(DifState state) {
    return state == DifState::NewLine || state == DifState::RightsLine ||
           state == DifState::HoursLine;
}

std::optional<bool> DifWatch::enabled(DifState state, const std::string& name) {
    static const std::map<DifState, std::set<std::string>> Enabled = {
        {DifState::Closed, {}},
        {DifState::EmployerOpen,
         {"Cdr_DetailDif", "Lst_DetailDif", "Cmd_AjoutDif", "Cmd_CalculDif"}},
        {DifState::NewLine,
         {"Cdr_DetailDif", "Txt_DateDif", "Txt_DroitDif", "Cmd_OkDif", "Cmd_AnnuleDif"}},
        {DifState::RightsLine,
         {"Cdr_DetailDif", "Txt_DroitDif", "Cmd_SupprDif", "Cmd_OkDif", "Cmd_AnnuleDif"}},
        {DifState::HoursLine,
         {"Cdr_DetailDif", "Txt_HreDif", "Cmd_SupprDif", "Cmd_OkDif", "Cmd_AnnuleDif"}},
        {DifState::Freed, Frame}};
    if (Frame.count(name) == 0)
        return std::nullopt;
    return Enabled.at(state).count(name) > 0;
}

void DifWatch::before(host::CaregiverForm& form, bool trainingOpen) {
    stateBefore_ = state(form);
    trainingOpenBefore_ = trainingOpen;
    ledgersBefore_ = ledgers();
}

bool DifWatch::after(host::CaregiverForm& form, const std::string& gesture, bool trainingOpen) {
    const DifState now = state(form);
    const bool onTab = at<TabContainer>(form, "Ong_Vorandine").Tab() == 2;
    const bool lineEnded = lineOpen(stateBefore_) && now == DifState::EmployerOpen;
    EXPECT_TRUE(!lineOpen(stateBefore_) || now == stateBefore_ || lineEnded)
        << "an open line was left for no employer";
    EXPECT_TRUE(onTab || !lineOpen(now));
    EXPECT_TRUE(!onTab || now != DifState::Freed) << "arriving on the tab has closed nothing";

    int changed = 0;
    const Ledgers stored = ledgers();
    Ledgers keys = ledgersBefore_;
    keys.insert(stored.begin(), stored.end());
    for (const auto& [key, any] : keys) {
        const auto old = ledgersBefore_.find(key);
        const auto fresh = stored.find(key);
        const std::string oldText = old == ledgersBefore_.end() ? "" : old->second;
        const std::string freshText = fresh == stored.end() ? "" : fresh->second;
        if ((old == ledgersBefore_.end()) == (fresh == stored.end()) && oldText == freshText)
            continue;
        ++changed;
        SCOPED_TRACE("ledger " + key);
        EXPECT_TRUE(lineEnded || (trainingOpenBefore_ && !trainingOpen))
            << "stored without a line that was confirmed";
        EXPECT_EQ(failing_, Failing::Nothing);
        if (lineEnded) {
            EXPECT_EQ(key, at<widgets::Label>(form, "Etq_CodeAidant").Caption() +
                               at<ListBox>(form, "Lst_CodeEmplDif")
                                   .List(at<ListBox>(form, "Lst_DifEmpl").ListIndex()));
        }
        checkStored(freshText, oldText, lineEnded);
    }
    EXPECT_LE(changed, lineEnded ? 1 : 3);
    if (lineEnded && failing_ != Failing::Nothing &&
        (gesture == "Cmd_OkDif" || gesture == "Cmd_SupprDif")) {
        EXPECT_NE(at<widgets::Label>(form, "Etq_MessageDif").Caption(), "");
    }
    checkShown(form);
    return changed > 0;
}

void DifWatch::checkStored(const std::string& text, const std::string& before, bool byTab) const {
    const records::DBARecord ledger = record(text);
    const records::DBARecord old = record(before);
    for (int list = 2; list <= Lists; ++list)
        EXPECT_TRUE(ledger(list).empty() || ledger.DCount(list) <= ledger.DCount(1)) << list;
    EXPECT_TRUE(inOrder(ledger) || !inOrder(old)) << "dates have left their order";
    EXPECT_TRUE(ledger().empty() || ledger(6) == old(6));
    if (!byTab)
        return;
    EXPECT_TRUE(ledger().empty() || ledger.DCount(1) > 0) << "a ledger without lines was left";
    EXPECT_TRUE(oneLineApart(linesOf(ledger), linesOf(old))) << "another line has changed too";
    long balance = 0;
    for (int i = 1; i <= ledger.DCount(1); ++i) {
        if (!ledger(2, i).empty())
            balance += hundredths(ledger(2, i));
        else if (i > 1)
            balance -= hundredths(ledger(3, i));
        EXPECT_EQ(ledger(4, i), std::to_string(balance)) << "balance " << i;
    }
}

// Lists in step; and where nothing says otherwise, the screen shows what is stored.
void DifWatch::checkShown(host::CaregiverForm& form) const {
    const auto& employers = at<ListBox>(form, "Lst_DifEmpl");
    const auto& codes = at<ListBox>(form, "Lst_CodeEmplDif");
    EXPECT_EQ(codes.ListCount(), employers.ListCount());
    EXPECT_EQ(at<ListBox>(form, "Lst_ContratDif").ListCount(), employers.ListCount());
    const auto& detail = at<ListBox>(form, "Lst_DetailDif");
    const auto& trainings = at<ListBox>(form, "Lst_CodeFormDif");
    EXPECT_EQ(trainings.ListCount(), detail.ListCount());
    if (at<TabContainer>(form, "Ong_Vorandine").Tab() != 2 ||
        !at<widgets::Label>(form, "Etq_MessageDif").Caption().empty())
        return;
    const std::string caregiver = at<widgets::Label>(form, "Etq_CodeAidant").Caption();
    const Ledgers stored = ledgers();
    for (int line = 0; line < employers.ListCount(); ++line) {
        const auto found = stored.find(caregiver + codes.List(line));
        const std::string summary = employers.List(line);
        SCOPED_TRACE(summary);
        if (found == stored.end()) {
            EXPECT_EQ(text::Len(summary), 45U);
            continue;
        }
        const records::DBARecord ledger = record(found->second);
        const int last = ledger.DCount(1);
        long acquired = 0;
        long consumed = 0;
        for (int i = 1; i <= last; ++i) {
            acquired += hundredths(ledger(2, i));
            consumed += hundredths(ledger(3, i));
        }
        const auto& columns = dif::SummaryLine::Columns;
        EXPECT_EQ(shownHundredths(column(summary, columns[2])), acquired);
        EXPECT_EQ(shownHundredths(column(summary, columns[3])), consumed);
        EXPECT_EQ(shownHundredths(column(summary, columns[4])), hundredths(ledger(4, last)));
        if (line != employers.ListIndex() || state(form) == DifState::Closed)
            continue;
        ASSERT_EQ(detail.ListCount(), last);
        for (int i = 1; i <= last; ++i) {
            const std::string shown = detail.List(i - 1);
            EXPECT_EQ(trainings.List(i - 1), ledger(5, i));
            for (const int list : {2, 3, 4}) {
                const auto& piece =
                    dif::DetailLine::Columns.at(static_cast<std::size_t>(list == 2 ? 1 : list));
                EXPECT_EQ(shownHundredths(column(shown, piece)), hundredths(ledger(list, i)))
                    << shown;
            }
        }
    }
}

DifWatch::Ledgers DifWatch::ledgers() const {
    Ledgers all;
    below_->file("DIFAIDANT")->scan({}, [&](std::string_view key, std::string_view text) {
        all.emplace(key, text);
        return true;
    });
    return all;
}

records::DBARecord DifWatch::record(const std::string& text) {
    records::DBARecord record;
    record() = text;
    return record;
}

bool DifWatch::inOrder(const records::DBARecord& ledger) {
    for (int i = 2; i <= ledger.DCount(1); ++i)
        if (ledger(1, i - 1) > ledger(1, i))
            return false;
    return true;
}

std::string DifWatch::wholeStore() const {
    std::string all;
    for (const std::string& file : below_->files())
        if (file != "DIFAIDANT")
            below_->file(file)->scan({}, [&](std::string_view key, std::string_view text) {
                all.append(file).append(key).append("=").append(text).append("\n");
                return true;
            });
    return all;
}

} // namespace vorandine::control_test
