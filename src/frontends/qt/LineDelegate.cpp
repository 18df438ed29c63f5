// Columns keep their places whatever the width of a character: heads and fields were placed for
// another one.
#include "frontends/qt/LineDelegate.h"

#include "frontends/qt/Colours.h"
#include "frontends/qt/View.h"

#include <QAbstractItemView>
#include <QPainter>

#include <string>
#include <vector>

namespace vorandine::qt {
namespace {

constexpr int AtLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr int AtRight = Qt::AlignRight | Qt::AlignVCenter;

QPalette::ColorGroup group(const QStyleOptionViewItem& option) {
    if (!option.state.testFlag(QStyle::State_Enabled))
        return QPalette::Disabled;
    return option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
}

} // namespace

QSize LineDelegate::sizeHint(const QStyleOptionViewItem& option,
                             const QModelIndex& /*index*/) const {
    return {1, option.fontMetrics.height()};
}

void LineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    const std::vector<std::string> parts = list_.inColumns(index.row());
    if (parts.empty()) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    // Ground, selection and focus are the style's; a line of blanks takes all the width.
    QStyleOptionViewItem line = option;
    initStyleOption(&line, index);
    line.text.fill(' ');
    const QStyle& style = *option.widget->style();
    style.drawControl(QStyle::CE_ItemViewItem, &line, painter, option.widget);
    painter->save();
    painter->setFont(line.font);
    for (std::size_t i = 0; i < parts.size(); ++i)
        paintColumn(*painter, line, list_.columns()[i], shown(parts[i]));
    painter->restore();
}

void LineDelegate::paintColumn(QPainter& painter, const QStyleOptionViewItem& option,
                               const widgets::ListColumn& column, const QString& text) const {
    if (text.isEmpty())
        return;
    const int corner =
        static_cast<const QAbstractItemView*>(option.widget)->viewport()->geometry().left();
    QRect place = option.rect;
    place.setLeft(scale_.pixels(column.left) - corner);
    place.setRight(scale_.pixels(column.right) - corner - 1);
    const QPalette::ColorGroup palette = group(option);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    QColor ink =
        option.palette.color(palette, selected ? QPalette::HighlightedText : QPalette::Text);
    if (column.figure && text.startsWith('-')) {
        // No red is read on every highlight: the figure brings its own ground.
        const QColor ground = option.palette.color(palette, QPalette::Base);
        ink = redOn(ground);
        if (selected) {
            const int width = option.fontMetrics.horizontalAdvance(text);
            painter.fillRect(place.adjusted(place.width() - width - 3, 1, 3, -1), ground);
        }
    }
    painter.setPen(ink);
    painter.drawText(place, column.figure ? AtRight : AtLeft,
                     option.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
}

} // namespace vorandine::qt
