// How one line of a list is drawn: as one text, or each of its columns in its place.
#pragma once

#include "frontends/qt/Scale.h"
#include "widgets/ListBox.h"

#include <QStyledItemDelegate>

namespace vorandine::qt {

class LineDelegate : public QStyledItemDelegate {
  public:
    // All three must outlive it.
    LineDelegate(const widgets::ListBox& list, const Scale& scale, QObject* parent)
        : QStyledItemDelegate(parent), list_(list), scale_(scale) {}

    // As high as its text, as wide as the view: what is longer ends in an ellipsis.
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

  private:
    const widgets::ListBox& list_;
    const Scale& scale_;

    void paintColumn(QPainter& painter, const QStyleOptionViewItem& option,
                     const widgets::ListColumn& column, const QString& text) const;
};

} // namespace vorandine::qt
