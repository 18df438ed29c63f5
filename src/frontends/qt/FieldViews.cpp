// Fields as they stand. Native positions count UTF-16 units, the controls' count characters.
#include "frontends/qt/FieldViews.h"

#include "frontends/qt/ToolTip.h"

#include <QAbstractItemView>
#include <QFontMetrics>
#include <QInputMethodEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyleOptionFrame>

#include <algorithm>

namespace vorandine::qt {
namespace {

constexpr int LongestPopup = 14; // entries
constexpr int TextMargin = 2;    // as the native edit keeps it beside its text

std::size_t characters(const QString& text, qsizetype units) {
    const auto pairs = std::count_if(text.begin(), text.begin() + units,
                                     [](QChar unit) { return unit.isLowSurrogate(); });
    return static_cast<std::size_t>(units - pairs);
}

int units(const QString& text, std::size_t characters) {
    qsizetype unit = 0;
    for (; characters > 0 && unit < text.size(); --characters)
        unit += text[unit].isHighSurrogate() && unit + 1 < text.size() ? 2 : 1;
    return static_cast<int>(unit);
}

bool hasFocus(const widgets::Control& control) {
    const widgets::Form* const form = control.form();
    return form != nullptr && form->focus() == &control;
}

} // namespace

FieldEdit::FieldEdit(QWidget* parent) : QLineEdit(parent) {
    setDragEnabled(false);
    setAcceptDrops(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void FieldEdit::mirror(const widgets::TextField& field) {
    const QSignalBlocker quiet(this);
    const QString content = shown(field.Text());
    if (text() != content)
        setText(content);
    const bool active = vorandine::qt::hasFocus(field);
    if (active != active_)
        update();
    active_ = active;
    const std::size_t caret = active ? field.caret() : 0;
    const std::size_t anchor = active ? field.anchor() : 0;
    if (nativeCaret() != caret || nativeAnchor() != anchor) {
        const int from = units(content, anchor);
        const int to = units(content, caret);
        if (from == to)
            setCursorPosition(to);
        else
            setSelection(from, to - from);
    }
}

std::size_t FieldEdit::nativeCaret() const {
    return characters(text(), cursorPosition());
}

std::size_t FieldEdit::nativeAnchor() const {
    if (!hasSelectedText())
        return nativeCaret();
    const int start = selectionStart();
    return characters(text(), start == cursorPosition() ? selectionEnd() : start);
}

void FieldEdit::compose(const QInputMethodEvent& event) {
    QInputMethodEvent preedit(event.preeditString(), event.attributes());
    QLineEdit::inputMethodEvent(&preedit);
}

// The left button alone: the middle one would paste by itself.
void FieldEdit::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    QLineEdit::mousePressEvent(event);
    emit caretMoved();
}

void FieldEdit::mouseMoveEvent(QMouseEvent* event) {
    QLineEdit::mouseMoveEvent(event);
    if ((event->buttons() & Qt::LeftButton) != 0)
        emit caretMoved();
}

void FieldEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    QLineEdit::mouseReleaseEvent(event);
    emit caretMoved();
}

void FieldEdit::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    QLineEdit::mouseDoubleClickEvent(event);
    emit caretMoved();
}

// Looked at on demand: measuring each field at each gesture would cost more than the gesture.
bool FieldEdit::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip)
        setToolTip(tooLong() ? plainToolTip(text()) : QString());
    return QLineEdit::event(event);
}

bool FieldEdit::tooLong() const {
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect room = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
    return fontMetrics().horizontalAdvance(text()) > room.width() - 2 * TextMargin;
}

void FieldEdit::paintEvent(QPaintEvent* event) {
    if (active_ || !tooLong()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QPainter painter(this);
    QStyleOptionFrame option;
    initStyleOption(&option);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    const QRect room = style()
                           ->subElementRect(QStyle::SE_LineEditContents, &option, this)
                           .adjusted(TextMargin, 0, -TextMargin, 0);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

TextBoxView::TextBoxView(widgets::TextBox& box, QWidget& parent)
    : View(box, *new FieldEdit(&parent)), box_(box), native_(static_cast<FieldEdit&>(widget())) {}

void TextBoxView::sync() {
    View::sync();
    native_.mirror(box_);
}

int EntryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : combo_.ListCount();
}

QVariant EntryModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::ToolTipRole)
        return shown(combo_.List(index.row()));
    return {};
}

void EntryModel::reread() {
    beginResetModel();
    endResetModel();
}

void ComboWidget::showPopup() {
    view()->setTextElideMode(Qt::ElideRight);
    view()->setFont(font());
    view()->setMinimumWidth(std::max(width(), view()->sizeHintForColumn(0) + 4));
    QComboBox::showPopup();
}

ComboView::ComboView(widgets::ComboBox& combo, QWidget& parent)
    : View(combo, *new ComboWidget(&parent)), combo_(combo),
      native_(static_cast<ComboWidget&>(widget())), entries_(new EntryModel(combo, &native_)) {
    native_.setModel(entries_);
    native_.setMaxVisibleItems(LongestPopup);
    native_.setInsertPolicy(QComboBox::NoInsert);
    native_.setContextMenuPolicy(Qt::PreventContextMenu);
    if (combo.editable()) {
        edit_ = new FieldEdit(&native_);
        native_.setLineEdit(edit_);
        native_.setCompleter(nullptr);
    }
    revision_ = combo.revision();
}

std::vector<QWidget*> ComboView::sources() const {
    std::vector<QWidget*> all{&native_};
    if (edit_ != nullptr)
        all.push_back(edit_);
    return all;
}

void ComboView::layOut(const Scale& scale) {
    View::layOut(scale);
    if (edit_ != nullptr)
        edit_->setFont(native_.font());
}

void ComboView::sync() {
    View::sync();
    const QSignalBlocker quiet(native_);
    const bool entriesChanged = revision_ != combo_.revision();
    if (entriesChanged) {
        revision_ = combo_.revision();
        entries_->reread();
    }
    if (std::string text = combo_.Text();
        entriesChanged || text != text_ || native_.currentText() != shown(text)) {
        text_ = std::move(text);
        native_.setCurrentIndex(combo_.ListIndex());
        if (edit_ == nullptr)
            native_.update();
    }
    if (edit_ != nullptr)
        edit_->mirror(combo_);
}

} // namespace vorandine::qt
