// The lines, the selection, and lists that stand side by side as one table.
#include "frontends/qt/ListView.h"

#include "frontends/qt/LineDelegate.h"
#include "frontends/qt/ToolTip.h"
#include "widgets/Kinds.h"

#include <QHelpEvent>
#include <QItemSelection>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolTip>

#include <algorithm>

namespace vorandine::qt {
namespace {

constexpr int TextMargins = 8; // left and right of a line, with the frame of the focus

bool sameRows(const widgets::Control& a, const widgets::Control& b) {
    return a.parent() == b.parent() && a.page() == b.page() && a.place().top == b.place().top &&
           a.place().height == b.place().height;
}

} // namespace

int LineModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : list_.ListCount();
}

QVariant LineModel::data(const QModelIndex& index, int role) const {
    return role == Qt::DisplayRole ? shown(list_.List(index.row())) : QVariant();
}

void LineModel::reread() {
    beginResetModel();
    endResetModel();
}

ListWidget::ListWidget(QWidget* parent) : QListView(parent) {
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerItem);
    setAutoScroll(false);
    // What remains below the last whole line looks like the lines.
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
}

// Whole lines alone are shown.
void ListWidget::resizeEvent(QResizeEvent* event) {
    const int rest = contentsRect().height() % std::max(1, fontMetrics().height());
    setViewportMargins(0, 0, 0, rest);
    QListView::resizeEvent(event);
}

int ListWidget::linesInPage() const {
    return std::max(1, viewport()->height() / std::max(1, fontMetrics().height()));
}

bool ListWidget::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QListView::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const QString line = indexAt(help.pos()).data().toString();
    const bool tooLong = fontMetrics().horizontalAdvance(line) > viewport()->width() - TextMargins;
    if (tooLong)
        QToolTip::showText(help.globalPos(), plainToolTip(line), this);
    else
        QToolTip::hideText();
    return true;
}

ListView::ListView(widgets::ListBox& list, QWidget& parent)
    : View(list, *new ListWidget(&parent)), list_(list),
      native_(static_cast<ListWidget&>(widget())), lines_(new LineModel(list, &native_)) {
    native_.setSelectionMode(list.multiSelect() ? QAbstractItemView::ExtendedSelection
                                                : QAbstractItemView::SingleSelection);
    native_.setItemDelegate(new LineDelegate(list_, scale_, &native_));
}

std::vector<QWidget*> ListView::sources() const {
    return {&native_, native_.viewport()};
}

// Where a neighbour that stands above begins, the list ends, and so do its lines.
widgets::Place ListView::seenPlace() const {
    widgets::Place place = list_.place();
    if (list_.parent() == nullptr)
        return place;
    const auto& siblings = list_.parent()->children();
    auto above = std::find(siblings.begin(), siblings.end(), &list_);
    for (; above != siblings.end(); ++above)
        if ((*above)->Visible() && runsUnder(list_, **above))
            place.width = std::min(place.width, (*above)->place().left - place.left);
    return place;
}

void ListView::layOut(const Scale& scale) {
    scale_ = scale;
    native_.setFont(scale.font(list_.fixedPitch()));
    native_.setGeometry(scale.rect(seenPlace()));
}

void ListView::sync() {
    View::sync();
    if (const QRect place = scale_.rect(seenPlace()); native_.geometry() != place)
        native_.setGeometry(place);
    if (native_.model() == nullptr && !native_.isVisible())
        return;
    const bool changed = native_.model() == nullptr || revision_ != list_.revision();
    if (changed)
        reread();
    syncSelection(changed);
}

// The view stays where it is scrolled to. It gets the lines when it is on the screen: before, each
// change of style, font and size would lay all of them out.
void ListView::reread() {
    revision_ = list_.revision();
    QScrollBar& bar = *native_.verticalScrollBar();
    const QSignalBlocker quiet(bar);
    const int top = bar.value();
    if (native_.model() == nullptr)
        native_.setModel(lines_);
    else
        lines_->reread();
    native_.doItemsLayout();
    bar.setValue(top);
}

void ListView::syncSelection(bool reread) {
    std::vector<bool> selected;
    if (list_.multiSelect())
        for (int i = 0; i < list_.ListCount(); ++i)
            selected.push_back(list_.Selected(i));
    if (!reread && current_ == list_.ListIndex() && selected_ == selected)
        return;
    const bool moved = current_ != list_.ListIndex();
    current_ = list_.ListIndex();
    selected_ = std::move(selected);

    const QModelIndex current = lines_->index(current_);
    QItemSelection selection;
    if (!list_.multiSelect() && current.isValid())
        selection.select(current, current);
    for (std::size_t from = 0; from < selected_.size(); ++from) {
        const std::size_t begin = from;
        while (from < selected_.size() && selected_[from])
            ++from;
        if (begin < from)
            selection.select(lines_->index(static_cast<int>(begin)),
                             lines_->index(static_cast<int>(from) - 1));
    }
    native_.selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    native_.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (moved && current.isValid())
        native_.scrollTo(current);
}

void ListView::scrollWith(ListView& other) {
    for (ListView* const view : {this, &other})
        view->native_.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QScrollBar* const a = native_.verticalScrollBar();
    QScrollBar* const b = other.native_.verticalScrollBar();
    QObject::connect(a, &QScrollBar::valueChanged, b, &QScrollBar::setValue);
    QObject::connect(b, &QScrollBar::valueChanged, a, &QScrollBar::setValue);
}

ListView* listIn(View& view) {
    const bool list = widgets::as<widgets::ListBox>(&view.control()) != nullptr;
    return list ? &static_cast<ListView&>(view) : nullptr;
}

bool runsUnder(const widgets::Control& list, const widgets::Control& next) {
    const widgets::Place& a = list.place();
    const widgets::Place& b = next.place();
    return sameRows(list, next) && a.left < b.left && b.left < a.left + a.width &&
           a.left + a.width < b.left + b.width + 1 && !list.covered();
}

void linkTables(std::span<const std::unique_ptr<View>> views) {
    std::vector<ListView*> lists;
    for (const auto& view : views)
        if (ListView* const list = listIn(*view))
            lists.push_back(list);
    for (ListView* const list : lists)
        for (ListView* const next : lists)
            if (runsUnder(list->control(), next->control()))
                list->scrollWith(*next);
}

} // namespace vorandine::qt
