// The D.I.F. half of the random walk: employers and ledgers for it to work on, files that fail now
// and then, and what must hold of the tab and of what is stored after each gesture.
#pragma once

#include "apps/scenario/RehearsalEngine.h"
#include "dif/Columns.h"
#include "text/Characters.h"
#include "unit/control_support.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vorandine::control_test {

using namespace widgets;

inline const std::set<std::string> DifFrame = {"Cdr_DetailDif", "Lst_DetailDif", "Txt_DateDif",
                                               "Txt_DroitDif",  "Txt_FormDif",   "Txt_HreDif",
                                               "Txt_SoldeDif",  "Cmd_AjoutDif",  "Cmd_AnnuleDif",
                                               "Cmd_SupprDif",  "Cmd_OkDif",     "Cmd_CalculDif"};

// Of a stored figure, in hundredths: the walk stores whole numbers alone. 0 for what is no number.
inline long hundredths(const std::string& stored) {
    return std::strtol(stored.c_str(), nullptr, 10);
}

// Of a piece of a line on the screen, "7,50" with blanks around it.
inline long shownHundredths(const std::string& line, const dif::Piece& piece) {
    std::string shown = text::Trim(text::Mid(line, piece.column, piece.width));
    const std::size_t comma = shown.find(',');
    return comma == std::string::npos ? 0 : hundredths(shown.erase(comma, 1));
}

// What stands on the screen. Freed: the end of a training line has enabled everything; the next
// arrival on the tab closes it.
enum class DifState { Closed, EmployerOpen, RightsLine, HoursLine, NewLine, Freed };

class DifWatch {
  public:
    // From here on the desk's engine fails on demand.
    explicit DifWatch(Desk& desk)
        : below_(desk.engine), rehearsal_(std::make_shared<scenario::RehearsalEngine>(below_)) {
        desk.engine = rehearsal_;
        desk.putText("ASSOCIATION", "ADM", "Aide à domicile en Cévennes");
        desk.putText("CIVILAIDE", "P0007", "^Léa^MÉNARD");
        for (const std::string caregiver : {"00000", "00002", "00003"}) {
            desk.putText("CONTRAT", caregiver + "-1", "^^ADM^A^^^20000101");
            desk.putText("CONTRAT", caregiver + "-2", "^^P0007^B^^^20000101^20071231");
            desk.putText("CONTRAT", caregiver + "-3", "^^GON^C^^^20000101");
            desk.putText("CONTRAT", caregiver + "-4", "^^ADM^D^^^20060101");
        }
        for (const std::string caregiver : {"00000", "00002"}) {
            desk.putText("DIFAIDANT", caregiver + "ADM",
                         "20040312]20050601]20060110^2000]]300^]500]^2000]1500]1800^]MAN]^six");
            // A first line of hours, one of a code without label, lists of different lengths.
            desk.putText("DIFAIDANT", caregiver + "GON",
                         "20050101]20050101]20050102^]1000^500]]250^0]1000^HYG]]ZZZ");
        }
    }

    enum class Failing { Nothing, Writes, Reads };
    void fail(Failing failing) {
        failing_ = failing;
        rehearsal_->failNothing();
        if (failing == Failing::Writes)
            rehearsal_->failWrites("DIFAIDANT");
        else if (failing == Failing::Reads)
            rehearsal_->failReads("DIFAIDANT");
    }
    [[nodiscard]] Failing failing() const noexcept { return failing_; }

    using Ledgers = std::map<std::string, std::string>; // stored texts by key
    // Not disturbed by failures, as all that follows.
    [[nodiscard]] Ledgers ledgers() const {
        Ledgers all;
        below_->file("DIFAIDANT")->scan({}, [&](std::string_view key, std::string_view text) {
            all.emplace(key, text);
            return true;
        });
        return all;
    }
    [[nodiscard]] static records::DBARecord record(const std::string& text) {
        records::DBARecord record;
        record() = text;
        return record;
    }
    // Whether the dates of a ledger are in order.
    [[nodiscard]] static bool inOrder(const records::DBARecord& ledger) {
        for (int i = 2; i <= ledger.DCount(1); ++i)
            if (ledger(1, i - 1) > ledger(1, i))
                return false;
        return true;
    }

    void before(host::CaregiverForm& form, bool trainingOpen) {
        stateBefore_ = state(form);
        trainingOpenBefore_ = trainingOpen;
        ledgersBefore_ = ledgers();
    }
    // `gesture` is the control it was made on. Whether a ledger was stored.
    bool after(host::CaregiverForm& form, const std::string& gesture, bool trainingOpen) {
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
            const auto text = [&](const Ledgers& in) {
                const auto at = in.find(key);
                return at == in.end() ? std::nullopt : std::optional(at->second);
            };
            if (text(stored) == text(ledgersBefore_))
                continue;
            ++changed;
            SCOPED_TRACE("ledger " + key);
            EXPECT_TRUE(lineEnded || (trainingOpenBefore_ && !trainingOpen))
                << "stored without a line that was confirmed";
            EXPECT_EQ(failing_, Failing::Nothing);
            checkStored(text(stored).value_or(""), text(ledgersBefore_).value_or(""), lineEnded);
        }
        EXPECT_LE(changed, lineEnded ? 1 : 3);
        if (lineEnded && failing_ != Failing::Nothing &&
            (gesture == "Cmd_OkDif" || gesture == "Cmd_SupprDif")) {
            EXPECT_NE(at<Label>(form, "Etq_MessageDif").Caption(), "");
        }
        checkShown(form);
        return changed > 0;
    }

    [[nodiscard]] static DifState state(host::CaregiverForm& form) {
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
    [[nodiscard]] static bool lineOpen(DifState state) {
        return state == DifState::NewLine || state == DifState::RightsLine ||
               state == DifState::HoursLine;
    }
    // Whether a control of the frame is enabled in that state; nothing for any other control.
    [[nodiscard]] static std::optional<bool> enabled(DifState state, const std::string& name) {
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
            {DifState::Freed, DifFrame}};
        if (DifFrame.count(name) == 0)
            return std::nullopt;
        return Enabled.at(state).count(name) > 0;
    }
    // All that is stored beside the ledgers, told in a text.
    [[nodiscard]] std::string wholeStore() const {
        std::string all;
        for (const std::string& file : below_->files())
            if (file != "DIFAIDANT")
                below_->file(file)->scan({}, [&](std::string_view key, std::string_view text) {
                    all.append(file).append(key).append("=").append(text).append("\n");
                    return true;
                });
        return all;
    }

  private:
    std::shared_ptr<store::Engine> below_;
    std::shared_ptr<scenario::RehearsalEngine> rehearsal_;
    Failing failing_ = Failing::Nothing;
    DifState stateBefore_ = DifState::Closed;
    bool trainingOpenBefore_ = false;
    Ledgers ledgersBefore_;

    void checkStored(const std::string& text, const std::string& before, bool byTab) const {
        const records::DBARecord ledger = record(text);
        const records::DBARecord old = record(before);
        for (int list = 2; list <= 5; ++list)
            EXPECT_TRUE(ledger(list).empty() || ledger.DCount(list) <= ledger.DCount(1)) << list;
        EXPECT_TRUE(inOrder(ledger) || !inOrder(old)) << "dates have left their order";
        EXPECT_TRUE(ledger().empty() || ledger(6) == old(6));
        if (!byTab)
            return;
        EXPECT_TRUE(ledger().empty() || ledger.DCount(1) > 0) << "a ledger without lines was left";
        EXPECT_LE(std::abs(ledger.DCount(1) - old.DCount(1)), 1);
        long balance = 0;
        for (int i = 1; i <= ledger.DCount(1); ++i) {
            if (!ledger(2, i).empty())
                balance += hundredths(ledger(2, i));
            else if (i > 1)
                balance -= hundredths(ledger(3, i));
            EXPECT_EQ(ledger(4, i), std::to_string(balance)) << "balance " << i;
        }
    }
    // Lists in step; and where nothing says otherwise, the open ledger shows what is stored.
    void checkShown(host::CaregiverForm& form) const {
        const auto list = [&](const char* name) -> ListBox& { return at<ListBox>(form, name); };
        const ListBox& employers = list("Lst_DifEmpl");
        const ListBox& detail = list("Lst_DetailDif");
        EXPECT_EQ(list("Lst_CodeEmplDif").ListCount(), employers.ListCount());
        EXPECT_EQ(list("Lst_ContratDif").ListCount(), employers.ListCount());
        EXPECT_EQ(list("Lst_CodeFormDif").ListCount(), detail.ListCount());
        if (at<TabContainer>(form, "Ong_Vorandine").Tab() != 2 || employers.ListIndex() < 0 ||
            state(form) == DifState::Closed || !at<Label>(form, "Etq_MessageDif").Caption().empty())
            return;
        const std::string key = at<Label>(form, "Etq_CodeAidant").Caption() +
                                list("Lst_CodeEmplDif").List(employers.ListIndex());
        const Ledgers stored = ledgers();
        const auto found = stored.find(key);
        const records::DBARecord ledger = record(found == stored.end() ? "" : found->second);
        ASSERT_EQ(detail.ListCount(), ledger.DCount(1)) << key;
        for (int i = 1; i <= ledger.DCount(1); ++i)
            for (const int attribute : {2, 3, 4}) {
                const std::size_t piece = attribute == 2 ? 1 : static_cast<std::size_t>(attribute);
                EXPECT_EQ(shownHundredths(detail.List(i - 1), dif::DetailLine::Columns.at(piece)),
                          hundredths(ledger(attribute, i)))
                    << key << ", line " << i;
            }
    }
};

} // namespace vorandine::control_test
