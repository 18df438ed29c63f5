// The table of trainings: six list boxes, one a column, kept in step, with one selection and one
// scroll bar. The lists are the working copy of the training attributes of the caregiver's record.
#pragma once

#include "ports/DateObject.h"
#include "records/DBARecord.h"
#include "records/TrainingLabels.h"
#include "rules/StatementByStatement.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace vorandine::trainings {

// Characters of a training's code, as far as they count.
constexpr std::size_t CodeLength = 3;

// One line as the lists show it.
struct TrainingLine {
    std::string date;         // dd/mm/yyyy or ""
    std::string label;        // of the code, "" if the table of labels does not hold it
    std::string code;         // 3 characters
    std::string hours;        // in fixed form, or ""
    std::string observations; // free text
    std::string dif;          // "OUI" or "NON"
    int origin = 0;           // which line of the record it was shown from, from 1; 0: a new one
};

struct TrainingWidgets {
    widgets::ListBox Lst_DatFormAidant;
    widgets::ListBox Lst_CodFormAidant;
    widgets::ListBox Lst_HhFormAidant;
    widgets::ListBox Lst_ObsFormAidant;
    widgets::ListBox Lst_DifFormAidant;
    widgets::ListBox Lst_CodeForm; // never visible
    widgets::ScrollBar Bdv_FormAidant;
};

// Takes over Click of the lists and Change of the bar. Lines count from 0. The widgets and the date
// object must outlive it.
class TrainingLines {
  public:
    TrainingLines(TrainingWidgets& widgets, const ports::DateObject& Conv_Date);
    TrainingLines(const TrainingLines&) = delete;
    TrainingLines& operator=(const TrainingLines&) = delete;
    ~TrainingLines() = default;

    [[nodiscard]] int count() const;
    [[nodiscard]] TrainingLine line(int i) const;
    // Of every line, from the first.
    [[nodiscard]] const std::vector<int>& origins() const noexcept { return origins_; }
    // The selected line, the same in all six lists; -1 if none is.
    [[nodiscard]] int W_LigneForm() const;
    void deselect();

    // A double click on any of the five lists that are shown.
    void onOpen(const std::function<void()>& open);

    // The bar's range, and whether it shows: more than 8.
    void range(int max);

    // Throws Error(TooManyLines) if no line can be added any more.
    void requireRoom() const;
    // Puts a line in its place: latest date first, the newest entry of a date on top of it, lines
    // without a date last. Sets the bar's range.
    void insert(TrainingLine line);
    // Takes a line out; the bar keeps its range.
    void remove(int i);

    // Adds the trainings of `rec` at the end, in stored order, then sets the bar's range. Runs on
    // after an error: what cannot be read is shown as it is stored, and the lists stay in step.
    // Lines past what a list can hold are left out.
    void show(const records::DBARecord& rec, const records::DBARecord& F_FORMPRO,
              rules::StatementByStatement& tries);
    // Puts the lines into the lists of trainings of `rec`, which are empty. A line without hours
    // shows "0" from then on. Hours that are no number go back as they were read.
    void compose(records::DBARecord& rec);

  private:
    TrainingWidgets& w_;
    const ports::DateObject& Conv_Date_;
    std::array<widgets::ListBox*, 6> lists_; // in the order in which the bar sets them
    std::vector<int> origins_;
    bool spreading_ = false;

    void put(TrainingLine line, int i);
    [[nodiscard]] int placeOf(const std::string& date) const;
    void select(const widgets::ListBox& clicked, bool movesBar);
    void scroll();
    [[nodiscard]] TrainingLine read(const records::DBARecord& rec,
                                    const records::TrainingLabels& labels, int i,
                                    rules::StatementByStatement& tries) const;
};

} // namespace vorandine::trainings
