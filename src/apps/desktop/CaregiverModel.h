// The caregivers as the list shows them: code, name, and what became of their file in this run;
// and the same filtered and sorted.
#pragma once

#include "apps/host/Caregivers.h"
#include "text/Search.h"

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QString>

#include <map>
#include <string>
#include <vector>

namespace vorandine::desktop {

// What happened to a caregiver's file in this run.
struct Situation {
    QString text;   // short
    QString detail; // for a tool tip; may be empty
};

class CaregiverModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    enum Column { Code, Name, Status, Columns };

    using QAbstractTableModel::QAbstractTableModel;

    // Replaces all rows; situations stay with their codes.
    void assign(const std::vector<host::Caregiver>& caregivers);
    void setSituation(const std::string& code, Situation situation);

    [[nodiscard]] const host::Caregiver& caregiver(int row) const { return at(row).caregiver; }
    // -1 if there is none.
    [[nodiscard]] int rowOf(const std::string& code) const;
    [[nodiscard]] const std::string& folded(int row) const { return at(row).folded; }
    [[nodiscard]] bool before(int row, int other, int column) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

  private:
    // With what searching and sorting compare, made once.
    struct Row {
        host::Caregiver caregiver;
        std::string folded;
        std::string codeKey;
        std::string nameKey;
    };

    std::vector<Row> rows_; // in binary order of their codes
    std::map<std::string, Situation> situations_;

    [[nodiscard]] const Row& at(int row) const { return rows_[static_cast<std::size_t>(row)]; }
    [[nodiscard]] const Situation& situation(int row) const;
};

class CaregiverFilter : public QSortFilterProxyModel {
    Q_OBJECT
  public:
    explicit CaregiverFilter(CaregiverModel& model, QObject* parent = nullptr);

    void search(const QString& typed);

  protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

  private:
    CaregiverModel& model_;
    text::Search search_{""};
};

// What stands for the name of a caregiver on screens.
[[nodiscard]] QString shownName(const host::Caregiver& caregiver);

} // namespace vorandine::desktop
