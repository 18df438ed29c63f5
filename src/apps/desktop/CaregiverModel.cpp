// Rows with their keys made once, so that typing in the search stays quick on thousands of them.
#include "apps/desktop/CaregiverModel.h"

#include "frontends/qt/ToolTip.h"
#include "text/Collation.h"

#include <algorithm>
#include <utility>

namespace vorandine::desktop {

QString shownName(const host::Caregiver& caregiver) {
    return caregiver.name.empty() ? QStringLiteral("(nom inconnu)")
                                  : QString::fromStdString(caregiver.name);
}

void CaregiverModel::assign(const std::vector<host::Caregiver>& caregivers) {
    beginResetModel();
    rows_.clear();
    rows_.reserve(caregivers.size());
    for (const host::Caregiver& caregiver : caregivers)
        rows_.push_back({caregiver, text::Search::folded({caregiver.code, caregiver.name}),
                         text::CollationKey(caregiver.code), text::CollationKey(caregiver.name)});
    std::sort(rows_.begin(), rows_.end(),
              [](const Row& a, const Row& b) { return a.caregiver.code < b.caregiver.code; });
    endResetModel();
}

void CaregiverModel::setSituation(const std::string& code, Situation situation) {
    situations_[code] = std::move(situation);
    if (const int row = rowOf(code); row >= 0)
        emit dataChanged(index(row, Status), index(row, Status));
}

int CaregiverModel::rowOf(const std::string& code) const {
    const auto found = std::lower_bound(
        rows_.begin(), rows_.end(), code,
        [](const Row& row, const std::string& wanted) { return row.caregiver.code < wanted; });
    return found != rows_.end() && found->caregiver.code == code
               ? static_cast<int>(found - rows_.begin())
               : -1;
}

bool CaregiverModel::before(int row, int other, int column) const {
    const Row& a = at(row);
    const Row& b = at(other);
    if (column == Name && a.nameKey != b.nameKey)
        return a.nameKey < b.nameKey;
    if (column == Status) {
        const QString& mine = situation(row).text;
        const QString& others = situation(other).text;
        // Those with something to tell come first.
        if (mine != others)
            return others.isEmpty() || (!mine.isEmpty() && mine < others);
    }
    return std::tie(a.codeKey, a.caregiver.code) < std::tie(b.codeKey, b.caregiver.code);
}

int CaregiverModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int CaregiverModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Columns;
}

QVariant CaregiverModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const host::Caregiver& shown = caregiver(index.row());
    const Situation& state = situation(index.row());
    if (role == Qt::DisplayRole) {
        switch (index.column()) {
        case Code:
            return QString::fromStdString(shown.code);
        case Name:
            return shownName(shown);
        default:
            return state.text;
        }
    }
    if (role == Qt::ToolTipRole && index.column() == Status && !state.detail.isEmpty())
        return qt::plainToolTip(state.detail);
    return {};
}

QVariant CaregiverModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    switch (section) {
    case Code:
        return QStringLiteral("Code");
    case Name:
        return QStringLiteral("Nom et prénom");
    default:
        return QStringLiteral("Situation");
    }
}

const Situation& CaregiverModel::situation(int row) const {
    static const Situation nothing;
    const auto found = situations_.find(caregiver(row).code);
    return found == situations_.end() ? nothing : found->second;
}

CaregiverFilter::CaregiverFilter(CaregiverModel& model, QObject* parent)
    : QSortFilterProxyModel(parent), model_(model) {
    setSourceModel(&model);
}

void CaregiverFilter::search(const QString& typed) {
    search_ = text::Search(typed.toStdString());
    invalidateFilter();
}

bool CaregiverFilter::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const {
    return search_.finds(model_.folded(row));
}

bool CaregiverFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    return model_.before(left.row(), right.row(), left.column());
}

} // namespace vorandine::desktop
